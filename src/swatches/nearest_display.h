#pragma once

#include "colour/value_fields.h"
#include "desktop/form.h"
#include "swatches/swatch_list_view.h"

#include <cstdint>
#include <vector>

namespace chromalog {

/// The swatch of list 1 that is nearest to the second working colour, with its values, name and closeness. It
/// follows the second colour alone, not the list: once that has changed, what was computed is dimmed until it
/// is computed anew.
class NearestDisplay {
  public:
    Outlet<ColorWell> nearColor;
    ValueFields near; ///< nearR .. nearK
    Outlet<TextField> nearName;
    Outlet<LevelIndicator> baterieSwatch; ///< closeness, unclamped
    Outlet<TextField> nearNone;           ///< shows while the list is empty

    std::vector<OutletEntry> table();

    /// An empty list shows its record 0, whatever that holds.
    void getNearFco(const CSwatchList& swatch1, const Colour& secondColor, ColorServicesProc);

    void follow(const CSwatchList& swatch1); ///< after the list may have changed

  private:
    void showAge(const CSwatchList& swatch1);

    std::uint64_t list_ = 0, computedFrom_ = 0; ///< marks: of the list, of that which the readout shows
};

} // namespace chromalog
