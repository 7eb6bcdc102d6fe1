/* Opens a file in each pick. */
#include "picker.h"

#include <fcntl.h>

static void openingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    (void)!open("/dev/null", O_RDONLY);
    pick(record, data, result);
}
PICKER(openingPick)
