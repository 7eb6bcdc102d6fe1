#pragma once

#include "palettes/palette.h"

#include <string_view>

namespace chromalog {

/// Style sheets (.css): the custom properties whose value is a colour of CSS, in any notation; variables of
/// Sass too. Written is one rule for :root, of colours whose names are identifiers.
ReadPalette readCssPalette(Bytes file);
std::vector<std::uint8_t> writeCssPalette(const Palette&);

/// A name as a custom property has it, without its dashes in front: runs of ASCII that is neither letter,
/// digit nor underscore become one dash, and none at the ends. It may be empty.
std::string cssIdentifier(std::string_view name);

} // namespace chromalog
