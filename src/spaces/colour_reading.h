#pragma once

#include "spaces/colour_notation.h"
#include "spaces/css_colour.h"

#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// A colour's components in a notation that is a function, without the function's name and brackets:
/// "210 50% 40%" for HSL.
std::string readingText(const Rgb& rgb, ColourNotation notation);

/// Reads what readingText writes of a function, also with commas and degree signs, and every text that
/// readCssColour reads and that begins with no digit. Nothing for any other text.
std::optional<ReadColour> readReading(std::string_view text, ColourNotation notation);

} // namespace chromalog
