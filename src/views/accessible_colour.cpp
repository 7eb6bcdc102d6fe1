#include "views/accessible_colour.h"

#include "base/colour_text.h"

namespace chromalog {

std::string accessibleColour(const Colour& colour) {
    return spokenText({wordOf(colour.red()), wordOf(colour.green()), wordOf(colour.blue())});
}

} // namespace chromalog
