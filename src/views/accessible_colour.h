#pragma once

#include "base/colour.h"

#include <string>

namespace chromalog {

/// A colour as assistive technology tells it: "RGB 12 34 56, #0c2238", the 8-bit values of what OK returns.
std::string accessibleColour(const Colour&);

} // namespace chromalog
