/* What the host hands to a colour picker, and the picker's one entry. Plain C.
 *
 * The host loads the module, calls PluginMain on its main thread whenever a colour is wanted, and may unload
 * the module afterwards. The record and everything that it points to belong to the host and are good for the
 * length of the call. Any callback pointer may be null: test before use.
 *
 * Rationale: the records carry no packing; natural alignment gives the same layout on every 64-bit platform.
 */
#ifndef CHROMALOG_ABI_PICKER_RECORD_H
#define CHROMALOG_ABI_PICKER_RECORD_H

#include "abi/abi_assert.h"
#include "abi/basic_suite.h"
#include "abi/buffer_suite.h"
#include "abi/color_services.h"
#include "abi/handle_suite.h"
#include "abi/property_suite.h"
#include "abi/result_codes.h"
#include "abi/ui_hooks_suite.h"

#include <stddef.h>
#include <stdint.h>

/* The colour of the call, in and out. */
typedef struct PickParms {
    int16_t sourceSpace;         /* in: space of colorComponents as the host offers them */
    int16_t resultSpace;         /* out: space of the answer; this picker always answers RGB (0) */
    uint16_t colorComponents[4]; /* in and out: 0..65535 each */
    unsigned char* pickerPrompt; /* in: length byte, then the text; may be null */
} PickParms;

/* The host's monitor set-up as 16.16 fixed numbers. */
typedef struct PlugInMonitor {
    int32_t gamma, redX, redY, greenX, greenY, blueX, blueY, whiteX, whiteY, ambient;
} PlugInMonitor;

typedef struct PickerRecord {
    int32_t serialNumber; /* 0 */
    uint8_t (*abortProc)(void);
    void (*progressProc)(int32_t done, int32_t total);
    uint32_t hostSig; /* kHostSignature */
    void (*hostProc)(int16_t selector, intptr_t* data);
    BufferProcs* bufferProcs;
    void* resourceProcs;
    void (*processEvent)(void* event);
    DisplayPixelsProc displayPixels;
    HandleProcs* handleProcs;
    ColorServicesProc colorServices;
    void* imageServicesProcs;
    PropertyProcs* propertyProcs;
    void* channelPortProcs;
    void* descriptorParameters;
    unsigned char* errorString; /* room for a length byte and 255 characters; shown with errReportString */
    PlugInMonitor monitor;
    void* platformData; /* platform's window data; not used on macOS */
    char reserved[4];
    PickParms pickParms;
    SPBasicSuite* sSPBasic;
    void* plugInRef;
    char reservedBlock[252];
} PickerRecord;

/* The record of the about call: no callbacks but the basic suite. */
typedef struct AboutRecord {
    void* platformData;
    SPBasicSuite* sSPBasic;
    void* plugInRef;
    char reserved[244];
} AboutRecord;

enum {
    pickerSelectorAbout = 0, /* record is an AboutRecord */
    pickerSelectorPick = 1   /* record is a PickerRecord */
};

/* The one exported symbol of a picker module; the host finds it by this name.
 * data: a slot that the host keeps for the plug-in between calls, 0 before the first pick of a host run.
 * result: 0 where all went well, else a code of result_codes.h. */
#define kPluginMainSymbol "PluginMain"
typedef void (*PluginMainProc)(int16_t selector, void* record, intptr_t* data, int16_t* result);

CHROMALOG_ABI_ASSERT(offsetof(PickParms, resultSpace) == 2);
CHROMALOG_ABI_ASSERT(offsetof(PickParms, colorComponents) == 4);
CHROMALOG_ABI_ASSERT(offsetof(PickParms, pickerPrompt) == 16);
CHROMALOG_ABI_ASSERT(sizeof(PlugInMonitor) == 40);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, abortProc) == 8);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, hostSig) == 24);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, bufferProcs) == 40);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, handleProcs) == 72);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, colorServices) == 80);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, propertyProcs) == 96);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, errorString) == 120);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, monitor) == 128);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, platformData) == 168);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, reserved) == 176);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, pickParms) == 184);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, pickParms.colorComponents) == 188);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, sSPBasic) == 208);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, plugInRef) == 216);
CHROMALOG_ABI_ASSERT(offsetof(PickerRecord, reservedBlock) == 224);
CHROMALOG_ABI_ASSERT(sizeof(PickerRecord) == 480);
CHROMALOG_ABI_ASSERT(offsetof(AboutRecord, sSPBasic) == 8);
CHROMALOG_ABI_ASSERT(offsetof(AboutRecord, plugInRef) == 16);
CHROMALOG_ABI_ASSERT(sizeof(AboutRecord) == 272);

#endif
