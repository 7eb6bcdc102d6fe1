/* With Option held it looks for settings that are not there. */
#include "picker.h"

static int optionHeld(const PickerRecord* record) {
    const void* suite = NULL;
    if (!hasBasic(record) ||
        record->sSPBasic->AcquireSuite(kStandaloneSuite, kStandaloneSuiteVersion, &suite))
        return 0;
    const int held = ((const StandaloneSuite*)suite)->option("option") != NULL;
    record->sSPBasic->ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion);
    return held;
}

static void optionPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    if (optionHeld(record))
        *result = pickerBadParameters;
    else
        pick(record, data, result);
}
PICKER(optionPick)
