#include "history/undo_labels.h"
#include "swatches/limit_alert.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

#include <cmath>
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

void CSwatchList::contentsChanged() {
    setNeedsDisplay();
    announceChange();
}

void CSwatchList::mouseDown(const MouseEvent& event) {
    selectRow(geometry::rowAtPoint(event.location));
}

void CSwatchList::rightMouseDown(const MouseEvent& event) {
    selectcolor = geometry::rowAtPoint(event.location); // shown and made the first colour by neither: kept
    delegate_.menu(*this).popUp(*this, event.location);
}

bool CSwatchList::keyDown(const KeyEvent& event) {
    if (event.key == Key::deleteKey) {
        deleteEntry();
        return true;
    }
    const double clipHeight = superviewBounds().value_or(Rect{}).h;
    const int pageRows = std::max(1, static_cast<int>(clipHeight / geometry::kRowPitch));
    const auto row = rowForKey(event, selectcolor, shownRows(), pageRows);
    if (!row || shownRows() == 0) return false;
    selectByKey(std::clamp(*row, 0, shownRows() - 1));
    return true;
}

/// Selects as a click does and scrolls no further than it takes to show the row with its frame.
void CSwatchList::selectByKey(int row) {
    selectRow(static_cast<std::int16_t>(row));
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

void CSwatchList::deleteEntry() {
    if (selectcolor >= nfcocolors) return;
    delegate_.setUndoablePosition(undo_label::colorDeleted);
    deleteRecord(records(), nfcocolors, selectcolor);
    --nfcocolors;
    contentsChanged();
}

bool CSwatchList::addFcoColor(const Colour& colour, std::int16_t position) {
    if (nfcocolors >= kListCapacity) {
        delegate_.desktop().runAlert(limitAlert(nfcocolors + 1));
        return false;
    }
    const int place = insertGap(records(), nfcocolors, position);
    ++nfcocolors;
    if (FCOStruct* record = recordAt(records(), place)) storeColour(*record, colour);
    return true;
}

void CSwatchList::setColor(const Colour& colour, std::string_view name) {
    const StoredName stored(name);
    if (FCOStruct* record = recordAt(records(), selectcolor)) {
        overwriteColour(*record, colour);
        writeName(*record, stored);
    }
    contentsChanged();
}

} // namespace chromalog
