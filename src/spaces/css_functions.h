#pragma once

#include "spaces/css_colour.h"

namespace chromalog {

/// `name(arguments)` in lower case, nothing around it: the functions that css_colour.h lists.
std::optional<ReadColour> readCssFunction(std::string_view text);

} // namespace chromalog
