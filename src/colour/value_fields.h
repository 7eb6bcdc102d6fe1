#pragma once

#include "base/colour.h"
#include "desktop/controls.h"
#include "desktop/outlet.h"
#include "record/host_conversion.h"

#include <array>
#include <cstdint>

namespace chromalog {

/// The seven fields of one working colour (or of the nearest swatch): 0..255, and whole percentages of ink.
struct ValueFields {
    Outlet<TextField> R, G, B, C, M, Y, K;
};

/// Host inks: 0..255 with 255 = no ink; cyan, magenta, yellow, black.
using Inks = std::array<std::int16_t, 4>;

/// Percent of ink that a host component stands for: (255 − c) × 100 / 255, truncated toward zero.
int inkPercent(std::int16_t hostComponent);
/// The ink percentages of 8-bit red, green and blue, asked of the host. Where the conversion fails, the
/// values are used as they stand: C, M and Y then show the inverted RGB, and K shows 100.
std::array<int, 4> inkPercents(std::array<int, 3> rgb, ColorServicesProc services);

void showRgb(ValueFields&, const Colour&);
void showCmyk(ValueFields&, const Colour&, ColorServicesProc services);

Colour colourFromRgbFields(const ValueFields&); ///< field as float / 255.0; alpha 1
Inks firstInks(const ValueFields&);             ///< (100.0 − field) × 255.0 / 100.0 in single precision
Inks secondInks(const ValueFields&); ///< (100 − field) × 255 / 100 in integers: another rounding, kept

/// Converts the inks to RGB through the host; the RGB fields take the three values directly.
Colour colourFromInks(Inks, ValueFields&, ColorServicesProc services);

} // namespace chromalog
