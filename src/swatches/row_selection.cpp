#include "swatches/row_selection.h"

#include <algorithm>
#include <numeric>

namespace chromalog {

bool RowSelection::has(int row) const {
    return std::ranges::binary_search(rows_, row);
}

void RowSelection::clear() {
    rows_.clear();
    anchor_ = -1;
}

void RowSelection::set(std::vector<int> rising) {
    rows_ = std::move(rising);
    anchor_ = rows_.empty() ? -1 : rows_.front();
}

void RowSelection::setAll(int count) {
    rows_.resize(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(rows_.begin(), rows_.end(), 0);
    anchor_ = 0;
}

void RowSelection::toggle(int row, int selected) {
    if (rows_.empty() && selected >= 0 && selected != row) rows_.push_back(selected);
    const auto place = std::ranges::lower_bound(rows_, row);
    if (place != rows_.end() && *place == row)
        rows_.erase(place);
    else
        rows_.insert(place, row);
    anchor_ = row;
}

void RowSelection::extendTo(int row, int selected) {
    if (anchor_ < 0) anchor_ = std::max(selected, 0);
    const auto [first, last] = std::minmax(anchor_, row);
    rows_.resize(static_cast<std::size_t>(last - first) + 1);
    std::iota(rows_.begin(), rows_.end(), first);
}

} // namespace chromalog
