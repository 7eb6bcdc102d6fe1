#include "views/chart_view.h"

#include "base/colour_text.h"
#include "views/arrow_keys.h"

namespace chromalog {
namespace {

constexpr double dragImageSide = 20;
constexpr double focusMarkSide = 10;

Rect squareAround(Point p, double side) {
    return {p.x - side / 2, p.y - side / 2, side, side};
}

} // namespace

void chartView::pick(Point p) {
    selectedColor_ = desktop_.capture(*this).colourAt(p.x, bounds().h - p.y);
    announceChange();
}

void chartView::mouseDown(const MouseEvent& event) {
    pick(event.location);
    standAt(event.location);
    setNeedsDisplay();
}

void chartView::mouseDragged(const MouseEvent& event) {
    if (!selectedColor_) return;
    DragRequest drag;
    drag.source = this;
    const Rect image = squareAround(event.location, dragImageSide);
    drag.image = {{image.w, image.h}, *selectedColor_, false, {image.x, image.y}};
    drag.pasteboard.colourType = true; // no text: it would name the swatch that a list makes of the colour
    drag.pasteboard.colour = selectedColor_;
    desktop_.setGeneralPasteboard(drag.pasteboard);
    desktop_.beginDrag(drag);
}

bool chartView::keyDown(const KeyEvent& event) {
    const std::optional<Step> step = arrowStep(event);
    if (!step && event.key != Key::space) return false;
    if (step) moveCell(step->right, step->up);
    pick(cellCentre());
    setNeedsDisplay();
    return true;
}

std::optional<Rect> chartView::focusMark() const {
    return squareAround(cellCentre(), focusMarkSide);
}

Accessible chartView::accessible() const {
    Accessible a;
    a.role = Accessible::Role::chart;
    a.name = accessibleName();
    a.value = selectedColor_ ? spokenText(*selectedColor_) : "no color picked";
    a.description =
        "Arrow keys pick the next cell, with Shift the tenth. Drag to carry the picked color away.";
    return a;
}

} // namespace chromalog
