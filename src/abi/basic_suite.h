/* The host's basic suite: the way to every other suite, and plain memory blocks. Plain C.
 *
 * Suites are tables of function pointers, found by name and version. An acquired suite stays valid until it
 * is released; every successful AcquireSuite wants one ReleaseSuite with the same name and version, and a
 * failed one wants none. */
#ifndef CHROMALOG_ABI_BASIC_SUITE_H
#define CHROMALOG_ABI_BASIC_SUITE_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

#define kSPBasicSuite "SP Basic Suite"
#define kSPBasicSuiteVersion 4

/* Errors of the basic suite; 0 is success. */
enum {
    kSPNoError = 0,
    kSPSuiteNotFoundError = 0x53214664, /* 'S!Fd' */
    kSPBadParameterError = 0x5061726D   /* 'Parm' */
};

typedef struct SPBasicSuite {
    /* *suite is set on success alone. */
    int32_t (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    int32_t (*ReleaseSuite)(const char* name, int32_t version);
    /* 1 where the two texts are equal. */
    int32_t (*IsEqual)(const char* token1, const char* token2);
    /* Blocks belong to the caller until FreeBlock; they do not move. A null block may be freed. */
    int32_t (*AllocateBlock)(size_t size, void** block);
    int32_t (*FreeBlock)(void* block);
    int32_t (*ReallocateBlock)(void* block, size_t newSize, void** newBlock);
    /* Stands in tables for what a host does not have; always an error. */
    int32_t (*Undefined)(void);
} SPBasicSuite;

CHROMALOG_ABI_ASSERT(offsetof(SPBasicSuite, ReleaseSuite) == 8);
CHROMALOG_ABI_ASSERT(offsetof(SPBasicSuite, AllocateBlock) == 24);
CHROMALOG_ABI_ASSERT(offsetof(SPBasicSuite, Undefined) == 48);
CHROMALOG_ABI_ASSERT(sizeof(SPBasicSuite) == 56);

#endif
