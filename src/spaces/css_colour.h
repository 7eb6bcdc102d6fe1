#pragma once

#include "spaces/rgb.h"

#include <optional>
#include <string_view>

namespace chromalog {

/// What a text gives: a colour inside sRGB.
struct ReadColour {
    Rgb rgb;
    double alpha = 1; ///< 0..1
    bool mapped =
        false; ///< the written colour lies outside sRGB by half a byte or more and was brought inside
};

/// Reads a colour as people write and paste it, in any letter case:
///   #rgb #rgba #rrggbb #rrggbbaa; bare hex of 3, 6 or 8 digits
///   the named colours of CSS Color 4 and transparent
///   rgb() rgba() hsl() hsla() hwb() lab() lch() oklab() oklch() of CSS Color 4, and hsb() hsv()
/// with white space around it, a trailing semicolon or comma, quotes, or as a declaration (`color: #abc;`,
/// `--name: red`, `"name": "#abc",`), which gives the value. Functions take commas or white space,
/// percentages, angles in deg, grad, rad and turn, and none; alpha stands after a slash or a third comma.
/// Components beyond their range are clamped as CSS does; a colour outside sRGB is mapped (gamut.h). Nothing
/// for any other text, and for one of more than 200 bytes.
std::optional<ReadColour> readCssColour(std::string_view text);

} // namespace chromalog
