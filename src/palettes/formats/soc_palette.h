#pragma once

#include "palettes/palette.h"

#include <string_view>

namespace chromalog {

/// Palettes of office programs (.soc): XML, one draw:color a colour. A file that declares entities of its own
/// is refused.
ReadPalette readSocPalette(Bytes file);
std::vector<std::uint8_t> writeSocPalette(const Palette&);

/// Text between XML's tags and in its attributes.
std::string xmlText(std::string_view text);
/// Without the characters that XML cannot hold; a space stands for each.
std::string withoutXmlControls(std::string_view text);

} // namespace chromalog
