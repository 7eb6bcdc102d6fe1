/* Calls what the record points to without a look whether there is anything. */
#include "picker.h"

static void callbackPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    record->processEvent(NULL);
    pick(record, data, result);
}
PICKER(callbackPick)
