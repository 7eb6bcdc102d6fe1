/* Writes to a buffer that it has not locked. */
#include "picker.h"

static void unlockedPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    BufferProcs* const procs = record->bufferProcs;
    BufferID buffer = NULL;
    if (procs && procs->allocateProc && procs->allocateProc(64, &buffer) == hostNoErr) {
        char* const bytes = procs->lockProc(buffer, 1);
        procs->unlockProc(buffer);
        bytes[0] = 1;
        procs->freeProc(buffer);
    }
    pick(record, data, result);
}
PICKER(unlockedPick)
