#include "standalone/conversion/closed_converter.h"

#include "standalone/conversion/cie_models.h"
#include "standalone/conversion/hue_models.h"

#include <algorithm>

namespace chromalog::standalone {

namespace {

// k is the brightest channel and stored as it is; c, m and y are what is left of each channel, 255 = none.
Components rgbToCmyk(const Components& rgb) {
    const int k = std::max({rgb[0], rgb[1], rgb[2]});
    if (k == 0) return {255, 255, 255, 0};
    Components cmyk{0, 0, 0, static_cast<std::int16_t>(k)};
    for (int i = 0; i < 3; ++i)
        cmyk[i] = static_cast<std::int16_t>((rgb[i] * 255 + k / 2) / k);
    return cmyk;
}

Components cmykToRgb(const Components& cmyk) {
    Components rgb{};
    for (int i = 0; i < 3; ++i)
        rgb[i] = static_cast<std::int16_t>((cmyk[i] * cmyk[3] + 127) / 255);
    return rgb;
}

} // namespace

Components clamped(Space space, const Components& components) {
    Components inside = components;
    for (std::int16_t& slot : inside)
        slot = std::clamp<std::int16_t>(slot, 0, 255);
    if (space == Space::hsb || space == Space::hsl)
        inside[0] = std::clamp<std::int16_t>(components[0], 0, 359);
    return inside;
}

Components closedToRgb(Space from, const Components& components) {
    const Components in = clamped(from, components);
    switch (from) {
    case Space::hsb:
        return hsbToRgb(in);
    case Space::cmyk:
        return cmykToRgb(in);
    case Space::lab:
        return labToRgb(in);
    case Space::gray:
        return {in[0], in[0], in[0], 0};
    case Space::hsl:
        return hslToRgb(in);
    case Space::xyz:
        return xyzToRgb(in);
    case Space::rgb:
        break;
    }
    return {in[0], in[1], in[2], 0};
}

Components closedFromRgb(Space to, const Components& rgb) {
    switch (to) {
    case Space::hsb:
        return rgbToHsb(rgb);
    case Space::cmyk:
        return rgbToCmyk(rgb);
    case Space::lab:
        return rgbToLab(rgb);
    case Space::gray:
        return rgbToGray(rgb);
    case Space::hsl:
        return rgbToHsl(rgb);
    case Space::xyz:
        return rgbToXyz(rgb);
    case Space::rgb:
        break;
    }
    return rgb;
}

Components ClosedConverter::convert(Space from, Space to, const Components& components) const {
    return from == to ? components : closedFromRgb(to, closedToRgb(from, components));
}

} // namespace chromalog::standalone
