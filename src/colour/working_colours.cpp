#include "colour/working_colours.h"

#include <cstdint>

namespace chromalog {
namespace {

float channelFraction(std::int64_t channel) {
    return static_cast<float>(static_cast<std::uint32_t>(channel)) / 65535.0f;
}

} // namespace

std::vector<OutletEntry> WorkingColours::table() {
    return {
        {"firstR", &first.R},
        {"firstG", &first.G},
        {"firstB", &first.B},
        {"firstC", &first.C},
        {"firstM", &first.M},
        {"firstY", &first.Y},
        {"firstK", &first.K},
        {"secondR", &second.R},
        {"secondG", &second.G},
        {"secondB", &second.B},
        {"secondC", &second.C},
        {"secondM", &second.M},
        {"secondY", &second.Y},
        {"secondK", &second.K},
        {"colorName", &colorName},
        {"origFirstColor", &origFirstColor},
        {"origSecondColor", &origSecondColor},
        {"origComplement", &origComplement},
        {"origHarmony", &origHarmony},
        {"origTrichrome", &origTrichrome},
        {"origQuadrichrome", &origQuadrichrome},
    };
}

void WorkingColours::zeroInit() {
    firstColor_ = Colour::rgb(0.9, 0.3, 0.1);
    secondColor_ = Colour::rgb(0.1, 0.7, 0.3);
    luminosity_ = 2.0f;
    alpha1_ = 55.0f;
}

void WorkingColours::showFirstColor() {
    origFirstColor->setColor(firstColor_);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, desk_.colorServices());
}

void WorkingColours::setAlpha(float radians) {
    alpha2_ = static_cast<float>(radians / 3.141592653589793 / 2.0 * 360.0);
}

void WorkingColours::setLuminosity(float l) {
    luminosity_ = l;
    // A colour rebuilt from its own hue, saturation and brightness is itself: typed values must not drift by
    // one.
    if (static_cast<float>(secondColor_.brightness()) != l)
        secondColor_ = Colour::hsb(secondColor_.hue(), secondColor_.saturation(), l, 1.0);
    secondColor_ = secondColor_.withAlpha(1.0);
    updateSecondColor();
}

void WorkingColours::firstChanged() {
    origFirstColor->setColor(firstColor_);
    desk_.setOkButton();
}

void WorkingColours::rgb1Changed() {
    firstColor_ = colourFromRgbFields(first);
    showCmyk(first, firstColor_, desk_.colorServices());
    firstChanged();
}

void WorkingColours::rgb1EditingEnded() {
    showRgb(first, firstColor_);
}

void WorkingColours::cmyk1Changed() {
    firstColor_ = colourFromInks(firstInks(first), first, desk_.colorServices());
    firstChanged();
}

void WorkingColours::rgb2Changed() {
    secondColor_ = colourFromRgbFields(second);
    showCmyk(second, secondColor_, desk_.colorServices());
    secondTyped();
}

void WorkingColours::cmyk2Changed() {
    secondColor_ = colourFromInks(secondInks(second), second, desk_.colorServices());
    secondTyped();
}

void WorkingColours::secondTyped() {
    origSecondColor->setColor(secondColor_);
    desk_.getNearFco();
    refreshWheelAndStrip();
    desk_.setOkButton();
}

void WorkingColours::refreshWheelAndStrip() {
    setLuminosity(static_cast<float>(secondColor_.brightness()));
    desk_.placeStripCursor();
    desk_.redrawWheelAndPlace();
}

void WorkingColours::changeSecondColor(const Colour& colour) {
    secondColor_ = colour.withAlpha(1.0);
    updateSecondColor();
}

void WorkingColours::updateSecondColor() {
    for (auto* well : {&origComplement, &origHarmony, &origTrichrome, &origQuadrichrome, &origSecondColor})
        (*well)->setColor(secondColor_);
    showRgb(second, secondColor_);
    showCmyk(second, secondColor_, desk_.colorServices());
    desk_.getNearFco();
    desk_.setOkButton();
    desk_.markToneAndStrip(); // whatever changed it: a click on the chart picks what it would show anew
}

void WorkingColours::setFirstColor(const FCOStruct& swatch, const std::string& name) {
    firstColor_ = Colour::rgb(channelFraction(swatch.SRed), channelFraction(swatch.SGreen),
                              channelFraction(swatch.SBlue));
    origFirstColor->setColor(firstColor_);
    colorName->setText(name);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, desk_.colorServices());
    desk_.setOkButton();
}

void WorkingColours::setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target) {
    const ColorServicesProc services = desk_.colorServices();
    // An unconnected well has no colour to take.
    if (origFirstColor.connected()) firstColor_ = origFirstColor->color().withAlpha(1.0);
    if (origSecondColor.connected()) secondColor_ = origSecondColor->color().withAlpha(1.0);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, services);
    showRgb(second, secondColor_);
    showCmyk(second, secondColor_, services);
    if (origFirstColor.is(&target))
        if (const auto name = desk_.selectedSwatchName(source)) colorName->setText(*name);
    if (origSecondColor.is(&target)) {
        desk_.getNearFco();
        refreshWheelAndStrip();
        desk_.markWheel();
    }
    desk_.setOkButton();
}

bool WorkingColours::isFirstColorId(const Colour& colour, int, std::string& name) const {
    if (!colour.sameRgb(firstColor_)) return false;
    name = colorName->text();
    return true;
}

} // namespace chromalog
