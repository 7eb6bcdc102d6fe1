#pragma once

#include "palettes/palette_format.h"
#include "spaces/rgb.h"

#include <functional>

namespace chromalog {

/// Who converts ink: a host's colour services, a colour management library. Answers are clamped.
using CmykToRgb = std::function<Rgb(const PaletteComponents& cmyk)>;

/// Inside sRGB. Lab outside it is brought inside; HSB, Lab and grey are closed forms. Not for references.
Rgb rgbOf(const PaletteColour&, const CmykToRgb&);
/// The same as an RGB colour with its name, group and alpha.
PaletteColour inRgb(PaletteColour, const CmykToRgb&);

/// What a format keeps of a palette: exactly what reading the written file gives. References to colour books
/// that it cannot keep are left out.
FittedPalette fitPalette(const Palette&, PaletteFormat, const CmykToRgb&);

/// A palette's colours but for references, at most so many.
FittedPalette withoutReferences(const Palette&, std::size_t most, bool keepReferences = false);

} // namespace chromalog
