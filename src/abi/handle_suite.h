/* The host's handle procedures: moveable memory that the host owns. Plain C.
 *
 * A handle is a pointer to a master pointer. The block may move or be purged from sight whenever it is not
 * locked, so an address is good from lockProc to the matching unlockProc and not a moment longer.
 * Locks nest: every lockProc wants one unlockProc. */
#ifndef CHROMALOG_ABI_HANDLE_SUITE_H
#define CHROMALOG_ABI_HANDLE_SUITE_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

typedef char** Handle;

typedef struct HandleProcs {
    int16_t handleProcsVersion; /* 1 */
    int16_t numHandleProcs;     /* 8: pointers present; test the count before a pointer near the end */

    /* A new block of size bytes, contents undefined, not locked. Null where there is no memory. */
    Handle (*newProc)(int32_t size);
    /* Gives the block back. Every address and the handle itself are void afterwards. */
    void (*disposeProc)(Handle handle);
    int32_t (*getSizeProc)(Handle handle);
    /* 0, or a negative code and the block as it was. The block must not be locked. */
    int16_t (*setSizeProc)(Handle handle, int32_t newSize);
    /* Pins the block and returns its address, null where that failed (then there is nothing to unlock).
     * moveHigh: 1 lets the host first move the block out of the way of others. */
    char* (*lockProc)(Handle handle, uint8_t moveHigh);
    void (*unlockProc)(Handle handle);
    /* Tells the host that size bytes of its memory were made free by other means. */
    void (*recoverSpaceProc)(int32_t size);
    /* Disposes of a handle that came from the system rather than from newProc. */
    void (*disposeRegularHandleProc)(Handle handle);
} HandleProcs;

CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, numHandleProcs) == 2);
CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, newProc) == 8);
CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, disposeProc) == 16);
CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, lockProc) == 40);
CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, unlockProc) == 48);
CHROMALOG_ABI_ASSERT(offsetof(HandleProcs, disposeRegularHandleProc) == 64);
CHROMALOG_ABI_ASSERT(sizeof(HandleProcs) == 72);

#endif
