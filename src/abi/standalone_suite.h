/* The stand-alone host's own suite, acquired through the basic suite by name and version. Plain C.
 * Any other host answers that it does not exist; all that hangs on it is then off. */
#ifndef CHROMALOG_ABI_STANDALONE_SUITE_H
#define CHROMALOG_ABI_STANDALONE_SUITE_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

#define kStandaloneSuite "Chromalog Stand-alone Suite"
#define kStandaloneSuiteVersion 1
#define kStandaloneSuiteVersion2 2
#define kStandaloneSuiteVersion3 3

/* Texts belong to the host and stay valid until it ends. Keys and names must not be null. */
typedef struct StandaloneSuite {
    /* The text of a command-line option, by its long name without dashes ("drive", "data-dir"); "1" for a
     * flag that was given ("accept"). Null where the option was not given or does not exist. */
    const char* (*option)(const char* key);
    /* How often the plug-in has called something since the host started: a callback by its field's name
     * ("newProc", "lockProc", "unlockProc", "disposeProc", "getPropertyProc", "colorServices",
     * "AcquireSuite", "ReleaseSuite", "New", "Dispose", ...). 0 for a name that does not exist. */
    int32_t (*callCount)(const char* name);
    /* The plug-in's mistakes that the host has seen so far, as one line of text each; null out of range.
     * What is found at the end of a call (a lock without unlock) is not among them while the call runs. */
    int32_t (*misuseCount)(void);
    const char* (*misuse)(int32_t index);
    /* Asks the host to start no further pick after this one and to end with this exit code. */
    void (*endWith)(int32_t exitCode);
} StandaloneSuite;

/* Version 2 begins with all of version 1. A host that offers it keeps the plug-in's module loaded from the
 * first call of its entry to the end of the run. */
typedef struct StandaloneSuite2 {
    StandaloneSuite version1;
    /* What the plug-in keeps from one call to the next beside its slot, it puts away in this function. The
     * host calls it once, on its main thread, after the last call of the entry and before it unloads the
     * module; a function that is given again still counts once. It may not call the host. */
    void (*atEnd)(void (*putAway)(void));
} StandaloneSuite2;

/* Version 3 begins with all of version 2. Where the option "pick" is given, a pick shows no dialog: the
 * person takes colours from the screen, the offered colour stays, and the result is hostNoErr,
 * hostUserCanceledErr, or errReportString with the reason why none can be taken. */
typedef struct StandaloneSuite3 {
    StandaloneSuite2 version2;
    /* A colour that was taken, in 16-bit RGB; called for each, in order. */
    void (*taken)(uint16_t red, uint16_t green, uint16_t blue);
} StandaloneSuite3;

CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite, callCount) == 8);
CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite, misuseCount) == 16);
CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite, misuse) == 24);
CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite, endWith) == 32);
CHROMALOG_ABI_ASSERT(sizeof(StandaloneSuite) == 40);
CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite2, atEnd) == 40);
CHROMALOG_ABI_ASSERT(sizeof(StandaloneSuite2) == 48);
CHROMALOG_ABI_ASSERT(offsetof(StandaloneSuite3, taken) == 48);
CHROMALOG_ABI_ASSERT(sizeof(StandaloneSuite3) == 56);

#endif
