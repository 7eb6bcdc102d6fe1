#pragma once

#include "spaces/srgb.h"

namespace chromalog {

/// CIE 1931 tristimulus values, Y of the white point = 1, relative to D65 (x 0.3127, y 0.3290), the white of
/// sRGB.
struct XyzD65 {
    double x = 0, y = 0, z = 0;
};

/// The same relative to D50 (x 0.3457, y 0.3585), the white of CIE Lab here.
struct XyzD50 {
    double x = 0, y = 0, z = 0;
};

/// Both whites by their chromaticities to four digits, as CSS Color 4 takes them; profiles round D50 to
/// 0.9642, 1, 0.8249 instead.
inline constexpr XyzD65 kWhiteD65{0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290};
inline constexpr XyzD50 kWhiteD50{0.3457 / 0.3585, 1, (1 - 0.3457 - 0.3585) / 0.3585};

/// By the primaries of ITU-R BT.709, which IEC 61966-2-1 names.
XyzD65 xyzD65Of(const LinearRgb& linear);
LinearRgb linearRgbOf(const XyzD65& xyz);

/// By the linear Bradford adaptation (Lam 1985; ICC.1:2010, annex E).
XyzD50 xyzD50Of(const XyzD65& xyz);
XyzD65 xyzD65Of(const XyzD50& xyz);

} // namespace chromalog
