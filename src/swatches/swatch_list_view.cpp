#include "swatches/swatch_list_view.h"

#include "base/number_text.h"
#include "formats/aco_writer.h"
#include "record/name_text.h"
#include "swatches/swatch_list_geometry.h"

#include <cmath>

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

} // namespace

void CSwatchList::initWithFrame(const Rect& frame) {
    setFrame(frame);
    setScrollSize();
}

void CSwatchList::initFromControler() {
    lostAndFound.clear();
    lostAndFound.reserve(25);
    delegate_.setFirstColor(*this, selectcolor);
    setScrollSize();
}

void CSwatchList::setScrollSize() {
    Rect frame = this->frame();
    frame.h = geometry::contentHeight(nfcocolors, superviewBounds().value_or(Rect{}).h);
    setFrame(frame);
}

void CSwatchList::setScrollPos(float position) {
    const double clipHeight = superviewBounds().value_or(Rect{}).h;
    const int visibleRows = static_cast<int>(std::clamp(clipHeight / geometry::kRowPitch, 0.0, 1e6));
    const float first = position * static_cast<float>(nfcocolors - visibleRows);
    // A position outside 0..1, or no number, must not overflow on its way to 16 bits.
    startcolor = static_cast<std::int16_t>(std::isnan(first) ? 0 : std::clamp(first, -32768.0F, 32767.0F));
    logScrollValue(position);
}

void CSwatchList::logScrollValue(double value) const {
    delegate_.desktop().log("ScrollValue : ," + fixedText(value));
}

RGBColor CSwatchList::bufferColorOf(const FCOStruct& record) {
    return {static_cast<std::uint16_t>(record.SRed), static_cast<std::uint16_t>(record.SGreen),
            static_cast<std::uint16_t>(record.SBlue)};
}

void CSwatchList::objRGBToCGColor(const RGBColor& color, float (&output)[4]) {
    output[0] = color.red / 65535.0F;
    output[1] = color.green / 65535.0F;
    output[2] = color.blue / 65535.0F;
    output[3] = 1.0F;
}

void CSwatchList::selectRow(std::int16_t row) {
    selectcolor = row;
    delegate_.setFirstColor(*this, selectcolor);
    setNeedsDisplay();
    announceChange();
}

void CSwatchList::saveSwatches(std::vector<std::uint8_t>& data) const {
    writeAco(data, records(), nfcocolors);
}

void CSwatchList::drawRect(Canvas& canvas) {
    if (nfcocolors <= 0 || !canvas.drawsToScreen()) return; // paper gets pages of its own
    delegate_.desktop().log("DrawSwatches Oy= ," + fixedText(frame().y) + " HY ," + fixedText(frame().h));
    canvas.setLineWidth(1);
    canvas.setStroke(Colour());
    canvas.setFill(Colour());
    canvas.strokeRect(bounds());
    drawRows(canvas);
}

/// Paints the rows that the clip can show and ends the names of all rows, painted or not: what a later drag,
/// search or sort reads of a name does not depend on the scroll position. What an earlier draw ended is not
/// read again: at 5,000 rows that is a tenth of the draw.
void CSwatchList::drawRows(Canvas& canvas) {
    const ListRecords shown = shownOf(array());
    const int count = static_cast<int>(shown.size());
    const auto drawn = geometry::drawnRows(frame().y, count);
    const auto painted = geometry::rowsInClip(canvas.clipBounds(), frame().y, count);
    const auto terminate = [&shown](int first, int end) {
        for (int row = first; row < end; ++row)
            terminateName(shown[static_cast<std::size_t>(row)]);
    };
    const bool ended = drawn.first >= namesEndedFrom_;
    if (!ended) terminate(drawn.first, painted.first);
    for (int row = painted.first; row < painted.end; ++row)
        drawRow(canvas, row, shown[static_cast<std::size_t>(row)]);
    if (ended) return;
    terminate(painted.end, drawn.end);
    namesEndedFrom_ = drawn.first;
}

void CSwatchList::drawDisplayLayer(Canvas& canvas) {
    extras().drawMarks(canvas);
    if (!menuRow_ || *menuRow_ < 0 || *menuRow_ >= shownRows()) return;
    const Rect row = geometry::selectionRectForRow(bounds(), *menuRow_);
    canvas.setStroke(Colour()); // dark around light: seen on every ground
    canvas.setLineWidth(4);
    canvas.strokeRect(row);
    canvas.setStroke(Colour::rgb(1, 1, 1));
    canvas.setLineWidth(1.5);
    canvas.strokeRect(row);
}

void CSwatchList::drawRow(Canvas& canvas, int row, FCOStruct& record) {
    const Rect patch = geometry::patchRectForRow(bounds(), frame().y, row);
    float rgba[4];
    BufferColor = bufferColorOf(record); // before the terminator, which may change SRed
    objRGBToCGColor(BufferColor, rgba);
    canvas.setFill(Colour::rgb(rgba[0], rgba[1], rgba[2], rgba[3]));
    canvas.fillRect(patch);
    canvas.setStroke(Colour());
    canvas.setFill(Colour());
    canvas.strokeRect(patch);
    terminateName(record);
    const double width = geometry::textWidth(bounds());
    if (width > 0) // not even the ellipsis has room otherwise
        canvas.drawText(geometry::textOriginForRow(bounds(), frame().y, row),
                        macRomanToUtf8(nameBytes(record)), Font{Font::Face::label, 12}, width);
    if (row != selectcolor) return;
    canvas.setStroke(Colour::rgb(0, 0, 1));
    canvas.strokeRect(geometry::selectionRectForRow(bounds(), row));
}

} // namespace chromalog
