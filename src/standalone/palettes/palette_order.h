#pragma once

#include "palettes/fit_palette.h"
#include "spaces/lab.h"

namespace chromalog::standalone {

/// By name as bytes; by hue in OKLCH from 0 degrees, greys first from dark to light; by lightness in Lab.
enum class PaletteOrder { asItIs, name, hue, lightness };

/// Equal ones keep their order.
void sortPalette(Palette&, PaletteOrder, const CmykToRgb&);

/// Leaves out every colour that differs from an earlier one, which is kept, by at most so much (CIEDE2000).
void dropNearDoubles(Palette&, double difference, const CmykToRgb&);

/// Of all colours; black for references to colour books.
std::vector<Lab> labsOf(const Palette&, const CmykToRgb&);

} // namespace chromalog::standalone
