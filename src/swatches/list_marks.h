#pragma once

#include "desktop/desktop.h"
#include "swatches/row_selection.h"
#include "swatches/swatch_list_view.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace chromalog {

/// What a comparison tells of a row.
enum class RowSign : std::uint8_t {
    none,
    onlyHere, ///< a lozenge
    inBoth,   ///< two bars
    goes,     ///< a cross
};

/// What stands over a list on the screen alone: bars beside rows that are selected together, the line where a
/// drag would put its swatches, frames around those that landed, points beside the hits of a search, signs of
/// a comparison.
class ListMarks {
  public:
    ListMarks(CSwatchList& list, Desktop& desktop) : list_(list), desktop_(desktop) {}

    void draw(Canvas&, const RowSelection&, const std::function<bool(const FCOStruct&)>& isHit) const;

    void showGap(std::optional<int> gap); ///< the line above that row, or none
    std::optional<int> gap() const { return gap_; }
    /// For a while; they fade where the desktop lets marks fade.
    void showLanded(std::vector<int> rows);
    const std::vector<int>& landed() const { return landed_; }
    /// One a row from the first on; rows past the last have none.
    void showSigns(std::vector<RowSign>);
    const std::vector<RowSign>& signs() const { return signs_; }

  private:
    void fade();
    void drawSigns(Canvas&) const;
    void drawHits(Canvas&, const std::function<bool(const FCOStruct&)>& isHit) const;

    CSwatchList& list_;
    Desktop& desktop_;
    std::optional<int> gap_;
    std::vector<int> landed_; ///< in rising order
    std::vector<RowSign> signs_;
    double strength_ = 0; ///< 1 at first, down to 0
    std::unique_ptr<Timer> fading_;
};

} // namespace chromalog
