/* Has the C library call it when the process ends, when it is no longer there. */
#include "picker.h"

#include <stdlib.h>

static void (*volatile later)(void);
static void tidyUp(void) {
    later = NULL;
}

/* Not this module's own atexit, which unloading calls. */
int __cxa_atexit(void (*function)(void*), void* argument, void* module);
static void tidyUpWith(void* unused) {
    (void)unused;
    tidyUp();
}

static void registeringPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    static int registered;
    if (!registered++) __cxa_atexit(tidyUpWith, NULL, NULL);
    pick(record, data, result);
}
PICKER(registeringPick)
