#pragma once

#include "base/geometry.h"
#include "desktop/controls.h"

#include <algorithm>
#include <cstdint>
#include <limits>

/// Where things stand in a swatch list: points, y down. `bounds` is the view's bounds, `frameY` its frame's
/// origin.
namespace chromalog::swatch_geometry {

inline constexpr double kRowPitch = ScrollView::kRowPitch; ///< a step scrolls one row
inline constexpr double kMargin = 5;
inline constexpr double kPatchWidth = 32;
inline constexpr double kPatchHeight = 16;

constexpr Rect patchRectForRow(const Rect& bounds, double frameY, int row) {
    return {bounds.x + kMargin, frameY + kRowPitch * row + kMargin, kPatchWidth, kPatchHeight};
}

/// The left end of the name's baseline.
constexpr Point textOriginForRow(const Rect& bounds, double frameY, int row) {
    return {bounds.x + kMargin + kPatchWidth + 5, frameY + kRowPitch * row + kMargin + kPatchHeight - 3};
}

/// A name of full width runs 10 points past the view's right edge: kept.
constexpr double textWidth(const Rect& bounds) {
    return bounds.w - kPatchWidth;
}

/// Stands on the bounds' origin where the patch stands on the frame's: kept.
constexpr Rect selectionRectForRow(const Rect& bounds, int row) {
    return {bounds.x + 4, bounds.y + kRowPitch * row + 4, bounds.w - 5, 18};
}

/// Truncated toward zero, so that the top margin belongs to row 0; not checked against the count. Points that
/// no list reaches are clamped to the 16-bit range.
constexpr std::int16_t rowAtPoint(Point p) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double row = (p.y - kMargin) / kRowPitch;
    if (!(row > Limits::min())) return Limits::min();
    return static_cast<std::int16_t>(std::min<double>(row, Limits::max()));
}

/// One spare row stands below the last swatch. `visibleHeight` is the clip's, 0 without one.
constexpr double contentHeight(int count, double visibleHeight) {
    return std::max(kRowPitch * (count + 1), visibleHeight);
}

/// How far a row's ink may stand above its patch's top and below it: the blue frame and the tallest glyphs.
inline constexpr double kInkAbove = 8;
inline constexpr double kInkBelow = 26;

/// Rows from `first` up to, and without, `end`.
struct RowRange {
    int first = 0, end = 0;
};

/// The first of `count` rows whose patch has its top below a line.
constexpr int firstRowBelow(double line, double frameY, int count) {
    const double row = (line - frameY - kMargin) / kRowPitch; // the row whose patch would begin on the line
    if (!(row >= 0)) return 0;
    return row < count ? static_cast<int>(row) + 1 : count;
}

/// The rows that are drawn at all: a row whose patch begins at 0 or above is skipped.
constexpr RowRange drawnRows(double frameY, int count) {
    return {firstRowBelow(0, frameY, count), count};
}

/// The drawn rows that can leave a mark inside the clip.
constexpr RowRange rowsInClip(const Rect& clip, double frameY, int count) {
    const int first =
        std::max(firstRowBelow(clip.y - kInkBelow, frameY, count), drawnRows(frameY, count).first);
    return {first, std::max(first, firstRowBelow(clip.y + clip.h + kInkAbove, frameY, count))};
}

} // namespace chromalog::swatch_geometry
