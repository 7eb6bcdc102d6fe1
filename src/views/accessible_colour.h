#pragma once

#include "colour/colour.h"

#include <string>

namespace chromalog {

/// A colour as assistive technology tells it, components truncated to 0..255: "RGB 12 34 56, #0c2238".
std::string accessibleColour(const Colour&);

} // namespace chromalog
