#pragma once

#include "desktop/canvas.h"

#include <cstdint>
#include <string>
#include <vector>

namespace chromalog {

/// One line of text. The box's origin is the line's baseline; its size neither wraps nor clips.
struct PrintLabel {
    Rect box;
    std::string text; ///< UTF-8
    friend bool operator==(const PrintLabel&, const PrintLabel&) = default;
};

/// A colour patch without an outline, and the lines that go with it.
struct PrintCell {
    Rect patch;
    Colour colour;
    std::vector<PrintLabel> labels;
};

/// What one sheet shows, in points from its top left corner, y down, in drawing order: each cell's patch and
/// labels, then the footer.
struct PrintPage {
    std::vector<PrintCell> cells;
    std::vector<PrintLabel> footer;
};

inline constexpr Font kPrintFont{Font::Face::message, 6};

/// Paints what falls on the sheet; text is black.
void paintPage(const PrintPage&, Canvas&);

/// A component of any size × 255, truncated to a whole number and cut to 8 bits, as labels show it: 1.0 is
/// 255, 2.0 is 254.
std::uint8_t printedByte(double component);

} // namespace chromalog
