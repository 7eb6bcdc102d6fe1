/* Starts a thread in each pick that waits for ever. */
#include "picker.h"

#include <pthread.h>
#include <unistd.h>

/* Nothing of this module's: it may be gone before the thread has begun. */
static void* (*const waitForEver)(void*) = (void* (*)(void*))(void (*)(void))pause;

static void startingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pthread_t thread;
    pthread_create(&thread, NULL, waitForEver, NULL);
    pick(record, data, result);
}
PICKER(startingPick)
