/* Changes the colour and then ends with an error. */
#include "picker.h"

static void halfPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pick(record, data, result);
    *result = hostUserCanceledErr;
}
PICKER(halfPick)
