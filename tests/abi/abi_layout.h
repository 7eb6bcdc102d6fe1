/* The layout of every record as a list of numbers, made by whichever language includes this file. */
#ifndef CHROMALOG_TESTS_ABI_LAYOUT_H
#define CHROMALOG_TESTS_ABI_LAYOUT_H

#include "abi/picker_record.h"
#include "abi/standalone_suite.h"

static inline size_t abiLayout(size_t* values, size_t room) {
    const size_t layout[] = {offsetof(PickerRecord, serialNumber),
                             offsetof(PickerRecord, abortProc),
                             offsetof(PickerRecord, progressProc),
                             offsetof(PickerRecord, hostSig),
                             offsetof(PickerRecord, hostProc),
                             offsetof(PickerRecord, bufferProcs),
                             offsetof(PickerRecord, resourceProcs),
                             offsetof(PickerRecord, processEvent),
                             offsetof(PickerRecord, displayPixels),
                             offsetof(PickerRecord, handleProcs),
                             offsetof(PickerRecord, colorServices),
                             offsetof(PickerRecord, imageServicesProcs),
                             offsetof(PickerRecord, propertyProcs),
                             offsetof(PickerRecord, channelPortProcs),
                             offsetof(PickerRecord, descriptorParameters),
                             offsetof(PickerRecord, errorString),
                             offsetof(PickerRecord, monitor),
                             offsetof(PickerRecord, platformData),
                             offsetof(PickerRecord, reserved),
                             offsetof(PickerRecord, pickParms),
                             offsetof(PickerRecord, sSPBasic),
                             offsetof(PickerRecord, plugInRef),
                             offsetof(PickerRecord, reservedBlock),
                             sizeof(PickerRecord),
                             sizeof(PickParms),
                             sizeof(AboutRecord),
                             sizeof(ColorServicesInfo),
                             sizeof(HandleProcs),
                             sizeof(PropertyProcs),
                             sizeof(BufferProcs),
                             sizeof(PSBufferSuite1),
                             sizeof(PSBufferSuite2),
                             sizeof(SPBasicSuite),
                             sizeof(PSUIHooksSuite),
                             sizeof(StandaloneSuite),
                             sizeof(StandaloneSuite2),
                             sizeof(StandaloneSuite3)};
    const size_t count = sizeof layout / sizeof layout[0];
    for (size_t i = 0; i < count && i < room; ++i)
        values[i] = layout[i];
    return count;
}

#endif
