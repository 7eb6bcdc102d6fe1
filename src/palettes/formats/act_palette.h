#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Colour tables (.act): 256 RGB colours without names; four more bytes tell how many count. The index of a
/// transparent colour is not read.
ReadPalette readActPalette(Bytes file);
std::vector<std::uint8_t> writeActPalette(const Palette&);

} // namespace chromalog
