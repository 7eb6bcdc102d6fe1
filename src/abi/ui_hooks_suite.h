/* The host's user-interface hooks, acquired through the basic suite. Plain C.
 * Versions 1 to 4 are prefixes of one another, so that one struct serves them all: a field is there from the
 * version in its comment on. */
#ifndef CHROMALOG_ABI_UI_HOOKS_SUITE_H
#define CHROMALOG_ABI_UI_HOOKS_SUITE_H

#include "abi/abi_assert.h"

#include <stddef.h>
#include <stdint.h>

#define kPSUIHooksSuite "Photoshop UIHooks Suite for Plug-ins"
#define kPSUIHooksSuiteVersion1 1
#define kPSUIHooksSuiteVersion4 4

typedef struct ASZStringOpaque* ASZString; /* a text that the host owns */

/* Draws a pixel map in the host's window; its arguments do not matter to a picker. */
typedef int16_t (*DisplayPixelsProc)(const void* source, const void* sourceRect, int32_t row, int32_t column,
                                     void* platformContext);

typedef struct PSUIHooksSuite {
    void (*processEvent)(void* event);
    DisplayPixelsProc displayPixels;
    void (*progressBar)(int32_t done, int32_t total);
    uint8_t (*testAbort)(void); /* 1 where the user asked to stop */
    /* The host's main window as the platform's own window identifier; 0 where there is none (always on
     * macOS). */
    intptr_t (*MainAppWindow)(void);
    int32_t (*SetCursor)(const char* name);
    uint32_t (*TickCount)(void); /* sixtieths of a second */
    int32_t (*GetPluginName)(void* pluginRef, ASZString* name);
    int32_t (*SetPluginMenuEntry)(void* pluginRef, ASZString name, uint32_t eventID); /* version 2 */
    int32_t (*GetLocalizedFileName)(ASZString fileName, ASZString* localized);        /* version 3 */
    intptr_t (*MainAppRootWindow)(void);                                              /* version 4 */
} PSUIHooksSuite;

CHROMALOG_ABI_ASSERT(offsetof(PSUIHooksSuite, MainAppWindow) == 32);
CHROMALOG_ABI_ASSERT(offsetof(PSUIHooksSuite, GetPluginName) == 56);
CHROMALOG_ABI_ASSERT(offsetof(PSUIHooksSuite, SetPluginMenuEntry) == 64);
CHROMALOG_ABI_ASSERT(offsetof(PSUIHooksSuite, MainAppRootWindow) == 80);
CHROMALOG_ABI_ASSERT(sizeof(PSUIHooksSuite) == 88);

#endif
