#pragma once

#include "views/chromatic_circle_view.h"
#include "views/degrade_view.h"
#include "views/luminosity_view.h"
#include "views/tone_view.h"

#include <vector>

namespace chromalog {

/// The four views of the colours, and what chooses between the gradient and the tone chart, which share a
/// place.
class ColourViews {
  public:
    ColourViews(WorkingColours& colours, Desktop& desktop)
        : wheel(colours), strip(colours), tone(colours, desktop), gradient(desktop) {}

    chromaticCircleView wheel;
    luminosityView strip;
    toneView tone;
    degradeView gradient;
    Outlet<Button> toneOrDegrade; ///< state 1: the tone chart

    std::vector<OutletEntry> table(); ///< each under the name that interface files give it
    std::vector<ActionEntry> actions();
    void start(); ///< after the outlets are connected: the gradient shows

    void redrawCircle(); ///< rebuilds the wheel's picture
    void place(const Colour& second);

  private:
    void switchTone();
};

} // namespace chromalog
