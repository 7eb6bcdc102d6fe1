#include "views/chart_view.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "views/arrow_keys.h"

namespace chromalog {
namespace {

constexpr double dragImageSide = 20;
constexpr double focusMarkSide = 10;
constexpr int kPage = 10; ///< cells

Rect squareAround(Point p, double side) {
    return {p.x - side / 2, p.y - side / 2, side, side};
}

} // namespace

std::optional<Colour> chartView::colourAt(Point p) {
    return desktop_.capture(*this).colourAt(p.x, bounds().h - p.y);
}

void chartView::pick(Point p) {
    selectedColor_ = colourAt(p);
    announceChange();
    tellPicked(p);
}

void chartView::tellPicked(Point p) {
    if (selectedColor_) remark(p, spokenText(*selectedColor_));
}

void chartView::mouseUp(const MouseEvent& event) {
    tellPicked(event.location);
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

bool chartView::moveByKey(const KeyEvent& event) {
    if (event.key == Key::home)
        moveToRowEnd(-1);
    else if (event.key == Key::end)
        moveToRowEnd(1);
    else if (event.key == Key::pageUp)
        moveCell(0, kPage);
    else if (event.key == Key::pageDown)
        moveCell(0, -kPage);
    else if (const std::optional<Step> step = arrowStep(event))
        moveCell(step->right, step->up);
    else
        return false;
    return true;
}

bool chartView::keyDown(const KeyEvent& event) {
    if (!moveByKey(event) && event.key != Key::space) return false;
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
    a.name = translated(accessibleName());
    a.value = selectedColor_ ? spokenText(*selectedColor_) : translated("no color picked");
    a.description = translated(
        "Arrow keys pick the next cell, with Shift or the page keys the tenth, Home and End go to the "
        "ends. Drag to carry the picked color away.");
    return a;
}

} // namespace chromalog
