/* The host's property callbacks: facts about the host and its documents, by signature and key. Plain C. */
#ifndef CHROMALOG_ABI_PROPERTY_SUITE_H
#define CHROMALOG_ABI_PROPERTY_SUITE_H

#include "abi/abi_assert.h"
#include "abi/handle_suite.h"

#include <stddef.h>
#include <stdint.h>

enum {
    kHostSignature = 0x3842494D, /* '8BIM' */
    propHostVersion = 0x76657273 /* 'vers': (major << 16) | (minor << 8) | fix */
};

typedef struct PropertyProcs {
    int16_t propertyProcsVersion; /* 1 */
    int16_t numPropertyProcs;     /* 2 */

    /* A simple property goes to *simple (pointer-sized), a complex one to *complex as a new handle that the
     * caller disposes of. Either pointer may be null where the caller wants the other kind only.
     * errPlugInPropertyUndefined for a key that the host does not have. */
    int16_t (*getPropertyProc)(uint32_t signature, uint32_t key, int32_t index, intptr_t* simple,
                               Handle* complex);
    int16_t (*setPropertyProc)(uint32_t signature, uint32_t key, int32_t index, intptr_t simple,
                               Handle complex);
} PropertyProcs;

CHROMALOG_ABI_ASSERT(offsetof(PropertyProcs, getPropertyProc) == 8);
CHROMALOG_ABI_ASSERT(offsetof(PropertyProcs, setPropertyProc) == 16);
CHROMALOG_ABI_ASSERT(sizeof(PropertyProcs) == 24);

#endif
