/* A pick ends with an error of the plug-in's own. */
#include "picker.h"

static void failingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    (void)record, (void)data;
    *result = 12;
}
PICKER(failingPick)
