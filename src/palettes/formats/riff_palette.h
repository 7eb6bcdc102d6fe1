#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Palettes of Windows (.pal): a RIFF file of RGB colours without names.
ReadPalette readRiffPalette(Bytes file);
std::vector<std::uint8_t> writeRiffPalette(const Palette&);

} // namespace chromalog
