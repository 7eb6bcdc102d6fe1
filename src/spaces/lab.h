#pragma once

#include "spaces/xyz.h"

namespace chromalog {

/// CIE 1976 L*a*b* relative to D50 (CIE 15:2004). Lightness 0..100; a and b within about -110..95 for sRGB.
struct Lab {
    double lightness = 0, a = 0, b = 0;

    friend bool operator==(const Lab&, const Lab&) = default;
};

/// The same in polar form. Chroma from 0; hue in degrees, 0..360 exclusive, 0 for greys (chroma below 1e-6,
/// which is rounding).
struct Lch {
    double lightness = 0, chroma = 0, hue = 0;
};

Lab labOf(const XyzD50& xyz);
Lab labOf(const Rgb& rgb);
Lab labOf(const Lch& lch);
Lch lchOf(const Lab& lab);
XyzD50 xyzD50Of(const Lab& lab);
Rgb rgbOf(const Lab& lab); ///< unclamped
Rgb rgbOf(const Lch& lch); ///< unclamped

} // namespace chromalog
