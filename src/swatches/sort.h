#pragma once

#include "record/list_store.h"

namespace chromalog {

/// Both sort in place, ascending; equal keys keep their order.
void sortByName(ListRecords shown); ///< zero-terminated names, compared as unsigned bytes
void sortByHue(ListRecords shown);  ///< greys have hue 0 and come first

/// The sort key: hue 0..1 of the stored channels, each of which passes through single precision.
float hueOf(const FCOStruct&);

} // namespace chromalog
