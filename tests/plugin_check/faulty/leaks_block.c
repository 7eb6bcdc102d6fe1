/* Keeps a block of the basic suite. */
#include "picker.h"

static void leakingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    void* block = NULL;
    if (hasBasic(record)) record->sSPBasic->AllocateBlock(10, &block);
    pick(record, data, result);
}
PICKER(leakingPick)
