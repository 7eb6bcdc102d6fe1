/* Takes the record for one that is packed to four bytes. */
#include "picker.h"

enum { kPackedComponents = 176 };

static void packedPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    (void)data, (void)result;
    uint16_t* const components = (uint16_t*)((char*)record + kPackedComponents);
    for (int i = 0; i < 3; ++i)
        components[i] = (uint16_t)(65535 - components[i]);
}
PICKER(packedPick)
