#pragma once

#include "judge/contrast_panel.h"
#include "judge/custom_angle.h"
#include "judge/gamut_warning.h"

#include <functional>

namespace chromalog {

/// What the tools work with. All of it lives longer than they do.
struct JudgeToolsParts {
    WorkingColours& colours;
    chromaticCircleView& wheel;
    Desktop& desktop;
    Outlet<Window>& dialog; ///< carries the panels
    ColorServicesProc services;
    ColourOperations& atHand; ///< of the wells
    std::function<void(std::vector<OutletEntry>)>
        haveMoreWells; ///< once, when the custom angle is shown first
};

/// The tools that judge the two colours: contrast, gamut, and a harmony of any angle. Panels are made when
/// they are first asked for.
class JudgeTools {
  public:
    explicit JudgeTools(JudgeToolsParts parts);

    std::vector<OutletEntry> table() { return gamut_.table(); }
    std::vector<ActionEntry> actions();
    void start() { gamut_.start(); } ///< after the outlets are connected
    void colourChanged();

    CustomAngle* customAngle() { return angle_.get(); } ///< null until it was shown

  private:
    void showContrast();
    void showCustomAngle();

    JudgeToolsParts parts_;
    GamutWarning gamut_;
    std::unique_ptr<ContrastPanel> contrast_;
    std::unique_ptr<CustomAngle> angle_;
};

} // namespace chromalog
