/* Exports its own functions. */
#include "picker.h"

__attribute__((visibility("default"))) void readColours(void);
void readColours(void) {}

PICKER(pick)
