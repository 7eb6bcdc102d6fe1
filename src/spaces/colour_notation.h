#pragma once

#include "spaces/rgb.h"

#include <string>

namespace chromalog {

/// How a colour is written.
enum class ColourNotation {
    hex,       ///< #336699, with alpha #33669980
    rgb,       ///< rgb(51 102 153), rgb(51 102 153 / 0.5)
    rgbCommas, ///< rgb(51, 102, 153), rgba(51, 102, 153, 0.5): read everywhere
    hsl,       ///< hsl(210 50% 40%)
    hsb,       ///< hsb(210 66.7% 60%): no CSS, but what design programs show
    lab,       ///< lab(41.5 -4.6 -33.5), relative to D50
    lch,       ///< lch(41.5 33.8 262.2)
    oklab,     ///< oklab(49.9% -0.033 -0.093)
    oklch,     ///< oklch(49.9% 0.099 250.4)
    unit,      ///< 0.200, 0.400, 0.600: the encoded components
};

/// Clamped to sRGB. Alpha is written where its byte is below 255. Every notation but `unit` is one that
/// readCssColour reads back as the same 8-bit colour, with as few decimals as that takes; `unit` has three
/// decimals, which tell all bytes apart.
std::string colourText(const Rgb& rgb, ColourNotation notation, double alpha = 1.0);

} // namespace chromalog
