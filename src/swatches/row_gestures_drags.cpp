#include "swatches/row_gestures.h"
#include "swatches/swatch_list_geometry.h"

#include <algorithm>
#include <cmath>

namespace chromalog {

namespace geometry = swatch_geometry;

void RowGestures::dragBegins() {
    keeps_ = false;
    const bool together = selection_.rows().size() > 1 && selection_.has(list_.getSelected());
    dragged_ = together ? selection_.rows() : std::vector<int>();
}

/// The rows that a drag carries together; null where it carries one swatch.
const std::vector<int>* RowGestures::draggedRows(const DragInfo& info) const {
    const RowGestures* from = info.source == &list_              ? this
                              : across && info.source == &other_ ? across
                                                                 : nullptr;
    return from && !from->dragged_.empty() ? &from->dragged_ : nullptr;
}

/// The nearer edge of the row under the pointer.
int RowGestures::gapAt(const DragInfo& info) const {
    const double row = (info.location.y - geometry::kMargin) / geometry::kRowPitch;
    return static_cast<int>(std::clamp(std::floor(row + 0.5), 0.0, static_cast<double>(list_.shownRows())));
}

/// Where the drop would put its swatches; nothing where it would put none there, or out of sight.
std::optional<int> RowGestures::gapOf(const DragInfo& info) const {
    if (draggedRows(info)) return gapAt(info);
    if (!info.pasteboard.colour) return std::nullopt;
    const int drop = std::max<int>(geometry::rowAtPoint(info.location), 0);
    const int own = list_.getSelected();
    if (info.source ==
        &list_) { // the list's own rule: the swatch comes to that row, and is lost below the last
        if (drop == own || drop >= list_.shownRows()) return std::nullopt;
        return drop > own ? drop + 1 : drop;
    }
    if (list_.refuses(*info.pasteboard.colour)) return std::nullopt;
    return std::min(drop, list_.shownRows());
}

void RowGestures::draggedOver(const DragInfo* info) {
    marks_.showGap(info ? gapOf(*info) : std::nullopt);
}

bool RowGestures::takesDrop(const DragInfo& info) {
    const std::vector<int>* dragged = draggedRows(info);
    if (!dragged) return false;
    const std::vector<int> rows = *dragged;
    const int count = static_cast<int>(rows.size()), gap = gapAt(info);
    std::optional<int> first;
    if (info.source == &list_)
        first = moveRowsTo(delegate_, list_, rows, gap);
    else if (chromalog::bringAcross(delegate_, other_, rows, list_, gap, Across::copy))
        first = gap;
    if (first) {
        selectTogether(*first, count);
        landed(*first, count);
    }
    return true;
}

void RowGestures::dropped(int row) {
    if (row >= 0 && row < list_.shownRows()) landed(row, 1);
}

} // namespace chromalog
