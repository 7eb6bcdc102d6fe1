#pragma once

#include "spaces/lab.h"

#include <string_view>

namespace chromalog {

/// The named colour of CSS Color 4 with the least CIEDE2000 difference, the first by letter where several
/// share it: "aqua" for cyan, "gray" for grey. Always one.
std::string_view nearestCssName(const Lab& lab);
std::string_view nearestCssName(const Rgb& rgb);

} // namespace chromalog
