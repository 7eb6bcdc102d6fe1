#pragma once

#include "desktop/menu_item.h"
#include "swatches/row_gestures.h"

#include <functional>

namespace chromalog {

/// What a list's context menu offers beside its own items. `otherNumber` is the other list's, for people.
MenuItems rowItems(RowGestures&, const CSwatchList&, int otherNumber, std::function<Colour()> secondColour);

/// The files that were loaded last, for the menus of the buttons that load: `take` gets the chosen one.
MenuItems recentFileItems(FileMemory&, std::function<void(const std::string&)> take);

} // namespace chromalog
