#include "colour/working_colours.h"

#include "base/channels.h"

#include <cstdint>
#include <numbers>

namespace chromalog {
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
        {"offeredColor", &offeredColor, true},
        {"origComplement", &origComplement},
        {"origHarmony", &origHarmony},
        {"origTrichrome", &origTrichrome},
        {"origQuadrichrome", &origQuadrichrome},
        {"complementColor", &complementColor},
        {"triHarmoni1Color", &triHarmoni1Color},
        {"triHarmoni2Color", &triHarmoni2Color},
        {"quadri1Color", &quadri1Color},
        {"quadri2Color", &quadri2Color},
        {"quadri3Color", &quadri3Color},
        {"equi1Color", &equi1Color},
        {"equi2Color", &equi2Color},
        {"complementOn", &modeButtons[0], true},
        {"harmoniquesOn", &modeButtons[1], true},
        {"triComplementOn", &modeButtons[2], true},
        {"quadriOn", &modeButtons[3], true},
    };
}

std::vector<ActionEntry> WorkingColours::actions() {
    return {
        {"complementOn:", [this] { complementOn(); }},       {"harmoniquesOn:", [this] { harmoniquesOn(); }},
        {"triComplementOn:", [this] { triComplementOn(); }}, {"quadriOn:", [this] { quadriOn(); }},
        {"useOfferedColor:", [this] { useOfferedColor(); }},
    };
}

void WorkingColours::observeControls() {
    const auto observe = [this](std::initializer_list<Outlet<TextField>*> fields, const char* className,
                                void (WorkingColours::*edited)()) {
        for (Outlet<TextField>* field : fields) {
            (*field)->setClassName(className);
            (*field)->whenEdited([this, edited] { (this->*edited)(); });
        }
    };
    observe({&first.R, &first.G, &first.B}, "rgb1Text", &WorkingColours::rgb1Changed);
    observe({&first.C, &first.M, &first.Y, &first.K}, "cmyk1Text", &WorkingColours::cmyk1Changed);
    observe({&second.R, &second.G, &second.B}, "rgb2Text", &WorkingColours::rgb2Changed);
    observe({&second.C, &second.M, &second.Y, &second.K}, "cmyk2Text", &WorkingColours::cmyk2Changed);
    for (Outlet<TextField>* field : {&first.R, &first.G, &first.B})
        (*field)->whenEditingEnds([this] { rgb1EditingEnded(); });
    for (Outlet<ColorWell>* outlet : {&origFirstColor, &origSecondColor}) {
        (*outlet)->setClassName("myWell");
        (*outlet)->whenDropped(
            [this, outlet](const DragInfo& drag) { setFirstAndSecondFromDrop(drag.source, **outlet); });
    }
}

void WorkingColours::zeroInit() {
    firstColor_ = Colour::rgb(0.9, 0.3, 0.1);
    secondColor_ = Colour::rgb(0.1, 0.7, 0.3);
    luminosity_ = 2.0f;
    alpha1_ = 55.0f;
}

void WorkingColours::setOfferedColor(const Colour& colour) {
    setSecondColor(colour);
    offeredColor_ = secondColor_;
    offeredColor->setColor(offeredColor_);
}

void WorkingColours::useOfferedColor() {
    enterSecond(offeredColor_);
}

void WorkingColours::enterFirst(const Colour& colour) {
    firstColor_ = colour.withAlpha(1.0);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, services_);
    firstChanged();
}

void WorkingColours::enterSecond(const Colour& colour) {
    secondColor_ = colour.withAlpha(1.0);
    origSecondColor->setColor(secondColor_);
    showRgb(second, secondColor_);
    showCmyk(second, secondColor_, services_);
    changed(Cause::secondEntered);
}

void WorkingColours::showFirstColor() {
    origFirstColor->setColor(firstColor_);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, services_);
}

