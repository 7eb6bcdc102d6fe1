#include "dialog/colour_tools.h"

namespace chromalog {

std::vector<OutletEntry> ColourTools::table() {
    return {};
}

std::vector<ActionEntry> ColourTools::actions() {
    return {};
}

void ColourTools::colourChanged(Cause) {}

} // namespace chromalog
