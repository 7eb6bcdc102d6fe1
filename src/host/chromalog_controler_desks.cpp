// The calls that the rooms make on the dialog's controller.
#include "host/chromalog_controler.h"

#include "host/host_version.h"
#include "swatches/formats/colour_books.h"
#include "swatches/name_text.h"

namespace chromalog {

void ChromalogControler::redrawCircle() {
    chromaView_.drawOnce();
    chromaView_.setNeedsDisplay();
}

void ChromalogControler::setHarmonyColors() {
    chromaView_.setHarmonyColors();
}

void ChromalogControler::placeStripCursor() {
    lumiView_.setCursorWithColor(colours_.getSecondColor());
}

void ChromalogControler::redrawWheelAndPlace() {
    chromaView_.drawOnce();
    chromaView_.setCursorWithColor(colours_.getSecondColor());
}

void ChromalogControler::markToneAndStrip() {
    toneView_.setNeedsDisplay();
    lumiView_.setNeedsDisplay();
}

std::optional<std::string> ChromalogControler::selectedSwatchName(const DragSource* source) {
    CSwatchList* list = source == &swatch1_ ? &swatch1_ : source == &swatch2_ ? &swatch2_ : nullptr;
    if (!list) return std::nullopt;
    const FCOStruct* swatch = recordAt(list->records(), list->getSelected());
    if (!swatch) return std::nullopt;
    return macRomanToUtf8(zeroTerminatedName(*swatch));
}

void ChromalogControler::setoppositeColor(const Colour& colour, std::int16_t code) {
    switch (code) {
    case 1:
        outlets_.complementColor->setColor(colour);
        outlets_.quadri2Color->setColor(colour);
        break;
    case 2:
        outlets_.equi1Color->setColor(colour);
        break;
    case 3:
        outlets_.equi2Color->setColor(colour);
        break;
    case 4:
        outlets_.triHarmoni1Color->setColor(colour);
        break;
    case 5:
        outlets_.triHarmoni2Color->setColor(colour);
        break;
    case 6:
        outlets_.quadri1Color->setColor(colour);
        break;
    case 7:
        outlets_.quadri3Color->setColor(colour);
        break; // the wheel's second quadri point: names shift, kept
    default:
        break;
    }
}

void ChromalogControler::setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target) {
    colours_.setFirstAndSecondFromDrop(source, target);
}

void ChromalogControler::setFirstColor(CSwatchList& list, std::int16_t index) {
    // An index outside the list points at no swatch: the first colour then stays.
    if (&list != &swatch1_ || index < 0 || index >= list.shownRows()) return;
    const FCOStruct& swatch = data_.swatchList1[index];
    colours_.setFirstColor(swatch, macRomanToUtf8(zeroTerminatedName(swatch)));
}

ScrollView& ChromalogControler::listScroller(int number) {
    return number == 1 ? *outlets_.swatch1Scroller : *outlets_.swatch2scroller;
}

Menu& ChromalogControler::menu(CSwatchList& list) {
    return &list == &swatch1_ ? *outlets_.swatchContextMenu : *outlets_.swatchContextMenu2;
}

ListParts ChromalogControler::list(ListNumber which) {
    if (which == ListNumber::one)
        return {swatch1_, *outlets_.swatch1Scroller, *outlets_.swatch1Name, data_.numColors1,
                data_.swatchName1};
    return {swatch2_, *outlets_.swatch2scroller, *outlets_.swatch2Name, data_.numColors2, data_.swatchName2};
}

std::string ChromalogControler::colourBooksFolder() {
    return chromalog::colourBooksFolder(hostVersion(data_.pickerRecord->propertyProcs),
                                        desktop_.colourBooksDirectory());
}

} // namespace chromalog
