/* Does not unlock its handle. */
#include "picker.h"

static void lockedPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    if (lockSlot(record, data))
        answer(record);
    else
        *result = hostMemFullErr;
}
PICKER(lockedPick)
