/* Disposes of its handle and leaves it in the slot. */
#include "picker.h"

static void stalePick(PickerRecord* record, intptr_t* data, int16_t* result) {
    intptr_t own = 0;
    pick(record, &own, result);
    if (own) record->handleProcs->disposeProc((Handle)own);
    *data = own;
}
PICKER(stalePick)
