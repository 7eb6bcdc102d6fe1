/* The about call ends with an error. */
#include "picker.h"

void PluginMain(int16_t selector, void* record, intptr_t* data, int16_t* result) {
    if (selector == pickerSelectorPick)
        pick(record, data, result);
    else
        *result = hostParamErr;
}
