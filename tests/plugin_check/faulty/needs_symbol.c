/* Cannot be loaded: nobody has what it needs. */
#include "picker.h"

void nobodyHasThis(void);

static void needingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    nobodyHasThis();
    pick(record, data, result);
}
PICKER(needingPick)
