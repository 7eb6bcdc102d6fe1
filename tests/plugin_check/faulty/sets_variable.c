/* Sets a variable of the environment. */
#include "picker.h"

#include <stdlib.h>

static void settingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    setenv("FAULTY_PICKER", "1", 1);
    pick(record, data, result);
}
PICKER(settingPick)
