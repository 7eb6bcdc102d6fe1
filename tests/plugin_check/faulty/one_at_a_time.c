/* Keeps the colour of the pick that runs where another one takes its place. */
#include "picker.h"

#include <string.h>

static PickParms current;

static void keepingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    current = record->pickParms;
    char* const bytes = lockSlot(record, data);
    if (!bytes) {
        *result = hostMemFullErr;
        return;
    }
    memcpy(record->pickParms.colorComponents, current.colorComponents, sizeof current.colorComponents);
    answer(record);
    unlockSlot(record, data);
}
PICKER(keepingPick)
