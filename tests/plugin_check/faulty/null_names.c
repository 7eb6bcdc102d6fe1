/* Asks for a suite without a name. */
#include "picker.h"

static void namelessPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    const void* suite = NULL;
    if (hasBasic(record)) record->sSPBasic->AcquireSuite(NULL, 1, &suite);
    pick(record, data, result);
}
PICKER(namelessPick)
