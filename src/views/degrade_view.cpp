#include "views/degrade_view.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr int last = gradientCells - 1;

/// The blend of two corners at a row, in double, kept in single precision.
float alongRows(double upper, double lower, int row) {
    return static_cast<float>((upper * row + lower * (last - row)) / last);
}

/// The blend between the two sides at a column, in single precision.
float alongColumns(float left, float right, int column) {
    return (left * column + right * (last - column)) / last;
}

/// Whether a coordinate lies in the cells of the upper or right half, on a grid of the view's width.
bool inFarHalf(double coordinate, double width) {
    return width > 0 && static_cast<int>(std::clamp(gradientCells * coordinate / width, -1.0, 16.0)) >= 8;
}

} // namespace

Colour gradientCell(const GradientCorners& c, int row, int column) {
    const auto blend = [&](double (Colour::*channel)() const) {
        const float left = alongRows((c.UL.*channel)(), (c.LL.*channel)(), row);
        const float right = alongRows((c.UR.*channel)(), (c.LR.*channel)(), row);
        return alongColumns(left, right, column);
    };
    return Colour::rgb(blend(&Colour::red), blend(&Colour::green), blend(&Colour::blue));
}

void degradeView::drawRect(Canvas& canvas) {
    if (!canvas.drawsToScreen()) return; // paper gets pages of its own
    const double side = frame().w / gradientCells;
    for (int row = 0; row < gradientCells; ++row)
        for (int column = 0; column < gradientCells; ++column) {
            const Rect cell{column * side, row * side, side, side};
            canvas.setFill(gradientCell(corners_, row, column));
            canvas.fillRect(cell);
            canvas.frameRect(cell, 1);
        }
}

DragOperation degradeView::draggingEntered(const DragInfo& info) {
    return info.sourceAllows && info.pasteboard.colourType ? DragOperation::copy : DragOperation::none;
}

bool degradeView::performDragOperation(const DragInfo& info) {
    if (!info.pasteboard.colourType || !info.pasteboard.colour) return false;
    const bool right = inFarHalf(info.location.x, bounds().w);
    const bool upper = inFarHalf(info.location.y, bounds().w); // the width serves both
    Colour& corner = right ? (upper ? corners_.UL : corners_.LL) : (upper ? corners_.UR : corners_.LR);
    corner = info.pasteboard.colour->withAlpha(1.0);
    setNeedsDisplay();
    return true;
}

void degradeView::moveCell(int right, int up) {
    column_ = std::clamp(column_ + right, 0, last);
    row_ = std::clamp(row_ + up, 0, last);
}

void degradeView::moveToRowEnd(int direction) {
    column_ = direction < 0 ? 0 : last;
}

void degradeView::standAt(Point p) {
    const double side = frame().w / gradientCells;
    if (!(side > 0)) return;
    column_ = static_cast<int>(std::clamp<double>(p.x / side, 0, last));
    row_ = static_cast<int>(std::clamp<double>(p.y / side, 0, last));
}

Point degradeView::cellCentre() const {
    const double side = frame().w / gradientCells;
    return {(column_ + 0.5) * side, (row_ + 0.5) * side};
}

} // namespace chromalog
