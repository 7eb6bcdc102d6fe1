#pragma once

#include "spaces/xyz.h"

namespace chromalog {

/// OKLab (Ottosson 2020), relative to D65. Lightness 0..1; a and b within about -0.32..0.28 for sRGB.
struct Oklab {
    double lightness = 0, a = 0, b = 0;
};

/// The same in polar form. Chroma from 0, up to about 0.33 for sRGB; hue in degrees, 0..360 exclusive, 0 for
/// greys (chroma below 1e-6, which is rounding).
struct Oklch {
    double lightness = 0, chroma = 0, hue = 0;
};

Oklab oklabOf(const XyzD65& xyz);
Oklab oklabOf(const Rgb& rgb);
Oklab oklabOf(const Oklch& oklch);
Oklch oklchOf(const Oklab& oklab);
Oklch oklchOf(const Rgb& rgb);
XyzD65 xyzD65Of(const Oklab& oklab);
Rgb rgbOf(const Oklab& oklab); ///< unclamped
Rgb rgbOf(const Oklch& oklch); ///< unclamped

} // namespace chromalog
