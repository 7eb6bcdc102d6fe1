/* Takes a signal for itself. */
#include "picker.h"

#include <signal.h>

static void handlingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    signal(SIGUSR1, SIG_IGN);
    pick(record, data, result);
}
PICKER(handlingPick)
