#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Swatch files (.aco) as published: components are unsigned, grey counts from white, names are whole. A
/// section of version 2 after one of version 1 has the same colours with names; either may stand alone. Both
/// are written. The groups that hosts append are read, and not written. (What the Load and Save buttons make
/// of such a file is aco_reader's and aco_writer's, and differs.) A file that ends early gives what it has.
ReadPalette readAcoPalette(Bytes file);
std::vector<std::uint8_t> writeAcoPalette(const Palette&);

} // namespace chromalog
