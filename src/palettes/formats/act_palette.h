#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Colour tables (.act): 256 RGB colours without names; four more bytes tell how many count, and which
/// of them is transparent; that is read, and not written.
ReadPalette readActPalette(Bytes file);
std::vector<std::uint8_t> writeActPalette(const Palette&);

} // namespace chromalog
