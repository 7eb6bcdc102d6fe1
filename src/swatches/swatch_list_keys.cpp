#include "history/undo_labels.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

#include <algorithm>
#include <optional>

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

/// The row that a key leads to, not clamped to the list; nothing where the key selects none.
std::optional<int> rowForKey(const KeyEvent& event, int selected, int count, int pageRows) {
    const int step = event.shift ? 10 : 1;
    switch (event.key) {
    case Key::up:
        return selected - step;
    case Key::down:
        return selected + step;
    case Key::pageUp:
        return selected - pageRows;
    case Key::pageDown:
        return selected + pageRows;
    case Key::home:
        return 0;
    case Key::end:
        return count - 1;
    default:
        return std::nullopt;
    }
}

} // namespace

bool CSwatchList::keyDown(const KeyEvent& event) {
    if (extras().keyDown(event)) return true;
    if (event.key == Key::deleteKey) {
        deleteEntry();
        return true;
    }
    if (event.key == Key::enter) { // also of an empty list: Return in a list never presses OK
        delegate_.useAsFirstColor(*this, selectcolor);
        return true;
    }
    if (event.alt && (event.key == Key::up || event.key == Key::down)) {
        moveSelected(event.key == Key::up ? -1 : 1);
        return true;
    }
    const double clipHeight = superviewBounds().value_or(Rect{}).h;
    const int pageRows = std::max(1, static_cast<int>(clipHeight / geometry::kRowPitch));
    const auto row = rowForKey(event, selectcolor, shownRows(), pageRows);
    if (!row || shownRows() == 0) return false;
    const int target = std::clamp(*row, 0, shownRows() - 1);
    selectRow(static_cast<std::int16_t>(target));
    scrollToShow(target);
    return true;
}

/// The selection goes along; the first colour stays. Nothing at the list's ends.
void CSwatchList::moveSelected(int rows) {
    const int target = selectcolor + rows;
    if (selectcolor < 0 || selectcolor >= shownRows() || target < 0 || target >= shownRows()) return;
    delegate_.setUndoablePosition(undo_label::colorMoved);
    moveRecord(recordsToChange(), selectcolor, target);
    selectcolor = static_cast<std::int16_t>(target);
    contentsChanged();
    scrollToShow(target);
}

void CSwatchList::scrollToShow(int row) {
    const std::optional<Rect> clip = superviewBounds();
    if (!clip) return;
    ScrollView& scroller = delegate_.scroller(*this);
    const double top = geometry::kRowPitch * row;
    const double bottom = top + geometry::kRowPitch + geometry::kMargin;
    const double offset = scroller.verticalScroller() * std::max(0.0, frame().h - clip->h);
    if (top < offset)
        scroller.scrollToPoint({bounds().x, top});
    else if (bottom > offset + clip->h)
        scroller.scrollToPoint({bounds().x, bottom - clip->h});
}

} // namespace chromalog
