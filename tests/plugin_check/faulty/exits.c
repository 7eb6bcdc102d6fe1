/* Ends the host's process where it gets no memory. */
#include "picker.h"

#include <stdlib.h>

static void leavingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pick(record, data, result);
    if (*result == hostMemFullErr && record->handleProcs && record->handleProcs->newProc) exit(3);
}
PICKER(leavingPick)
