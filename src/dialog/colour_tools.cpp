#include "dialog/colour_tools.h"

namespace chromalog {

ColourTools::ColourTools(ColourToolsParts parts)
    : parts_(std::move(parts)),
      judge_({parts_.colours, parts_.views.wheel, parts_.desktop, parts_.dialog, parts_.services,
              parts_.atHand,
              [this](std::vector<OutletEntry> wells) { parts_.atHand.haveMoreWells(std::move(wells)); }}) {}

std::vector<OutletEntry> ColourTools::table() {
    return judge_.table();
}

std::vector<ActionEntry> ColourTools::actions() {
    return judge_.actions();
}

void ColourTools::start() {
    judge_.start();
}

void ColourTools::colourChanged(Cause) {
    judge_.colourChanged();
}

} // namespace chromalog
