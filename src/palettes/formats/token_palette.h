#pragma once

#include "palettes/palette.h"

#include <string_view>

namespace chromalog {

/// Design tokens (.json), the format of the W3C community group: nested groups, a token's key is its name,
/// its $value a text or an object of colorSpace and components; a value in braces stands for another token's.
/// Members whose plain text is a hex colour, and lists of such texts, are read too. More than 64 levels are
/// refused.
ReadPalette readTokenPalette(Bytes file);
/// Of colours that stand together with their groups, with names of their own in them.
std::vector<std::uint8_t> writeTokenPalette(const Palette&);

/// A text as a key: without what the format keeps for itself (a dollar in front, full stops, braces). It may
/// be empty.
std::string tokenKey(std::string_view text);

} // namespace chromalog
