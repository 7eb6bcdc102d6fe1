/* Converts colours without a look whether the host does that. */
#include "picker.h"

static void convertingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    ColorServicesInfo info = {.infoSize = sizeof info,
                              .selector = plugIncolorServicesConvertColor,
                              .sourceSpace = record->pickParms.sourceSpace};
    record->colorServices(&info);
    pick(record, data, result);
}
PICKER(convertingPick)
