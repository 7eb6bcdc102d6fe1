#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// A sheet of labelled rectangles for people and drawing programs; each has the colour's name as its title.

std::vector<std::uint8_t> writeSvgPalette(const Palette&);

} // namespace chromalog
