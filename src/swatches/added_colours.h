#pragma once

#include "swatches/swatch_list_view.h"

#include <span>
#include <string>
#include <string_view>

namespace chromalog {

/// A colour on its way into a list.
struct AddedColour {
    Colour colour;
    std::string name; ///< UTF-8; empty: its hex
};

/// Appends all of them by one step of undo under that label. The last one is selected and in view; the first
/// colour stays. False, the limit alert and no step where the list has no room for all of them; nothing where
/// there are none.
bool addColours(CSwatchListDelegate&, CSwatchList&, std::span<const AddedColour>, std::string_view labelKey);
/// The same with whole records, as they are. They must not stand in the list's own array.
bool addRecords(CSwatchListDelegate&, CSwatchList&, std::span<const FCOStruct>, std::string_view labelKey);

} // namespace chromalog
