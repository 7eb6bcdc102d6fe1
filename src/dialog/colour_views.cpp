#include "dialog/colour_views.h"

namespace chromalog {

std::vector<OutletEntry> ColourViews::table() {
    return {
        {"chromaView", &wheel},
        {"lumiView", &strip},
        {"myToneView", &tone},
        {"myDegrade", &gradient},
        {"toneOrDegrade", &toneOrDegrade},
        {"absOrRel", &tone.absOrRel},
        {"toneSlider", &tone.toneSlider},
    };
}

std::vector<ActionEntry> ColourViews::actions() {
    return {
        {"changeTone:", [this] { tone.setNeedsDisplay(); }},
        {"switchAbs:", [this] { tone.setNeedsDisplay(); }},
        {"switchTone:", [this] { switchTone(); }},
    };
}

void ColourViews::start() {
    toneOrDegrade->setState(0);
    switchTone();
}

void ColourViews::switchTone() {
    const bool showsTone = toneOrDegrade->state() == 1;
    gradient.setHidden(showsTone);
    tone.setHidden(!showsTone);
    tone.absOrRel->setHidden(!showsTone);
    tone.toneSlider->setHidden(!showsTone);
}

void ColourViews::redrawCircle() {
    wheel.drawOnce();
    wheel.setNeedsDisplay();
}

void ColourViews::place(const Colour& second) {
    strip.setCursorWithColor(second);
    wheel.drawOnce();
    wheel.setCursorWithColor(second);
}

} // namespace chromalog