void WorkingColours::setAlpha(float radians) {
    alpha2_ = static_cast<float>(radians / std::numbers::pi / 2.0 * 360.0);
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

void WorkingColours::moveLuminosity(float l) {
    setLuminosity(l);
    changed(Cause::luminosity);
}

void WorkingColours::placeSecondColor() {
    setLuminosity(static_cast<float>(secondColor_.brightness()));
    changed(Cause::secondPlaced);
}

void WorkingColours::setHarmonyMode(std::int16_t mode) {
    harmonyMode_ = mode;
    for (int each = 1; Outlet<Button> & button : modeButtons) // a press has toggled its own already
        button->setState(mode == each++);
    changed(Cause::harmonyMode);
}

void WorkingColours::complementOn() {
    setHarmonyMode(harmonyMode_ != 1 ? 1 : 0);
}
void WorkingColours::harmoniquesOn() {
    setHarmonyMode(harmonyMode_ != 2 ? 2 : 0);
}
void WorkingColours::triComplementOn() {
    setHarmonyMode(3);
} // unlike the two above, no toggle: kept
void WorkingColours::quadriOn() {
    setHarmonyMode(4);
}

void WorkingColours::setoppositeColor(const Colour& colour, std::int16_t code) {
    // The seventh is the wheel's second quadri point, and the complement stands among the four: names shift,
    // kept.
    const Outlet<ColorWell>* const wells[] = {&complementColor,  &equi1Color,       &equi2Color,
                                              &triHarmoni1Color, &triHarmoni2Color, &quadri1Color,
                                              &quadri3Color};
    if (code < 1 || code > std::ssize(wells)) return;
    (*wells[code - 1])->setColor(colour);
    if (code == 1) quadri2Color->setColor(colour);
}

void WorkingColours::firstChanged() {
    origFirstColor->setColor(firstColor_);
    changed(Cause::firstColour);
}

void WorkingColours::rgb1Changed() {
    firstColor_ = colourFromRgbFields(first);
    showCmyk(first, firstColor_, services_);
    firstChanged();
}

void WorkingColours::rgb1EditingEnded() {
    showRgb(first, firstColor_);
}

void WorkingColours::cmyk1Changed() {
    firstColor_ = colourFromInks(firstInks(first), first, services_);
    firstChanged();
}

void WorkingColours::rgb2Changed() {
    secondColor_ = colourFromRgbFields(second);
    showCmyk(second, secondColor_, services_);
    origSecondColor->setColor(secondColor_);
    changed(Cause::secondEntered);
}

void WorkingColours::cmyk2Changed() {
    secondColor_ = colourFromInks(secondInks(second), second, services_);
    origSecondColor->setColor(secondColor_);
    changed(Cause::secondEntered);
}

void WorkingColours::changeSecondColor(const Colour& colour) {
    secondColor_ = colour.withAlpha(1.0);
    updateSecondColor();
}

void WorkingColours::updateSecondColor() {
    for (auto* well : {&origComplement, &origHarmony, &origTrichrome, &origQuadrichrome, &origSecondColor})
        (*well)->setColor(secondColor_);
    showRgb(second, secondColor_);
    showCmyk(second, secondColor_, services_);
    changed(Cause::secondColour);
}

void WorkingColours::setFirstColor(const FCOStruct& swatch, const std::string& name) {
    firstColor_ = Colour::rgb(unsignedFractionOf(swatch.SRed), unsignedFractionOf(swatch.SGreen),
                              unsignedFractionOf(swatch.SBlue));
    origFirstColor->setColor(firstColor_);
    colorName->setText(name);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, services_);
    changed(Cause::firstColour);
}

void WorkingColours::setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target) {
    // An unconnected well has no colour to take.
    if (origFirstColor.connected()) firstColor_ = origFirstColor->color().withAlpha(1.0);
    if (origSecondColor.connected()) secondColor_ = origSecondColor->color().withAlpha(1.0);
    showRgb(first, firstColor_);
    showCmyk(first, firstColor_, services_);
    showRgb(second, secondColor_);
    showCmyk(second, secondColor_, services_);
    if (origFirstColor.is(&target) && nameOfDragged)
        if (const auto name = nameOfDragged(source)) colorName->setText(*name);
    changed(origSecondColor.is(&target) ? Cause::secondEntered : Cause::firstColour);
}

bool WorkingColours::isFirstColorId(const Colour& colour, int, std::string& name) const {
    if (!colour.sameRgb(firstColor_)) return false;
    name = colorName->text();
    return true;
}

} // namespace chromalog
