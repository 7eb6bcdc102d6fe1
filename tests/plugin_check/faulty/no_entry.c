/* The entry has another name. */
#define PluginMain PickerMain
#include "picker.h"

PICKER(pick)
