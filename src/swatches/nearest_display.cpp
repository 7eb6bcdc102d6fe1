#include "swatches/nearest_display.h"

#include "swatches/name_text.h"
#include "swatches/nearest.h"

namespace chromalog {

void NearestDisplay::getNearFco(const CSwatchList& swatch1, const Colour& secondColor,
                                ColorServicesProc services) {
    float distance = 0;
    const FCOStruct* record = recordAt(swatch1.records(), swatch1.getNearColor(secondColor, distance));
    if (!record) return;
    const auto component = [](std::int64_t channel) { return static_cast<float>(channel) / 65535.0; };
    const Colour colour =
        Colour::rgb(component(record->SRed), component(record->SGreen), component(record->SBlue));
    nearColor->setColor(colour);
    showRgb(near, colour);
    showCmyk(near, colour, services);
    nearName->setText(macRomanToUtf8(zeroTerminatedName(*record)));
    baterieSwatch->setValue(closeness(distance));
}

} // namespace chromalog
