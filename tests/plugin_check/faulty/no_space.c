/* Does not say which space its answer is in. */
#include "picker.h"

static void spacelessPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    pick(record, data, result);
    if (*result == hostNoErr) record->pickParms.resultSpace = plugIncolorServicesChosenSpace;
}
PICKER(spacelessPick)
