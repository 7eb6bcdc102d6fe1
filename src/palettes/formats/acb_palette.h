#pragma once

#include "palettes/palette.h"

#include <string_view>

namespace chromalog {

/// Colour books (.acb) as published: a colour's name is prefix, name and postfix; records without a name only
/// fill a page and are left out. All colours of a book are of one space.
ReadPalette readAcbPalette(Bytes file);
/// Of at most 8,000 colours with names and of one space, RGB, CMYK or Lab.
std::vector<std::uint8_t> writeAcbPalette(const Palette&);

/// A book's text may be the key of a translation, "$$$/key=text": what stands after "=" counts. ^R and ^C are
/// the signs of registration and copyright.
std::string plainBookText(std::string_view text);

} // namespace chromalog
