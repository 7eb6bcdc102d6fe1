#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// Puts the colours of each group together, in the order in which the groups are met, and gives each a name
/// of its own among the colours and groups there: an object's keys differ, and it is written in one piece.
void arrangeTokens(FittedPalette&);

/// The names of nested groups.
std::vector<std::string> groupNames(const std::string& group);

} // namespace chromalog
