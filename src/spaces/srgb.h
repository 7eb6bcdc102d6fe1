#pragma once

#include "spaces/rgb.h"

namespace chromalog {

/// Light in proportion to the sRGB primaries: 0..1 inside the gamut, unclamped.
struct LinearRgb {
    double red = 0, green = 0, blue = 0;
};

/// The curve of IEC 61966-2-1 and its inverse; negative values mirror at 0, as CSS Color 4 extends it.
double decodeSrgb(double encoded);
double encodeSrgb(double linear);

LinearRgb linearRgbOf(const Rgb& rgb);
Rgb rgbOf(const LinearRgb& linear);

} // namespace chromalog
