#include "swatches/row_gestures.h"

#include "record/name_text.h"
#include "swatches/swatch_list_geometry.h"

#include <algorithm>
#include <numeric>

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

constexpr int kLongestName = 255;

std::vector<int> allRows(int count) {
    std::vector<int> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

/// Where the name stands, a little wider.
Rect nameRect(const Rect& bounds, int row) {
    const double left = geometry::kMargin + geometry::kPatchWidth + 1;
    return {bounds.x + left, bounds.y + geometry::kRowPitch * row + 2, bounds.w - left - 1, 22};
}

} // namespace

std::vector<int> RowGestures::rows() const {
    if (!selection_.empty()) return selection_.rows();
    const int own = list_.getSelected();
    return own >= 0 && own < list_.shownRows() ? std::vector<int>{own} : std::vector<int>();
}

void RowGestures::pressed(const MouseEvent& event, int before) {
    const int row = list_.getSelected();
    const bool inside = row >= 0 && row < list_.shownRows();
    keeps_ = false;
    if (event.shift && list_.shownRows() > 0)
        selection_.extendTo(std::clamp(row, 0, list_.shownRows() - 1), before);
    else if (event.control && inside)
        selection_.toggle(row, before < list_.shownRows() ? before : -1);
    else if (!event.control && selection_.has(row))
        keeps_ = true;
    else
        selection_.clear();
}

void RowGestures::released(const MouseEvent& event) {
    if (keeps_) {
        selection_.clear();
        list_.setNeedsDisplay();
    }
    keeps_ = false;
    if (event.second && !event.shift && !event.control) rename();
}

void RowGestures::menuOpens() {
    if (!selection_.has(list_.getSelected())) selection_.clear();
}

void RowGestures::selectAll() {
    if (list_.shownRows() > 0) selection_.setAll(list_.shownRows());
    list_.setNeedsDisplay();
}

void RowGestures::erase() {
    const std::vector<int> gone = rows();
    eraseRows(delegate_, list_, gone);
    if (!gone.empty()) list_.setSelectedColor(static_cast<std::int16_t>(gone.front()));
}

void RowGestures::selectTogether(int first, int count) {
    std::vector<int> rows = allRows(count);
    for (int& row : rows)
        row += first;
    list_.setSelectedColor(static_cast<std::int16_t>(first));
    if (count > 1)
        selection_.set(std::move(rows));
    else
        selection_.clear();
}

void RowGestures::landed(int first, int count) {
    std::vector<int> rows = allRows(count);
    for (int& row : rows)
        row += first;
    marks_.showLanded(std::move(rows));
}

void RowGestures::bringAcross(Across way) {
    const std::vector<int> brought = rows();
    const int below = other_.getSelected() + 1;
    const int gap = std::clamp(below, 0, other_.shownRows());
    if (!across || !chromalog::bringAcross(delegate_, list_, brought, other_, gap, way)) return;
    across->selectTogether(gap, static_cast<int>(brought.size()));
    across->landed(gap, static_cast<int>(brought.size()));
    other_.scrollToShow(gap);
    if (way == Across::move) list_.setSelectedColor(static_cast<std::int16_t>(brought.front()));
}

void RowGestures::sort(SortKey key, const Colour& reference) {
    const std::vector<int> together = selection_.rows();
    const bool some = together.size() > 1;
    sortRows(delegate_, list_, some ? together : allRows(list_.shownRows()), key, reference);
    selection_.set(some ? together : std::vector<int>()); // the same places, now in order
}

void RowGestures::rename() {
    const int row = list_.getSelected();
    const FCOStruct* record = row < list_.shownRows() ? recordAt(list_.records(), row) : nullptr;
    if (!record) return;
    list_.scrollToShow(row);
    list_.editText({nameRect(list_.bounds(), row), macRomanToUtf8(nameBytes(*record)), kLongestName, keptName,
                    [this, row](const std::string& text) { renameRow(delegate_, list_, row, text); }});
}

void RowGestures::contentsChanged() {
    list_.dropTextEdit(); // its row may hold another swatch now
    selection_.clear();
    marks_.showGap(std::nullopt);
}

} // namespace chromalog
