/* Linked so that it never leaves the process. */
#include "picker.h"

PICKER(pick)
