#include "comparison/result_list.h"

#include "base/colour_text.h"
#include "base/number_text.h"
#include "base/translated.h"
#include "swatches/swatch_list_geometry.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

constexpr double kPitch = geometry::kRowPitch;
constexpr double kPlaceWidth = 104, kDifferenceWidth = 62; // points, at the right end
constexpr Size kDragImage{geometry::kPatchWidth, geometry::kPatchHeight};

} // namespace

std::string differenceText(double difference) {
    return fixedText(difference, 2);
}

std::string placeText(int list, int row) {
    return translated("List %1: %2", list + 1, row + 1);
}

std::string placesText(int list, int row, int otherList, int otherRow) {
    const auto place = [](int of, int at) { return std::to_string(of + 1) + ": " + std::to_string(at + 1); };
    return place(list, row) + " = " + place(otherList, otherRow);
}

void ResultList::setRows(int count, std::function<ResultRow(int)> row) {
    count_ = count;
    row_ = std::move(row);
    selection_.clear();
    own_ = -1;
    fitHeight();
    scroller->scrollToPoint({});
    rowsChanged();
    selectionHasChanged();
}

void ResultList::rowsChanged() {
    setNeedsDisplay();
    announceChange();
}

void ResultList::selectionHasChanged() {
    setNeedsDisplay();
    if (selectionChanged) selectionChanged();
}

void ResultList::fitHeight() {
    Rect frame = this->frame();
    frame.h = std::max(kPitch * count_ + geometry::kMargin, superviewBounds().value_or(Rect{}).h);
    setFrame(frame);
}

Rect ResultList::rowRect(int row) const {
    return {bounds().x, bounds().y + kPitch * row + 2, bounds().w, kPitch};
}

void ResultList::drawRect(Canvas& canvas) {
    const Rect clip = canvas.clipBounds();
    const int first = static_cast<int>(std::clamp((clip.y - bounds().y) / kPitch - 1, 0.0, 1.0 * count_));
    for (int row = first; row < count_ && rowRect(row).y < clip.y + clip.h; ++row)
        drawRow(canvas, row);
}

void ResultList::drawRow(Canvas& canvas, int row) const {
    const ResultRow line = row_(row);
    const Rect rect = rowRect(row);
    const Rect patch{rect.x + geometry::kMargin, rect.y + 3, geometry::kPatchWidth, geometry::kPatchHeight};
    canvas.setFill(line.colour);
    canvas.fillRect(patch);
    if (line.beside) {
        canvas.setFill(*line.beside);
        canvas.fillRect({patch.x + patch.w / 2, patch.y, patch.w / 2, patch.h});
    }
    canvas.setStroke(Colour());
    canvas.setLineWidth(1);
    canvas.strokeRect(patch);
    canvas.setFill(Colour());
    const double base = patch.y + patch.h - 3, left = patch.x + patch.w + 5;
    const double differs = rect.x + rect.w - kDifferenceWidth, place = differs - kPlaceWidth;
    const auto text = [&](double x, double end, const std::string& words) {
        if (end - x > 12 && !words.empty()) canvas.drawText({x, base}, words, Font{}, end - x - 4);
    };
    text(left, place, line.name);
    text(std::max(place, left), differs, line.place);
    text(std::max(differs, left), rect.x + rect.w, line.difference.empty() ? "" : "ΔE " + line.difference);
}

void ResultList::drawDisplayLayer(Canvas& canvas) {
    const Rect clip = canvas.clipBounds();
    canvas.setFill(Colour::rgb(0, 0, 1));
    canvas.setStroke(Colour::rgb(0, 0, 1));
    for (const int row : selection_.rows()) {
        const Rect rect = rowRect(row);
        if (!has(row) || rect.y > clip.y + clip.h || rect.y + rect.h < clip.y) continue;
        canvas.fillRect({rect.x, rect.y + 1, 3, rect.h - 2});
        canvas.strokeRect({rect.x + 3.5, rect.y + 1.5, rect.w - 5, rect.h - 2});
    }
}

