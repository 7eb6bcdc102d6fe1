#include "swatches/list_marks.h"

#include "swatches/swatch_list_geometry.h"

#include <algorithm>

namespace chromalog {
namespace {

namespace geometry = swatch_geometry;

constexpr double kLandedSeconds = 1.5; ///< that a mark of a landing stands
constexpr double kFadeStep = 0.1;      ///< seconds between two strengths

Colour selectionBlue() {
    return Colour::rgb(0, 0, 1);
}
Colour hitOrange() {
    return Colour::rgb(0.85, 0.35, 0);
}

/// Signs stand on a little ground of their own, left of the points of a search: a long name runs below. Their
/// colours leave the grounds of light and dark lists by more than 3:1.
void drawSign(Canvas& canvas, RowSign sign, Point middle) {
    const double x = middle.x, y = middle.y;
    canvas.setFill(Colour::rgb(1, 1, 1, 0.85));
    canvas.fillRect({x - 7, y - 7, 14, 14});
    Path path;
    if (sign == RowSign::onlyHere) {
        canvas.setFill(Colour::rgb(0.55, 0.25, 0));
        path.moveTo({x, y - 5});
        for (const Point p : {Point{x + 5, y}, Point{x, y + 5}, Point{x - 5, y}})
            path.lineTo(p);
        path.close();
        canvas.fillPath(path);
    } else if (sign == RowSign::inBoth) {
        canvas.setFill(Colour::rgb(0, 0.4, 0.2));
        canvas.fillRect({x - 5, y - 4, 10, 3});
        canvas.fillRect({x - 5, y + 1, 10, 3});
    } else {
        canvas.setStroke(Colour::rgb(0.6, 0, 0.2));
        canvas.setLineWidth(2.5);
        path.moveTo({x - 4, y - 4});
        path.lineTo({x + 4, y + 4});
        path.moveTo({x - 4, y + 4});
        path.lineTo({x + 4, y - 4});
        canvas.strokePath(path);
    }
}

/// Rows of which something can show in the clip.
geometry::RowRange shownIn(const Canvas& canvas, const CSwatchList& list) {
    return geometry::rowsInClip(canvas.clipBounds(), list.frame().y, list.shownRows());
}

/// Calls for each of some rising rows that lie in the range.
template <typename Call> void eachIn(const std::vector<int>& rows, geometry::RowRange range, Call call) {
    for (auto row = std::ranges::lower_bound(rows, range.first); row != rows.end() && *row < range.end; ++row)
        call(*row);
}

} // namespace

void ListMarks::draw(Canvas& canvas, const RowSelection& selection,
                     const std::function<bool(const FCOStruct&)>& isHit) const {
    const geometry::RowRange range = shownIn(canvas, list_);
    const Rect bounds = list_.bounds();
    const auto frame = [&](int row) { canvas.strokeRect(geometry::selectionRectForRow(bounds, row)); };
    canvas.setFill(selectionBlue());
    canvas.setStroke(selectionBlue());
    canvas.setLineWidth(1);
    eachIn(selection.rows(), range, [&](int row) {
        canvas.fillRect({bounds.x, bounds.y + geometry::kRowPitch * row + 4, 3, 18});
        frame(row);
    });
    drawSigns(canvas);
    if (isHit) drawHits(canvas, isHit);
    canvas.setStroke(Colour::rgb(0, 0.55, 0.2, strength_));
    canvas.setLineWidth(3);
    eachIn(landed_, range, frame);
    if (!gap_) return;
    const double y = bounds.y + geometry::kRowPitch * *gap_ + 3;
    canvas.setFill(Colour::rgb(1, 1, 1));
    canvas.fillRect({bounds.x, y - 2.5, bounds.w, 5});
    canvas.setFill(selectionBlue());
    canvas.fillRect({bounds.x, y - 1.5, bounds.w, 3});
}

void ListMarks::drawHits(Canvas& canvas, const std::function<bool(const FCOStruct&)>& isHit) const {
    const Rect bounds = list_.bounds();
    const geometry::RowRange range = shownIn(canvas, list_);
    const ConstListRecords shown = list_.shownRecords();
    canvas.setFill(hitOrange());
    for (int row = range.first; row < range.end; ++row)
        if (isHit(shown[static_cast<std::size_t>(row)]))
            canvas.fillRect({bounds.x + bounds.w - 5, bounds.y + geometry::kRowPitch * row + 5, 4, 16});
}

void ListMarks::drawSigns(Canvas& canvas) const {
    const Rect bounds = list_.bounds();
    const geometry::RowRange range = shownIn(canvas, list_);
    for (int row = range.first; row < std::min(range.end, static_cast<int>(signs_.size())); ++row)
        if (const RowSign sign = signs_[static_cast<std::size_t>(row)]; sign != RowSign::none)
            drawSign(canvas, sign, {bounds.x + bounds.w - 14, bounds.y + geometry::kRowPitch * row + 13});
}

void ListMarks::showSigns(std::vector<RowSign> signs) {
    if (signs == signs_) return;
    signs_ = std::move(signs);
    list_.setNeedsDisplay();
}

void ListMarks::showGap(std::optional<int> gap) {
    if (gap == gap_) return;
    gap_ = gap;
    list_.setNeedsDisplay();
}

void ListMarks::showLanded(std::vector<int> rows) {
    landed_ = std::move(rows);
    strength_ = 1;
    fading_.reset();
    list_.setNeedsDisplay();
    if (!landed_.empty())
        fading_ = desktop_.startTimer(desktop_.animates() ? kFadeStep : kLandedSeconds, [this] { fade(); });
}

void ListMarks::fade() {
    strength_ = desktop_.animates() ? strength_ - kFadeStep / kLandedSeconds : 0;
    fading_.reset();
    if (strength_ > 0.01)
        fading_ = desktop_.startTimer(kFadeStep, [this] { fade(); });
    else
        landed_.clear();
    list_.setNeedsDisplay();
}

} // namespace chromalog
