/* The about call takes its record for a picker's, which is longer. */
#include "picker.h"

void PluginMain(int16_t selector, void* record, intptr_t* data, int16_t* result) {
    if (selector == pickerSelectorPick)
        pick(record, data, result);
    else
        answer(record);
}
