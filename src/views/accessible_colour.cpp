#include "views/accessible_colour.h"

#include <array>
#include <cstdio>

namespace chromalog {

std::string accessibleColour(const Colour& colour) {
    const int r = static_cast<int>(colour.red() * 255);
    const int g = static_cast<int>(colour.green() * 255);
    const int b = static_cast<int>(colour.blue() * 255);
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "RGB %d %d %d, #%02x%02x%02x", r, g, b, r, g, b);
    return text.data();
}

} // namespace chromalog
