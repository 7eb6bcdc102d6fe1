#pragma once

#include "standalone/conversion/colour_converter.h"

namespace chromalog::standalone {

/// Hue models over 8-bit RGB. Hue is 0..359 degrees, the other two 0..255; grey has hue 0.
Components hsbToRgb(const Components& hsb);
Components rgbToHsb(const Components& rgb);
Components hslToRgb(const Components& hsl);
Components rgbToHsl(const Components& rgb);

} // namespace chromalog::standalone
