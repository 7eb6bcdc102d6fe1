#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Paint Shop palettes (.pal): text after "JASC-PAL", a colour a line, no names.
ReadPalette readJascPalette(Bytes file);
std::vector<std::uint8_t> writeJascPalette(const Palette&);

} // namespace chromalog
