#include "views/chromatic_circle_view.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "views/arrow_keys.h"
#include "views/marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace chromalog {
namespace {

constexpr double turn = 6.283185307179586;
constexpr double selectedRadius = 4, harmonyRadius = 3;
constexpr double largestScale = 4; // of a screen; bounds the sharp picture

Rect squareAround(Point p, double radius) {
    return {p.x - radius, p.y - radius, 2 * radius, 2 * radius};
}

/// A length in whole pixels, clamped to what 16 bits keep.
int wholePixels(double length) {
    return length > 0 ? static_cast<int>(std::min<double>(length, std::numeric_limits<std::int16_t>::max()))
                      : 0;
}

/// Points that a mode outlines, and the corners of its path after the selected point.
struct Outline {
    std::vector<Point> rings, corners;
    bool closed;
};

Outline outlineOf(std::int16_t mode, const HarmonyPoints& h) {
    switch (mode) {
    case 1:
        return {{h.opposite}, {h.opposite}, false};
    case 2:
        return {{h.equi1, h.equi2}, {h.equi1, h.equi2}, true};
    case 3:
        return {{h.balance1, h.balance2}, {h.balance1, h.balance2}, true};
    case 4:
        return {{h.quadri1, h.quadri2, h.opposite}, {h.quadri1, h.opposite, h.quadri2}, true};
    default:
        return {{}, {}, false};
    }
}

} // namespace

void chromaticCircleView::drawOnce() {
    brightness_ = colours_.getLuminosity();
    side_ = std::max(wholePixels(bounds().w), 0);
    rendered_ = true;
    current_ = false;
}

const Bitmap& chromaticCircleView::picture() const {
    if (rendered_ && !current_) picture_.render(side_, brightness_);
    current_ = true;
    return picture_.bitmap();
}

/// The picture at the screen's scale, rendered when it is first drawn at a brightness.
const Bitmap& chromaticCircleView::shownPicture(double scale) {
    const int sharp = static_cast<int>(std::lround(side_ * std::clamp(scale, 1.0, largestScale)));
    if (sharp == side_) return picture();
    if (sharpPicture_.bitmap().width != sharp || sharpBrightness_ != brightness_)
        sharpPicture_.render(sharp, brightness_);
    sharpBrightness_ = brightness_;
    return sharpPicture_.bitmap();
}

void chromaticCircleView::drawRect(Canvas& canvas) {
    if (!rendered_) drawOnce();
    canvas.drawBitmap(shownPicture(canvas.deviceScale()), bounds());
    canvas.setStroke(Colour::rgb(1, 1, 1));
    canvas.strokePath(markers());
}

/// In pieces only where each has a place that is exact in binary: seams would show between others.
void chromaticCircleView::drawRim(Canvas& canvas) {
    const Bitmap& shown = shownPicture(canvas.deviceScale());
    const Rect whole = bounds();
    const double unit = whole.w / shown.width;
    const bool exact = whole.w == whole.h && (unit == 1 || unit == 0.5);
    const auto cut = exact ? WheelRim::Cut::frame : WheelRim::Cut::whole;
    for (const auto& [x, y, bitmap] : rim_.around(shown, brightness_, surround(), cut)) {
        const double width = bitmap.width * unit, height = bitmap.height * unit;
        const Rect place{whole.x + x * unit, whole.y + whole.h - y * unit - height, width, height};
        canvas.drawBitmap(bitmap, exact ? place : whole);
    }
}

void chromaticCircleView::drawDisplayLayer(Canvas& canvas) {
    drawRim(canvas);
    for (WheelTool* tool : tools_)
        tool->drawOverWheel(canvas);
    strokeWithHalo(canvas, markers());
}

void chromaticCircleView::addTool(WheelTool& tool) {
    tools_.push_back(&tool);
    setNeedsDisplay();
}

/// The rest of a drag that the tool has taken goes nowhere: it began as no pick.
void chromaticCircleView::removeTool(WheelTool& tool) {
    if (std::erase(tools_, &tool) == 0) return;
    if (holding_ == &tool) holding_ = nullptr;
    setNeedsDisplay();
}

Path chromaticCircleView::markers() const {
    const Outline outline = outlineOf(colours_.getHarmonyMode(), harmony_);
    Path path;
    path.oval(squareAround(selectedPoint_, selectedRadius));
    for (Point p : outline.rings)
        path.oval(squareAround(p, harmonyRadius));
    if (outline.corners.empty()) return path;
    path.moveTo(selectedPoint_);
    for (Point p : outline.corners)
        path.lineTo(p);
    if (outline.closed) path.lineTo(selectedPoint_);
    return path;
}

