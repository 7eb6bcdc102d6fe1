/* Uses a suite without a look whether the host has it. */
#include "picker.h"

static void suitePick(PickerRecord* record, intptr_t* data, int16_t* result) {
    const PSUIHooksSuite* hooks = NULL;
    if (hasBasic(record)) {
        const int32_t error =
            record->sSPBasic->AcquireSuite(kPSUIHooksSuite, kPSUIHooksSuiteVersion1, (const void**)&hooks);
        if (error == kSPSuiteNotFoundError || (!error && hooks && hooks->TickCount)) hooks->TickCount();
        if (!error) record->sSPBasic->ReleaseSuite(kPSUIHooksSuite, kPSUIHooksSuiteVersion1);
    }
    pick(record, data, result);
}
PICKER(suitePick)
