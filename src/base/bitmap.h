#pragma once

#include "base/colour.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace chromalog {

inline constexpr int kLongestSide = 32767; ///< pixels: further out the toolkit's painter does not paint

/// A picture, row 0 at the top, 32 bits a pixel: alpha, red, green, blue from the highest byte down,
/// straight (not premultiplied). The order is the one that screens of little-endian machines want.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; ///< width * height
    bool cut = false; ///< said to be opaque or 0 in every pixel, which is drawn in half the time

    bool empty() const { return width <= 0 || height <= 0; }

    /// The pixel nearest to (column, row); component = byte / 255.0. Opaque black where the picture is empty.
    Colour colourAt(double column, double row) const {
        if (empty()) return {};
        return colourOf(
            pixels[static_cast<std::size_t>(clamped(row, height)) * width + clamped(column, width)]);
    }

    static Colour colourOf(std::uint32_t argb) {
        return Colour::rgb(((argb >> 16) & 0xFF) / 255.0, ((argb >> 8) & 0xFF) / 255.0, (argb & 0xFF) / 255.0,
                           (argb >> 24) / 255.0);
    }

    /// The nearest of `count` places; 0 for no number.
    static int clamped(double v, int count) { return v > 0 ? static_cast<int>(std::min(v, count - 1.0)) : 0; }
};

} // namespace chromalog
