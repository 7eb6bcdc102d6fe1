#pragma once

#include "standalone/conversion/colour_converter.h"

namespace chromalog::standalone {

/// sRGB against CIE values relative to D50, in the host's 8-bit coding (L 0..255 = 0..100; a and b + 128;
/// X, Y and Z 0..255 = 0..1). Colours out of the RGB cube are clipped.
Components labToRgb(const Components& lab);
Components rgbToLab(const Components& rgb);
Components xyzToRgb(const Components& xyz);
Components rgbToXyz(const Components& rgb);
/// The grey of the same luminance.
Components rgbToGray(const Components& rgb);

} // namespace chromalog::standalone
