/* No fault: passes every check. It asks the host for all that it has, and calls nothing that is not there. */
#include "picker.h"

static void useSuite(PickerRecord* record) {
    const void* suite = NULL;
    if (!hasBasic(record) || record->sSPBasic->AcquireSuite(kPSBufferSuite, kPSBufferSuiteVersion1, &suite))
        return;
    const PSBufferSuite1* const buffers = suite;
    char* buffer = buffers && buffers->New && buffers->Dispose ? buffers->New(NULL, 64) : NULL;
    if (buffer) buffers->Dispose(&buffer);
    record->sSPBasic->ReleaseSuite(kPSBufferSuite, kPSBufferSuiteVersion1);
}

static void useBuffer(const BufferProcs* procs) {
    BufferID buffer = NULL;
    if (!procs || !procs->allocateProc || !procs->lockProc || !procs->unlockProc || !procs->freeProc) return;
    if (procs->allocateProc(64, &buffer) != hostNoErr) return;
    char* const bytes = procs->lockProc(buffer, 1);
    if (bytes) bytes[63] = 1;
    if (bytes) procs->unlockProc(buffer);
    procs->freeProc(buffer);
}

static void convert(const PickerRecord* record) {
    ColorServicesInfo info = {.infoSize = sizeof info,
                              .selector = plugIncolorServicesConvertColor,
                              .sourceSpace = record->pickParms.sourceSpace};
    if (record->colorServices) record->colorServices(&info);
}

static int running;

static void soundPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    if (running) return;
    running = 1;
    useSuite(record);
    useBuffer(record->bufferProcs);
    convert(record);
    pick(record, data, result);
    running = 0;
}

PICKER(soundPick)
