#include "history/undo_labels.h"
#include "swatches/limit_alert.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

#include <memory>
#include <optional>

namespace chromalog {

namespace geometry = swatch_geometry;

void CSwatchList::contentsChanged() {
    setNeedsDisplay();
    announceChange();
    delegate_.contentsChanged(*this);
    extras().contentsChanged();
}

void CSwatchList::mouseDown(const MouseEvent& event) {
    const int before = selectcolor;
    selectRow(geometry::rowAtPoint(event.location));
    extras().pressed(event, before);
}

void CSwatchList::rightMouseDown(const MouseEvent& event) {
    selectcolor = geometry::rowAtPoint(event.location); // and not made the first colour: kept
    extras().menuOpens();
    markMenuRow(selectcolor);
    const auto unmark = [this](CSwatchList*) { markMenuRow(std::nullopt); };
    const std::unique_ptr<CSwatchList, decltype(unmark)> whileOpen(this, unmark);
    delegate_.menu(*this).popUp(*this, event.location);
}

void CSwatchList::markMenuRow(std::optional<int> row) {
    menuRow_ = row;
    setNeedsDisplay();
}

void CSwatchList::deleteEntry() {
    if (selectcolor >= nfcocolors) return;
    delegate_.setUndoablePosition(undo_label::colorDeleted);
    deleteRecord(recordsToChange(), nfcocolors, selectcolor);
    --nfcocolors;
    contentsChanged();
}

bool CSwatchList::addFcoColor(const Colour& colour, std::int16_t position) {
    if (nfcocolors >= kListCapacity) {
        delegate_.desktop().runAlert(limitAlert(nfcocolors + 1));
        return false;
    }
    const int place = insertGap(recordsToChange(), nfcocolors, position);
    ++nfcocolors;
    if (FCOStruct* record = recordAt(recordsToChange(), place)) storeColour(*record, colour);
    return true;
}

void CSwatchList::setColor(const Colour& colour, std::string_view name) {
    const StoredName stored(name);
    if (FCOStruct* record = recordAt(recordsToChange(), selectcolor)) {
        overwriteColour(*record, colour);
        writeName(*record, stored);
    }
    contentsChanged();
}

} // namespace chromalog
