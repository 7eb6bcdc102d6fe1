#include "pictures/picture_view.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "pictures/picture_sample.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr const char* kHint = translatable("Open…, paste or drop a picture.");
constexpr double kLeastSquare = 7; ///< points of the mark's side
constexpr int kLongMove = 16;      ///< pixels, with Shift

void strokeSquare(Canvas& canvas, const Rect& r, double around, const Colour& colour) {
    canvas.setLineWidth(1);
    canvas.setStroke(colour);
    canvas.strokeRect({r.x - around, r.y - around, r.w + 2 * around, r.h + 2 * around});
}

} // namespace

void PictureView::setPicture(const Picture& picture, const Picture& overview) {
    picture_ = picture;
    overview_ = overview;
    shown_ = {};
    dragging_ = false;
    moveTo(picture.width / 2, picture.height / 2);
}

void PictureView::setEdge(int edge) {
    edge_ = edge;
    moveTo(column_, row_);
}

std::optional<Colour> PictureView::sample() const {
    return picture_.empty() ? std::nullopt : sampleAt(picture_, column_, row_, edge_);
}

std::string PictureView::place() const {
    if (picture_.empty()) return {};
    const auto colour = sample();
    return "x " + std::to_string(column_) + ", y " + std::to_string(row_) + ", " +
           (colour ? hexText(channelsOf(*colour)) : translated("clear"));
}

void PictureView::drawRect(Canvas& canvas) {
    if (picture_.empty()) {
        canvas.setFill(surround().brightness() < 0.5 ? Colour::rgb(1, 1, 1) : Colour());
        return canvas.drawText({bounds().x + 12, bounds().y + 24}, translated(kHint), {}, bounds().w - 24);
    }
    const Rect rect = where();
    const double scale = canvas.deviceScale();
    const int width = std::max(1, static_cast<int>(rect.w * scale)),
              height = std::max(1, static_cast<int>(rect.h * scale));
    if (shown_.width != width || shown_.height != height) shown_ = resized(overview_, width, height);
    canvas.drawBitmap(shown_, rect);
}

Rect PictureView::square() const {
    const Rect rect = where();
    const double scale = rect.w / std::max(picture_.width, 1);
    const double side = std::max(kLeastSquare, edge_ * scale);
    return {rect.x + (column_ + 0.5) * scale - side / 2, rect.y + (row_ + 0.5) * scale - side / 2, side,
            side};
}

void PictureView::drawDisplayLayer(Canvas& canvas) {
    if (picture_.empty()) return;
    strokeSquare(canvas, square(), 0.5, Colour::rgb(1, 1, 1));
    strokeSquare(canvas, square(), 1.5, Colour());
}

std::optional<Rect> PictureView::focusMark() const {
    if (picture_.empty()) return bounds();
    const Rect r = square();
    return Rect{r.x - 4, r.y - 4, r.w + 8, r.h + 8};
}

void PictureView::moveTo(int column, int row) {
    column_ = std::clamp(column, 0, std::max(picture_.width - 1, 0));
    row_ = std::clamp(row, 0, std::max(picture_.height - 1, 0));
    setNeedsDisplay();
    announceChange();
    if (moved) moved();
}

void PictureView::goTo(Point p) {
    const Rect rect = where();
    if (picture_.empty() || rect.w <= 0) return;
    moveTo(static_cast<int>(std::floor(std::clamp((p.x - rect.x) / rect.w, 0.0, 1.0) * picture_.width)),
           static_cast<int>(std::floor(std::clamp((p.y - rect.y) / rect.h, 0.0, 1.0) * picture_.height)));
}

void PictureView::pick() {
    if (const auto colour = sample(); colour && picked) picked(*colour);
}

void PictureView::mouseDown(const MouseEvent& event) {
    const Rect rect = where();
    const Point& p = event.location;
    dragging_ = p.x >= rect.x && p.x <= rect.x + rect.w && p.y >= rect.y && p.y <= rect.y + rect.h;
    mouseDragged(event);
}

void PictureView::mouseDragged(const MouseEvent& event) {
    if (!dragging_ || picture_.empty()) return;
    goTo(event.location);
    pick();
}

bool PictureView::keyDown(const KeyEvent& event) {
    const int step = event.shift ? kLongMove : 1;
    switch (event.key) {
    case Key::left:
        return moveTo(column_ - step, row_), true;
    case Key::right:
        return moveTo(column_ + step, row_), true;
    case Key::up:
        return moveTo(column_, row_ - step), true;
    case Key::down:
        return moveTo(column_, row_ + step), true;
    case Key::enter:
    case Key::space:
        return pick(), true;
    default:
        return false;
    }
}

Accessible PictureView::accessible() const {
    Accessible told;
    told.role = Accessible::Role::colourChooser;
    told.name = translated("Picture");
    told.value = place();
    told.description = translated("Arrow keys move by a pixel, with Shift by 16; Return takes the color");
    return told;
}

} // namespace chromalog
