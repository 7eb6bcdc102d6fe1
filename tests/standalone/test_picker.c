/* A picker without a dialog: proves the host. It answers with the colour turned upside down (65535 -
 * component) where --accept was given, and leaves it where not. TEST_PICKER in the environment makes it
 * misbehave. */
#include "abi/picker_record.h"
#include "abi/standalone_suite.h"

#include <stdlib.h>
#include <string.h>

static int wants(const char* behaviour) {
    const char* asked = getenv("TEST_PICKER");
    return asked && strcmp(asked, behaviour) == 0;
}

/* The slot's handle, made in the first pick; null without memory. */
static char* lockedGlobals(PickerRecord* record, intptr_t* data) {
    HandleProcs* handles = record->handleProcs;
    Handle handle = (Handle)*data;
    if (!handle) handle = handles->newProc(1000);
    if (!handle) return NULL;
    char* const address = handles->lockProc(handle, 1);
    if (!address && !*data) handles->disposeProc(handle);
    if (address) *data = (intptr_t)handle;
    return address;
}

static void answer(PickerRecord* record, const StandaloneSuite* own) {
    record->pickParms.resultSpace = plugIncolorServicesRGBSpace;
    if (!own->option("accept")) return;
    for (int i = 0; i < 3; ++i)
        record->pickParms.colorComponents[i] = (uint16_t)(65535 - record->pickParms.colorComponents[i]);
}

/* Written once more, and called once more, while the module is unloaded, where asked to. */
static PickerRecord* lateRecord;
static SPBasicSuite* lateBasic;
__attribute__((destructor)) static void beLate(void) {
    if (lateRecord) lateRecord->pickParms.colorComponents[3] = 1;
    if (lateBasic) lateBasic->IsEqual("one", "other");
}

static void report(PickerRecord* record, int16_t* result) {
    const char* text = "the picker has no colours left";
    if (wants("report controls"))
        text = "red \x1b[31m\r\n\x7f, \xc2\x9b"
               "31m, \xc3\xa9\xc2\xa0";
    record->errorString[0] = (unsigned char)strlen(text);
    memcpy(record->errorString + 1, text, strlen(text));
    *result = errReportString;
}

__attribute__((visibility("default"))) void PluginMain(int16_t selector, void* record, intptr_t* data,
                                                       int16_t* result);

void PluginMain(int16_t selector, void* parameters, intptr_t* data, int16_t* result) {
    if (selector == pickerSelectorAbout) return;
    PickerRecord* const record = parameters;
    if (!lockedGlobals(record, data)) {
        *result = hostMemFullErr;
        return;
    }
    const void* suite = NULL;
    record->sSPBasic->AcquireSuite(kStandaloneSuite, kStandaloneSuiteVersion, &suite);
    const StandaloneSuite* const own = suite;
    answer(record, own);
    if (wants("end with 7")) own->endWith(7);
    if (wants("report") || wants("report controls")) report(record, result);
    if (wants("fail")) *result = 12;
    if (wants("write late")) lateRecord = record;
    if (wants("call late")) lateBasic = record->sSPBasic;
    record->sSPBasic->ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion);
    if (!wants("leave locked")) record->handleProcs->unlockProc((Handle)*data);
}