/// Rows count from the top, the view's y from the bottom.
float chromaticCircleView::pictureRow(double y) const {
    return static_cast<float>(bounds().h - y);
}

Colour chromaticCircleView::pixelAt(double x, float row) const {
    return wheelColour(x, row, side_, brightness_);
}

Colour chromaticCircleView::getColorAtPoint(Point p) const {
    return pixelAt(p.x, pictureRow(p.y));
}

void chromaticCircleView::setHarmonyColors() {
    const Size size{bounds().w, bounds().h};
    colours_.setAlpha(harmonyAngle(size, selectedPoint_));
    harmony_ = harmonyPoints(size, selectedPoint_, colours_.getAlpha());
    struct Read {
        Point point;
        std::int16_t code;
    };
    for (const Read& read : {Read{harmony_.opposite, 1}, Read{harmony_.balance1, 4},
                             Read{harmony_.balance2, 5}, Read{harmony_.equi1, 2}, Read{harmony_.equi2, 3},
                             Read{harmony_.quadri1, 6}, Read{harmony_.quadri2, 7}})
        colours_.setoppositeColor(getColorAtPoint(read.point), read.code);
    for (WheelTool* tool : tools_)
        tool->harmonyPlaced();
}

void chromaticCircleView::setCursorWithColor(const Colour& colour) {
    const float radius = static_cast<float>(bounds().w / 2);
    const double angle = colour.hue() * turn;
    const double distance = radius * colour.saturation();
    selectedPoint_ = {radius + distance * std::cos(angle), radius - distance * std::sin(angle)};
    setHarmonyColors();
    setNeedsDisplay();
    announceChange();
}

void chromaticCircleView::sizeChanged() {
    if (!rendered_) return; // nothing was placed yet
    drawOnce();
    setCursorWithColor(colours_.getSecondColor());
}

bool chromaticCircleView::isWithinRim(Point p) const {
    const double c = static_cast<float>(bounds().h / 2);
    const double dx = c - p.x, dy = c - p.y;
    return c > std::sqrt(dx * dx + dy * dy);
}

std::optional<Colour> chromaticCircleView::colourAt(Point p) {
    if (!rendered_ || !isWithinRim(p)) return std::nullopt;
    return getColorAtPoint(p);
}

void chromaticCircleView::mouseDown(const MouseEvent& event) {
    const auto taker =
        std::ranges::find_if(tools_, [&event](WheelTool* tool) { return tool->takesPress(event.location); });
    handleHeld_ = taker != tools_.end();
    holding_ = handleHeld_ ? *taker : nullptr;
    if (!handleHeld_) pick(event.location);
}

void chromaticCircleView::mouseDragged(const MouseEvent& event) {
    if (!handleHeld_) return pick(event.location);
    if (holding_) holding_->handleDragged(event.location);
}

void chromaticCircleView::mouseUp(const MouseEvent&) {
    handleHeld_ = false;
    if (WheelTool* tool = std::exchange(holding_, nullptr)) tool->handleReleased();
}

void chromaticCircleView::pick(Point p) {
    if (!rendered_) drawOnce();
    const float row =
        pictureRow(selectedPoint_.y); // of the point before this event: a drag trails by one event, kept
    if (!isWithinRim(p)) return;
    selectedPoint_ = p;
    colours_.changeSecondColor(pixelAt(p.x, row));
    setHarmonyColors();
    setNeedsDisplay();
    announceChange();
}

bool chromaticCircleView::keyDown(const KeyEvent& event) {
    const std::optional<Step> step = arrowStep(event);
    if (!step) return false;
    const Point p{selectedPoint_.x + step->right, selectedPoint_.y + step->up};
    pick(p); // a press
    pick(p); // and one drag, which picks in the row of the press
    return true;
}

std::optional<Rect> chromaticCircleView::focusMark() const {
    return squareAround(selectedPoint_, selectedRadius + 2);
}

Accessible chromaticCircleView::accessible() const {
    Accessible a;
    a.role = Accessible::Role::colourChooser;
    a.name = translated("Color wheel");
    a.value = spokenText(colours_.getSecondColor());
    a.description = translated(
        "Hue and saturation of the second color. Arrow keys move the point, with Shift ten times as far.");
    return a;
}

} // namespace chromalog
