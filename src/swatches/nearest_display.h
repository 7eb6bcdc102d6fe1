#pragma once

#include "colour/value_fields.h"
#include "desktop/form.h"
#include "swatches/swatch_list_view.h"

#include <vector>

namespace chromalog {

/// The swatch of list 1 that is nearest to the second working colour, with its values, name and closeness. It
/// follows the second colour alone, not the list.
class NearestDisplay {
  public:
    Outlet<ColorWell> nearColor;
    ValueFields near; ///< nearR .. nearK
    Outlet<TextField> nearName;
    Outlet<LevelIndicator> baterieSwatch; ///< closeness, unclamped

    std::vector<OutletEntry> table();

    /// An empty list shows its record 0, whatever that holds.
    void getNearFco(const CSwatchList& swatch1, const Colour& secondColor, ColorServicesProc);
};

} // namespace chromalog
