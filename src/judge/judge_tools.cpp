#include "judge/judge_tools.h"

namespace chromalog {

JudgeTools::JudgeTools(JudgeToolsParts parts)
    : parts_(std::move(parts)), gamut_(parts_.colours, parts_.wheel, parts_.desktop, parts_.services) {}

std::vector<ActionEntry> JudgeTools::actions() {
    return {{"showContrast:", [this] { showContrast(); }},
            {"showCustomAngle:", [this] { showCustomAngle(); }},
            {"toggleGamutWarning:", [this] { gamut_.toggle(); }},
            {"usePrintableFirst:", [this] { gamut_.usePrintable(true); }},
            {"usePrintableSecond:", [this] { gamut_.usePrintable(false); }}};
}

void JudgeTools::colourChanged() {
    if (contrast_) contrast_->follow();
    gamut_.follow();
}

void JudgeTools::showContrast() {
    if (!contrast_)
        contrast_ = std::make_unique<ContrastPanel>(parts_.colours, parts_.desktop, *parts_.dialog);
    contrast_->show();
}

void JudgeTools::showCustomAngle() {
    if (!angle_) {
        angle_ = std::make_unique<CustomAngle>(parts_.colours, parts_.wheel, parts_.desktop, *parts_.dialog,
                                               parts_.atHand);
        parts_.haveMoreWells(angle_->wells());
    }
    angle_->show();
}

} // namespace chromalog
