#include "swatches/nearest_display.h"

#include "base/channels.h"
#include "record/name_text.h"
#include "swatches/nearest.h"

namespace chromalog {

std::vector<OutletEntry> NearestDisplay::table() {
    return {{"nearColor", &nearColor},    {"nearR", &near.R},
            {"nearG", &near.G},           {"nearB", &near.B},
            {"nearC", &near.C},           {"nearM", &near.M},
            {"nearY", &near.Y},           {"nearK", &near.K},
            {"nearName", &nearName},      {"baterieSwatch", &baterieSwatch},
            {"nearNone", &nearNone, true}};
}

void NearestDisplay::follow(const CSwatchList& swatch1) {
    list_ = listMark(swatch1.shownRecords());
    showAge(swatch1);
}

void NearestDisplay::showAge(const CSwatchList& swatch1) {
    const bool empty = swatch1.shownRows() == 0;
    const bool dimmed = empty || list_ != computedFrom_;
    for (Control* control :
         std::initializer_list<Control*>{&*near.R, &*near.G, &*near.B, &*near.C, &*near.M, &*near.Y, &*near.K,
                                         &*nearColor, &*nearName, &*baterieSwatch})
        control->setDimmed(dimmed);
    nearNone->setHidden(!empty);
}

void NearestDisplay::getNearFco(const CSwatchList& swatch1, const Colour& secondColor,
                                ColorServicesProc services) {
    float distance = 0;
    const FCOStruct* record = recordAt(swatch1.records(), swatch1.getNearColor(secondColor, distance));
    if (!record) return;
    const Colour colour =
        Colour::rgb(fractionOf(record->SRed), fractionOf(record->SGreen), fractionOf(record->SBlue));
    nearColor->setColor(colour);
    showRgb(near, colour);
    showCmyk(near, colour, services);
    nearName->setText(macRomanToUtf8(zeroTerminatedName(*record)));
    baterieSwatch->setValue(closeness(distance));
    computedFrom_ = list_;
    showAge(swatch1);
}

} // namespace chromalog
