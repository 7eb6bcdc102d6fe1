#include "judge/contrast_panel.h"

#include "judge/contrast_text.h"
#include "spaces/returned_rgb.h"

namespace chromalog {
namespace {

Rgb toldRgb(const Colour& colour) {
    return rgbOfBytes(bytesOf(returnedRgb(colour)));
}

void showPair(ContrastSample& sample, Outlet<TextField>& label, const Rgb& first, const Rgb& second) {
    const std::string ratio = ratioText(contrastRatio(first, second));
    sample.show(colourOf(first), colourOf(second), ratio);
    label->setText(ratio);
}

} // namespace

ContrastPanel::ContrastPanel(const WorkingColours& colours, Desktop& desktop, Window& dialog)
    : colours_(colours), form_(desktop.loadForm("ContrastPanel", owner())) {
    if (!form_) desktop.log("failed to load the form ContrastPanel");
    contrastWindow->whenClosed([this] { contrastWindow->orderOut(); });
    contrastWindow->attachAsChildOf(dialog);
}

FormOwner ContrastPanel::owner() {
    FormOwner owner{{{"contrastWindow", &contrastWindow},
                     {"contrastRatio", &contrastRatioLabel},
                     {"contrastNormal", &contrastNormal},
                     {"contrastLarge", &contrastLarge},
                     {"contrastSample", &sample_}},
                    {}};
    for (Eye& eye : eyes_) {
        owner.outlets.push_back({eye.sampleOutlet, &eye.sample});
        owner.outlets.push_back({eye.ratioOutlet, &eye.ratio});
    }
    return owner;
}

void ContrastPanel::show() {
    contrastWindow->makeKeyAndOrderFront();
    follow();
}

void ContrastPanel::follow() {
    if (!contrastWindow->visible()) return;
    const Rgb first = toldRgb(colours_.getFirstColor()), second = toldRgb(colours_.getSecondColor());
    showPair(sample_, contrastRatioLabel, first, second);
    const double ratio = contrastRatio(first, second);
    contrastNormal->setText(levelText(ratio, TextSize::normal));
    contrastLarge->setText(levelText(ratio, TextSize::large));
    for (Eye& eye : eyes_)
        showPair(eye.sample, eye.ratio, seenWith(eye.blindness, first), seenWith(eye.blindness, second));
}

} // namespace chromalog
