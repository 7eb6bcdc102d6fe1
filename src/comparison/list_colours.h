#pragma once

#include "record/list_store.h"
#include "spaces/lab.h"
#include "swatches/shown_colour.h"

#include <vector>

namespace chromalog {

/// A list's swatches as everything here compares them: the RGB that their patches show, read as sRGB. What
/// space a swatch was stored in, and how it was converted, no longer counts.
inline std::vector<Lab> labsOf(ConstListRecords shown) {
    std::vector<Lab> labs;
    labs.reserve(shown.size());
    for (const FCOStruct& record : shown)
        labs.push_back(labOf(rgbOf(shownColour(record))));
    return labs;
}

} // namespace chromalog
