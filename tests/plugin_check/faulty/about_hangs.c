/* The about call never returns. */
#include "picker.h"

#include <unistd.h>

void PluginMain(int16_t selector, void* record, intptr_t* data, int16_t* result) {
    if (selector == pickerSelectorPick)
        pick(record, data, result);
    else
        while (1)
            pause();
}
