/* A picker without a dialog that does nothing wrong: what each faulty one beside it is but for one fault. */
#ifndef FAULTY_PICKER_H
#define FAULTY_PICKER_H

#include "abi/picker_record.h"
#include "abi/standalone_suite.h"

#include <stddef.h>

__attribute__((visibility("default"))) void PluginMain(int16_t selector, void* record, intptr_t* data,
                                                       int16_t* result);

/* The bytes of the slot's handle, made in the first pick and locked; null without memory. */
static inline char* lockSlot(PickerRecord* record, intptr_t* data) {
    HandleProcs* const handles = record->handleProcs;
    if (!handles || !handles->newProc || !handles->disposeProc || !handles->lockProc || !handles->unlockProc)
        return NULL;
    if (!*data) {
        Handle made = handles->newProc(1000);
        /* A pick from within that call has one already. */
        if (!*data)
            *data = (intptr_t)made;
        else if (made)
            handles->disposeProc(made);
    }
    return *data ? handles->lockProc((Handle)*data, 1) : NULL;
}

static inline void unlockSlot(PickerRecord* record, const intptr_t* data) {
    record->handleProcs->unlockProc((Handle)*data);
}

/* The colour turned upside down. */
static inline void answer(PickerRecord* record) {
    record->pickParms.resultSpace = plugIncolorServicesRGBSpace;
    for (int i = 0; i < 3; ++i)
        record->pickParms.colorComponents[i] = (uint16_t)(65535 - record->pickParms.colorComponents[i]);
}

static inline int hasBasic(const PickerRecord* record) {
    return record->sSPBasic && record->sSPBasic->AcquireSuite && record->sSPBasic->ReleaseSuite;
}

/* A whole pick. */
static inline void pick(PickerRecord* record, intptr_t* data, int16_t* result) {
    char* const bytes = lockSlot(record, data);
    if (!bytes) {
        *result = hostMemFullErr;
        return;
    }
    bytes[999] = 1;
    answer(record);
    unlockSlot(record, data);
}

/* An entry whose picks are those of `doPick`. */
#define PICKER(doPick)                                                                                       \
    void PluginMain(int16_t selector, void* record, intptr_t* data, int16_t* result) {                       \
        if (selector == pickerSelectorPick) doPick(record, data, result);                                    \
    }

#endif
