#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// The groups of a swatch file's colours, in their order: hosts append them behind the colours (`8BIM`,
/// `phry`, a length, a descriptor that lists starts of groups, colours and ends of groups). As many as the
/// block tells of, those of colours outside of any group empty; none where the rest is something else.
std::vector<std::string> swatchGroups(Bytes rest);

} // namespace chromalog
