/* Keeps in its slot what the host cannot give back. */
#include "picker.h"

static char settings[100];

static void junkPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    (void)result;
    *data = (intptr_t)settings;
    answer(record);
}
PICKER(junkPick)
