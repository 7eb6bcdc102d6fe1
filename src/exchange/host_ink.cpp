#include "exchange/host_ink.h"

#include "base/translated.h"
#include "palettes/component_codes.h"

namespace chromalog {

CmykToRgb hostInk(ColorServicesProc services) {
    return [services](const PaletteComponents& c) {
        std::int16_t slots[4];
        for (std::size_t i = 0; i < 4; ++i) // 255 is no ink
            slots[i] = static_cast<std::int16_t>(byteOfUnit(1 - c[i]));
        const bool converted = HostCSConvertColor(services, plugIncolorServicesCMYKSpace,
                                                  plugIncolorServicesRGBSpace, slots) == 0;
        if (converted) return Rgb{slots[0] / 255.0, slots[1] / 255.0, slots[2] / 255.0};
        return Rgb{(1 - c[0]) * (1 - c[3]), (1 - c[1]) * (1 - c[3]), (1 - c[2]) * (1 - c[3])};
    };
}

std::string nameOfInk(ColorServicesProc services) {
    return HostColorServicesAvailable(services) ? translated("the host") : translated("a formula");
}

} // namespace chromalog
