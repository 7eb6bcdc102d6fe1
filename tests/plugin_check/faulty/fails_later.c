/* Only the first pick of a host run is one: what it keeps of it says that it has run. */
#include "picker.h"

static void oncePick(PickerRecord* record, intptr_t* data, int16_t* result) {
    if (*data)
        *result = pickerBadParameters;
    else
        pick(record, data, result);
}
PICKER(oncePick)
