#include "pictures/taken_colours_view.h"

#include "base/colour_text.h"
#include "base/translated.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace chromalog {
namespace {

constexpr double kRow = 22, kPatch = 40, kMargin = 6, kBaseline = 15, kShare = 44; // points

std::string percentOf(double share) {
    char text[16];
    std::snprintf(text, sizeof text, "%.1f %%", 100 * share);
    return text;
}

} // namespace

void TakenColoursView::setColours(std::vector<TakenColour> colours) {
    colours_ = std::move(colours);
    row_ = std::clamp(row_, 0, std::max(0, accessibleRowCount() - 1));
    fitHeight();
    announceChange();
}

/// To its rows, or to the clip where that is higher.
void TakenColoursView::fitHeight() {
    Rect frame = this->frame();
    frame.h = std::max(kRow * accessibleRowCount(), superviewBounds().value_or(Rect{}).h);
    if (frame.h != this->frame().h) setFrame(frame);
    setNeedsDisplay();
}

Rect TakenColoursView::rowRect(int row) const {
    return {bounds().x, bounds().y + kRow * row, bounds().w, kRow};
}

void TakenColoursView::drawRect(Canvas& canvas) {
    const Rect clip = canvas.clipBounds();
    for (int row = 0; row < accessibleRowCount(); ++row) {
        const Rect rect = rowRect(row);
        if (rect.y > clip.y + clip.h || rect.y + rect.h < clip.y) continue;
        const TakenColour& taken = colours_[static_cast<std::size_t>(row)];
        canvas.setFill(taken.colour);
        canvas.fillRect({rect.x, rect.y, kPatch, rect.h});
        canvas.setFill(Colour()); // on the lists' own light ground
        const double left = rect.x + kPatch + kMargin, right = rect.x + rect.w - kShare;
        canvas.drawText({left, rect.y + kBaseline}, taken.name, {}, std::max(right - left - kMargin, 1.0));
        canvas.drawText({right, rect.y + kBaseline}, percentOf(taken.share), {}, kShare);
    }
}

void TakenColoursView::pick(int row) {
    if (!has(row)) return;
    selectAccessibleRow(row);
    if (picked) picked(colours_[static_cast<std::size_t>(row)].colour);
}

void TakenColoursView::mouseDown(const MouseEvent& event) {
    pick(accessibleRowAt(event.location));
}

bool TakenColoursView::keyDown(const KeyEvent& event) {
    if (event.key == Key::enter || event.key == Key::space) return pick(row_), true;
    if (event.key != Key::up && event.key != Key::down) return false;
    selectAccessibleRow(
        std::clamp(row_ + (event.key == Key::up ? -1 : 1), 0, std::max(0, accessibleRowCount() - 1)));
    return true;
}

std::optional<Rect> TakenColoursView::focusMark() const {
    return has(row_) ? std::optional(rowRect(row_)) : std::nullopt;
}

Accessible TakenColoursView::accessible() const {
    Accessible told;
    told.role = Accessible::Role::list;
    told.name = translated("Colors of the picture");
    told.description = translated("Return makes one the second color");
    return told;
}

AccessibleRow TakenColoursView::accessibleRow(int row) const {
    if (!has(row)) return {};
    const TakenColour& taken = colours_[static_cast<std::size_t>(row)];
    return {taken.name, hexText(channelsOf(taken.colour)) + ", " + percentOf(taken.share), rowRect(row)};
}

std::optional<int> TakenColoursView::accessibleSelectedRow() const {
    return has(row_) ? std::optional(row_) : std::nullopt;
}

int TakenColoursView::accessibleRowAt(Point point) const {
    const double row = std::floor((point.y - bounds().y) / kRow);
    return row >= 0 && row < 1e6 ? static_cast<int>(row) : -1;
}

void TakenColoursView::selectAccessibleRow(int row) {
    if (!has(row)) return;
    row_ = row;
    setNeedsDisplay();
    announceChange();
}

} // namespace chromalog