void ResultList::mouseDown(const MouseEvent& event) {
    const int row = accessibleRowAt(event.location), before = own_;
    if (!has(row)) {
        own_ = -1;
        selection_.clear();
        return selectionHasChanged();
    }
    own_ = row;
    if (event.shift)
        selection_.extendTo(row, before < 0 ? row : before);
    else if (event.control)
        selection_.toggle(row, -1);
    else
        selection_.set({row});
    selectionHasChanged();
    if (event.shift || event.control) return;
    if (event.second && taken) return taken(row);
    if (pressed) pressed(row);
}

/// Carries the one line under the pointer, as a list carries a swatch.
void ResultList::mouseDragged(const MouseEvent& event) {
    if (!has(own_)) return;
    const ResultRow line = row_(own_);
    DragRequest drag;
    drag.source = this;
    drag.image = {kDragImage, line.colour, true, {event.location.x - 16, event.location.y + 8}};
    drag.pasteboard = {true, true, line.colour, line.name};
    desktop_.beginDrag(drag); // returns when it is over
}

bool ResultList::moveTo(int row, bool extends) {
    if (count_ == 0) return false;
    const int before = own_ < 0 ? 0 : own_;
    own_ = std::clamp(row, 0, count_ - 1);
    if (extends)
        selection_.extendTo(own_, before);
    else
        selection_.set({own_});
    scrollToShow(own_);
    selectionHasChanged();
    announceChange();
    return true;
}

bool ResultList::keyDown(const KeyEvent& event) {
    const int page = std::max(1, static_cast<int>(superviewBounds().value_or(Rect{}).h / kPitch) - 1);
    switch (event.key) {
    case Key::up:
        return moveTo(own_ - 1, event.shift);
    case Key::down:
        return moveTo(own_ + 1, event.shift);
    case Key::pageUp:
        return moveTo(own_ - page, event.shift);
    case Key::pageDown:
        return moveTo(own_ + page, event.shift);
    case Key::home:
        return moveTo(0, event.shift);
    case Key::end:
        return moveTo(count_ - 1, event.shift);
    case Key::selectAll:
        selection_.setAll(count_);
        selectionHasChanged();
        return true;
    case Key::space:
        if (has(own_) && pressed) pressed(own_);
        return true;
    case Key::enter: // never presses a button of the panel
        if (has(own_) && taken) taken(own_);
        return true;
    default:
        return false;
    }
}

void ResultList::scrollToShow(int row) {
    const auto clip = superviewBounds();
    if (!clip) return;
    const Rect rect = rowRect(row);
    if (rect.y < clip->y)
        scroller->scrollToPoint({0, rect.y - 2});
    else if (rect.y + rect.h + 2 > clip->y + clip->h)
        scroller->scrollToPoint({0, rect.y + rect.h + 2 - clip->h});
}

std::optional<Rect> ResultList::focusMark() const {
    return has(own_) ? std::optional(rowRect(own_)) : std::nullopt;
}

std::string ResultList::helpAt(Point point) const {
    const int row = accessibleRowAt(point);
    if (!has(row)) return {};
    const ResultRow line = row_(row);
    return line.name + "\n" + line.place + (line.difference.empty() ? "" : ", ΔE " + line.difference);
}

Accessible ResultList::accessible() const {
    Accessible told;
    told.role = Accessible::Role::list;
    told.name = name_;
    told.value = translatedCount(static_cast<std::size_t>(count_), "%1 swatch", "%1 swatches");
    told.description = description_;
    return told;
}

AccessibleRow ResultList::accessibleRow(int row) const {
    if (!has(row)) return {};
    const ResultRow line = row_(row);
    const std::string difference =
        line.difference.empty() ? "" : translated(", difference %1", line.difference);
    return {line.name, line.place + difference + ", " + spokenText(line.colour), rowRect(row)};
}

std::optional<int> ResultList::accessibleSelectedRow() const {
    return has(own_) ? std::optional(own_) : std::nullopt;
}

int ResultList::accessibleRowAt(Point point) const {
    const double row = std::floor((point.y - bounds().y - 2) / kPitch);
    return row >= 0 && row < 1e6 ? static_cast<int>(row) : -1;
}

void ResultList::selectAccessibleRow(int row) {
    if (has(row)) moveTo(row, false);
}

} // namespace chromalog
