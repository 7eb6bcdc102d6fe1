/* Chooses a locale for the whole process. */
#include "picker.h"

#include <locale.h>

static void localPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    setlocale(LC_CTYPE, "C.UTF-8");
    pick(record, data, result);
}
PICKER(localPick)
