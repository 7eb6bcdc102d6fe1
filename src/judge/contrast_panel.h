#pragma once

#include "base/translated.h"
#include "colour/working_colours.h"
#include "desktop/desktop.h"
#include "judge/contrast_sample.h"
#include "spaces/colour_blindness.h"

#include <memory>

namespace chromalog {

/// The contrast of the first colour on the second one, for every eye: a panel that floats above the dialog
/// and follows both colours while it shows. Of a colour it takes the 8-bit values that texts tell, so that
/// other checks of the same hex codes agree.
class ContrastPanel {
  public:
    ContrastPanel(const WorkingColours&, Desktop&, Window& dialog);

    void show();
    void follow(); ///< nothing while it is hidden

  private:
    struct Eye {
        ColourBlindness blindness;
        const char *sampleOutlet, *ratioOutlet;
        ContrastSample sample;
        Outlet<TextField> ratio{};
    };
    FormOwner owner();

    const WorkingColours& colours_;
    Outlet<Window> contrastWindow;
    Outlet<TextField> contrastRatioLabel, contrastNormal, contrastLarge;
    ContrastSample sample_{translated("First color and second color")};
    Eye eyes_[3] = {{ColourBlindness::protanopia, "contrastProtanopia", "protanopiaRatio",
                     ContrastSample(translated("As seen with protanopia"))},
                    {ColourBlindness::deuteranopia, "contrastDeuteranopia", "deuteranopiaRatio",
                     ContrastSample(translated("As seen with deuteranopia"))},
                    {ColourBlindness::tritanopia, "contrastTritanopia", "tritanopiaRatio",
                     ContrastSample(translated("As seen with tritanopia"))}};
    std::unique_ptr<Form> form_; ///< after the outlets and the views: its controls go first
};

} // namespace chromalog
