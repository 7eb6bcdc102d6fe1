#include "base/translated.h"
#include "history/undo_labels.h"
#include "record/name_text.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_geometry.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

constexpr Size kDragImage{32, 16};
constexpr float kSameColour = 10.0F; ///< at most this far from a swatch, a dropped colour is refused

/// The alert's text was a format once: "%%" is shown as "%", and nothing else is replaced.
std::string shownAsFormat(std::string text) {
    for (std::size_t at = 0; (at = text.find("%%", at)) != std::string::npos; ++at)
        text.erase(at, 1);
    return text;
}

} // namespace

/// Carries the row of the preceding press. The colour and the name also stay on the general pasteboard: kept.
void CSwatchList::mouseDragged(const MouseEvent& event) {
    const FCOStruct* record = recordAt(records(), selectcolor);
    if (!record) return;
    float rgba[4];
    BufferColor = bufferColorOf(*record);
    objRGBToCGColor(BufferColor, rgba); // single precision loses a unit of about half of all words: kept
    const Colour colour = Colour::rgb(rgba[0], rgba[1], rgba[2]);

    DragRequest drag;
    drag.source = this;
    drag.image = {kDragImage, colour, true, {event.location.x - 16, event.location.y + 8}};
    drag.pasteboard.colourType = drag.pasteboard.textType = true;
    drag.pasteboard.colour = colour;
    drag.pasteboard.text = macRomanToUtf8(zeroTerminatedName(*record));
    delegate_.desktop().setGeneralPasteboard(drag.pasteboard);
    extras().dragBegins();
    delegate_.desktop().beginDrag(drag); // returns when it is over
    extras().dragEnds();
}

DragOperation CSwatchList::draggingEntered(const DragInfo& info) {
    return info.pasteboard.colourType && info.sourceAllows ? DragOperation::copy : DragOperation::none;
}

bool CSwatchList::performDragOperation(const DragInfo& info) {
    if (extras().takesDrop(info)) return true;
    delegate_.setUndoablePosition(undo_label::colorDeleted); // whatever the drop then does: kept
    delegate_.describeStep(translated(kNothingChanged));
    delegate_.describeStep(takeDrop(info));
    return true;
}

std::string CSwatchList::takeDrop(const DragInfo& info) {
    const std::int16_t drop = std::max<std::int16_t>(geometry::rowAtPoint(info.location), 0);
    if (!info.pasteboard.colourType || !info.pasteboard.colour) return translated(kNothingChanged);
    const Colour& colour = *info.pasteboard.colour;
    float distance = 0;
    const std::int16_t near = getNearColor(colour, distance);
    std::string words = translated(kNothingChanged), move = translated("Move swatch"),
                fromOutside = translated("Drop of a color"); // before anything changes
    int place = -1;                                          ///< of the swatch in question
    if (info.source == this) {
        moveRecord(recordsToChange(), selectcolor, drop); // the count and the selection stay
        place = drop;
        words.swap(move);
    } else if (distance <= kSameColour) {
        place = near;
        refuseDropped(recordAt(records(), near));
    } else if (const int gap = std::min<int>(drop, nfcocolors);
               insertDropped(info.pasteboard, colour, drop)) {
        place = gap;
        words.swap(fromOutside);
    }
    contentsChanged();
    extras().dropped(place);
    return words;
}

bool CSwatchList::refuses(const Colour& colour) const {
    float distance = 0;
    getNearColor(colour, distance);
    return distance <= kSameColour;
}

StoredName CSwatchList::droppedName(const Pasteboard& pasteboard, const Colour& colour, int place) const {
    if (pasteboard.textType) return StoredName(pasteboard.text.value_or(""));
    std::string name = "New Color";
    delegate_.isFirstColorId(colour, static_cast<std::int16_t>(place), name);
    StoredName stored(name);
    stored.length = 9; // for any name: kept
    return stored;
}

bool CSwatchList::insertDropped(const Pasteboard& pasteboard, const Colour& colour, std::int16_t drop) {
    const int place = std::min<int>(drop, nfcocolors);
    const StoredName name = droppedName(pasteboard, colour, place);
    if (!addFcoColor(colour, drop)) return false;
    if (FCOStruct* record = recordAt(recordsToChange(), place)) writeName(*record, name);
    setScrollSize();
    return true;
}

void CSwatchList::refuseDropped(const FCOStruct* near) {
    const std::string name = near ? macRomanToUtf8(zeroTerminatedName(*near)) : std::string();
    delegate_.desktop().runAlert({translated("Thist color exists !"), shownAsFormat(name), translated("ok")});
}

} // namespace chromalog
