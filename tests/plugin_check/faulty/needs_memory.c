/* Uses a handle's memory without a look whether there is any. */
#include "picker.h"

static void needingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    HandleProcs* const handles = record->handleProcs;
    if (!handles || !handles->newProc || !handles->lockProc) {
        *result = hostMemFullErr;
        return;
    }
    if (!*data) {
        Handle made = handles->newProc(1000);
        if (!*data)
            *data = (intptr_t)made;
        else if (made)
            handles->disposeProc(made);
    }
    handles->lockProc((Handle)*data, 1)[0] = 1;
    answer(record);
    handles->unlockProc((Handle)*data);
}
PICKER(needingPick)
