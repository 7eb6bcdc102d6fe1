#pragma once

#include "spaces/rgb.h"

namespace chromalog {

/// CSS Color 4, section 7. Hue in degrees, 0..360 exclusive, 0 for greys; the others 0..1; saturation is 0
/// for black and white.
struct Hsl {
    double hue = 0, saturation = 0, lightness = 0;
};

/// CSS Color 4, section 8. Hue as above; whiteness and blackness 0..1. Where their sum reaches 1 the colour
/// is the grey of their ratio.
struct Hwb {
    double hue = 0, whiteness = 0, blackness = 0;
};

Hsl hslOf(const Rgb& rgb); ///< components outside 0..1 are clamped first
Hwb hwbOf(const Rgb& rgb); ///< components outside 0..1 are clamped first
Rgb rgbOf(const Hsl& hsl); ///< any hue; 0..1 for saturation and lightness of 0..1
Rgb rgbOf(const Hwb& hwb);

} // namespace chromalog
