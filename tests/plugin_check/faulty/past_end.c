/* Writes one byte too many. */
#include "picker.h"

static void longPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    char* const bytes = lockSlot(record, data);
    if (!bytes) {
        *result = hostMemFullErr;
        return;
    }
    bytes[1000] = 1;
    answer(record);
    unlockSlot(record, data);
}
PICKER(longPick)
