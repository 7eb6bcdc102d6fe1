#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// GIMP palettes (.gpl): text, a colour a line, names in UTF-8 (Latin 1 in old files).
ReadPalette readGplPalette(Bytes file);
std::vector<std::uint8_t> writeGplPalette(const Palette&);

} // namespace chromalog
