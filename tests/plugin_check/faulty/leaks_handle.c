/* Keeps a handle beside the slot's. */
#include "picker.h"

static void leakingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pick(record, data, result);
    if (*result == hostNoErr) record->handleProcs->newProc(10);
}
PICKER(leakingPick)
