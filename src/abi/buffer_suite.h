/* Scratch memory of the host: the older callbacks in the picker's record, and the buffer suite that is
 * acquired through the basic suite. Plain C. */
#ifndef CHROMALOG_ABI_BUFFER_SUITE_H
#define CHROMALOG_ABI_BUFFER_SUITE_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

typedef struct BufferOpaque* BufferID;

/* PickerRecord.bufferProcs. A buffer is locked before use, unlocked after it and freed once. */
typedef struct BufferProcs {
    int16_t bufferProcsVersion; /* 2 */
    int16_t numBufferProcs;     /* 5, or 8 where the last three are there */

    int16_t (*allocateProc)(int32_t size, BufferID* buffer);
    char* (*lockProc)(BufferID buffer, uint8_t moveHigh);
    void (*unlockProc)(BufferID buffer);
    void (*freeProc)(BufferID buffer);
    int32_t (*spaceProc)(void); /* bytes that could be allocated */
    int16_t (*reserveProc)(int32_t size);
    int16_t (*allocateProc64)(int64_t size, BufferID* buffer);
    int64_t (*spaceProc64)(void);
} BufferProcs;

CHROMALOG_ABI_ASSERT(offsetof(BufferProcs, allocateProc) == 8);
CHROMALOG_ABI_ASSERT(offsetof(BufferProcs, spaceProc) == 40);
CHROMALOG_ABI_ASSERT(offsetof(BufferProcs, spaceProc64) == 64);
CHROMALOG_ABI_ASSERT(sizeof(BufferProcs) == 72);

#define kPSBufferSuite "Photoshop Buffer Suite for Plug-ins"
#define kPSBufferSuiteVersion1 1
#define kPSBufferSuiteVersion2 2

typedef struct PSBufferSuite1 {
    /* A block of *requestedSize bytes, or of what the host can spare but at least minimumSize; *requestedSize
     * is set to what was got. A null requestedSize asks for exactly minimumSize. Null where there is no
     * memory. The block does not move and belongs to the caller until Dispose. */
    char* (*New)(uint32_t* requestedSize, uint32_t minimumSize);
    /* Frees *buffer and sets it to null. */
    void (*Dispose)(char** buffer);
    uint32_t (*GetSize)(char* buffer);
    uint32_t (*GetSpace)(void);
} PSBufferSuite1;

/* Version 2 begins with version 1. */
typedef struct PSBufferSuite2 {
    char* (*New)(uint32_t* requestedSize, uint32_t minimumSize);
    void (*Dispose)(char** buffer);
    uint32_t (*GetSize)(char* buffer);
    uint32_t (*GetSpace)(void);
    char* (*New64)(uint64_t* requestedSize, uint64_t minimumSize);
    uint64_t (*GetSize64)(char* buffer);
    uint64_t (*GetSpace64)(void);
} PSBufferSuite2;

CHROMALOG_ABI_ASSERT(offsetof(PSBufferSuite1, Dispose) == 8);
CHROMALOG_ABI_ASSERT(sizeof(PSBufferSuite1) == 32);
CHROMALOG_ABI_ASSERT(offsetof(PSBufferSuite2, GetSpace) == offsetof(PSBufferSuite1, GetSpace));
CHROMALOG_ABI_ASSERT(offsetof(PSBufferSuite2, New64) == 32);
CHROMALOG_ABI_ASSERT(sizeof(PSBufferSuite2) == 56);

#endif
