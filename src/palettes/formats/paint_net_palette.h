#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Paint.NET palettes (.txt): AARRGGBB a line, comments after semicolons, no names.
ReadPalette readPaintNetPalette(Bytes file);
std::vector<std::uint8_t> writePaintNetPalette(const Palette&);

} // namespace chromalog
