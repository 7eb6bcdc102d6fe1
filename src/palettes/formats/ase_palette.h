#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Swatch exchange files (.ase): groups of colours in RGB, CMYK, Lab or grey, as 32-bit reals. Counts of
/// blocks and missing ends of groups are forgiven: what stands in the file is read to its end.
ReadPalette readAsePalette(Bytes file);
std::vector<std::uint8_t> writeAsePalette(const Palette&);

} // namespace chromalog
