/* Calls the host from a thread of its own. */
#include "picker.h"

#include <pthread.h>

static void* compare(void* record) {
    SPBasicSuite* const basic = ((PickerRecord*)record)->sSPBasic;
    if (basic && basic->IsEqual) basic->IsEqual("one", "other");
    return NULL;
}

static void threadedPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pthread_t thread;
    if (pthread_create(&thread, NULL, compare, record) == 0) pthread_join(thread, NULL);
    pick(record, data, result);
}
PICKER(threadedPick)
