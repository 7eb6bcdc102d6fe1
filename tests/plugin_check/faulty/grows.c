/* Keeps 10 kB of each pick. */
#include "picker.h"

#include <stdlib.h>

static struct Kept {
    struct Kept* next;
    char bytes[10000];
} * kept;

static void growingPick(PickerRecord* record, intptr_t* data, int16_t* result) {
    struct Kept* const more = calloc(1, sizeof *more);
    if (more) more->next = kept;
    if (more) kept = more;
    pick(record, data, result);
}

__attribute__((destructor)) static void forget(void) {
    for (struct Kept* next; kept; kept = next) {
        next = kept->next;
        free(kept);
    }
}

PICKER(growingPick)
