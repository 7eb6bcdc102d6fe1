#pragma once

#include "desktop/desktop.h"
#include "swatches/row_selection.h"
#include "swatches/swatch_list_view.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace chromalog {

/// What stands over a list on the screen alone: bars beside rows that are selected together, the line where a
/// drag would put its swatches, frames around those that landed, points beside the hits of a search.
class ListMarks {
  public:
    ListMarks(CSwatchList& list, Desktop& desktop) : list_(list), desktop_(desktop) {}

    void draw(Canvas&, const RowSelection&, const std::function<bool(const FCOStruct&)>& isHit) const;

    void showGap(std::optional<int> gap); ///< the line above that row, or none
    std::optional<int> gap() const { return gap_; }
    /// For a while; they fade where the desktop lets marks fade.
    void showLanded(std::vector<int> rows);
    const std::vector<int>& landed() const { return landed_; }

  private:
    void fade();
    void drawHits(Canvas&, const std::function<bool(const FCOStruct&)>& isHit) const;

    CSwatchList& list_;
    Desktop& desktop_;
    std::optional<int> gap_;
    std::vector<int> landed_; ///< in rising order
    double strength_ = 0;     ///< 1 at first, down to 0
    std::unique_ptr<Timer> fading_;
};

} // namespace chromalog
