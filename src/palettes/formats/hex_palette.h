#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Lists of hex colours (.hex, .txt): a colour a line with or without its hash, then its name. Written with
/// the hash. Lines after // or ; are comments; any other line without a colour counts as unread.
ReadPalette readHexPalette(Bytes file);
std::vector<std::uint8_t> writeHexPalette(const Palette&);

} // namespace chromalog
