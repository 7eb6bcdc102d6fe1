/* Does not release a suite. */
#include "picker.h"

static void holdingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    const void* suite = NULL;
    if (hasBasic(record)) record->sSPBasic->AcquireSuite(kPSUIHooksSuite, kPSUIHooksSuiteVersion1, &suite);
    pick(record, data, result);
}
PICKER(holdingPick)
