#include "swatches/row_gestures.h"

#include <algorithm>

namespace chromalog {
namespace {

bool isAlong(Key key) {
    return key == Key::up || key == Key::down || key == Key::home || key == Key::end || key == Key::pageUp ||
           key == Key::pageDown;
}

} // namespace

bool RowGestures::keyDown(const KeyEvent& event) {
    if (selectionKey(event)) return true;
    if (event.key == Key::rename) return rename(), true;
    if (selection_.empty()) return false;
    if (event.key == Key::deleteKey) return erase(), true;
    if (event.alt && (event.key == Key::up || event.key == Key::down))
        return moveBy(event.key == Key::up ? -1 : 1), true;
    if (isAlong(event.key)) selection_.clear(); // the list's own row moves on alone
    return false;
}

/// Keys that change what is selected together.
bool RowGestures::selectionKey(const KeyEvent& event) {
    if (event.key == Key::selectAll) return selectAll(), true;
    if (event.key == Key::escape && !selection_.empty()) {
        selection_.clear();
        list_.setNeedsDisplay();
        return true;
    }
    if (!event.control || !event.shift || list_.shownRows() == 0) return false;
    const int own = list_.getSelected();
    if (event.key == Key::up || event.key == Key::down)
        return extend(own + (event.key == Key::up ? -1 : 1)), true;
    if (event.key == Key::home || event.key == Key::end)
        return extend(event.key == Key::home ? 0 : list_.shownRows() - 1), true;
    return false;
}

/// The list's own row goes along, as by the arrows alone.
void RowGestures::extend(int row) {
    const int target = std::clamp(row, 0, list_.shownRows() - 1);
    selection_.extendTo(target, std::clamp<int>(list_.getSelected(), 0, list_.shownRows() - 1));
    list_.selectRow(static_cast<std::int16_t>(target));
    list_.scrollToShow(target);
}

void RowGestures::moveBy(int direction) {
    const std::vector<int> moved = selection_.rows();
    const int gap = direction < 0 ? moved.front() - 1 : moved.back() + 2;
    if (gap < 0 || gap > list_.shownRows()) return;
    const auto first = moveRowsTo(delegate_, list_, moved, gap);
    if (!first) return;
    selectTogether(*first, static_cast<int>(moved.size()));
    list_.scrollToShow(direction < 0 ? *first : *first + static_cast<int>(moved.size()) - 1);
}

} // namespace chromalog
