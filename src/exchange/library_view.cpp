#include "exchange/library_view.h"

#include "base/translated.h"
#include "palettes/fit_palette.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr double kRow = 2 * 22, kMargin = 5, kStrip = 18, kName = 13; // points

/// A strip is a hint: ink goes without a host.
Rgb plainInk(const PaletteComponents& c) {
    return {(1 - c[0]) * (1 - c[3]), (1 - c[1]) * (1 - c[3]), (1 - c[2]) * (1 - c[3])};
}

std::vector<Colour> stripOf(const Palette& palette) {
    std::vector<Colour> strip;
    for (const PaletteColour& colour : palette.colours)
        if (colour.space != PaletteSpace::book) strip.push_back(colourOf(rgbOf(colour, plainInk)));
    return strip;
}

} // namespace

void LibraryView::setEntries(std::vector<LibraryEntry> entries) {
    std::vector<std::vector<Colour>> strips;
    strips.reserve(entries.size());
    for (const LibraryEntry& entry : entries)
        strips.push_back(stripOf(entry.palette));
    if (has(row_)) { // the keyboard stays on its palette
        const auto same =
            std::ranges::find(entries, entries_[static_cast<std::size_t>(row_)].path, &LibraryEntry::path);
        if (same != entries.end()) row_ = static_cast<int>(same - entries.begin());
    }
    entries_ = std::move(entries);
    strips_ = std::move(strips);
    row_ = std::clamp(row_, 0, std::max(0, accessibleRowCount() - 1));
    fitHeight();
    announceChange();
}

void LibraryView::fitHeight() {
    Rect frame = this->frame();
    frame.h = std::max(kRow * accessibleRowCount(), superviewBounds().value_or(Rect{}).h);
    setFrame(frame);
    setNeedsDisplay();
}

Rect LibraryView::rowRect(int row) const {
    return {bounds().x, bounds().y + kRow * row, bounds().w, kRow};
}

void LibraryView::drawRect(Canvas& canvas) {
    const Rect clip = canvas.clipBounds();
    for (int row = 0; row < accessibleRowCount(); ++row) {
        const Rect rect = rowRect(row);
        if (rect.y > clip.y + clip.h || rect.y + rect.h < clip.y) continue;
        const auto& strip = strips_[static_cast<std::size_t>(row)];
        const double width =
            (rect.w - 2 * kMargin) / static_cast<double>(std::max<std::size_t>(strip.size(), 1));
        for (std::size_t i = 0; i < strip.size(); ++i) {
            canvas.setFill(strip[i]);
            canvas.fillRect({rect.x + kMargin + width * static_cast<double>(i), rect.y + kMargin + kName + 4,
                             width, kStrip});
        }
        canvas.setFill(Colour()); // on the lists' own light ground, on dark desktops too
        canvas.drawText({rect.x + kMargin, rect.y + kMargin + kName - 3},
                        entries_[static_cast<std::size_t>(row)].label, Font{}, rect.w - 2 * kMargin);
    }
}

void LibraryView::mouseDown(const MouseEvent& event) {
    const int row = accessibleRowAt(event.location);
    if (!has(row)) return;
    row_ = row;
    setNeedsDisplay();
    if (chosen) chosen(row);
}

bool LibraryView::keyDown(const KeyEvent& event) {
    const int before = row_;
    if (event.key == Key::up) row_ = std::max(0, row_ - 1);
    if (event.key == Key::down) row_ = std::min(accessibleRowCount() - 1, row_ + 1);
    if ((event.key == Key::enter || event.key == Key::space) && has(row_)) {
        if (chosen) chosen(row_);
        return true;
    }
    row_ = std::max(row_, 0);
    if (row_ != before) setNeedsDisplay(), announceChange();
    return event.key == Key::up || event.key == Key::down;
}

std::optional<Rect> LibraryView::focusMark() const {
    return has(row_) ? std::optional(rowRect(row_)) : std::nullopt;
}

Accessible LibraryView::accessible() const {
    Accessible told;
    told.role = Accessible::Role::list;
    told.name = translated("Library of palettes");
    told.description = translated("Return loads the palette into the list");
    return told;
}

AccessibleRow LibraryView::accessibleRow(int row) const {
    if (!has(row)) return {};
    const LibraryEntry& entry = entries_[static_cast<std::size_t>(row)];
    return {entry.label, translatedCount(static_cast<std::size_t>(entry.count), "%1 color", "%1 colors"),
            rowRect(row)};
}

std::optional<int> LibraryView::accessibleSelectedRow() const {
    return has(row_) ? std::optional(row_) : std::nullopt;
}

int LibraryView::accessibleRowAt(Point point) const {
    const double row = std::floor((point.y - bounds().y) / kRow);
    return row >= 0 && row < 1e6 ? static_cast<int>(row) : -1;
}

void LibraryView::selectAccessibleRow(int row) {
    if (!has(row)) return;
    row_ = row;
    setNeedsDisplay();
}

} // namespace chromalog
