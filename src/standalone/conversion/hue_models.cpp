#include "standalone/conversion/hue_models.h"

#include <algorithm>
#include <cmath>

namespace chromalog::standalone {

namespace {

std::int16_t to8(double value) {
    return static_cast<std::int16_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

struct Extent {
    double low, high, hue; // hue in degrees, 0 up to but not including 360
};

Extent extentOf(const Components& rgb) {
    const double r = rgb[0] / 255.0, g = rgb[1] / 255.0, b = rgb[2] / 255.0;
    const double high = std::max({r, g, b}), low = std::min({r, g, b}), span = high - low;
    if (span == 0) return {low, high, 0};
    double sextants = 0;
    if (high == r)
        sextants = (g - b) / span + (g < b ? 6 : 0);
    else if (high == g)
        sextants = (b - r) / span + 2;
    else
        sextants = (r - g) / span + 4;
    return {low, high, sextants * 60};
}

std::int16_t wholeDegrees(double hue) {
    return static_cast<std::int16_t>(std::lround(hue) % 360);
}

/// The colour of a hue between `low` (its complement's side) and `high`.
Components fromHue(int degrees, double low, double high) {
    const double sextants = degrees / 60.0;
    const double rising = low + (high - low) * (1 - std::abs(std::fmod(sextants, 2.0) - 1));
    switch (static_cast<int>(sextants)) {
    case 0:
        return {to8(high), to8(rising), to8(low), 0};
    case 1:
        return {to8(rising), to8(high), to8(low), 0};
    case 2:
        return {to8(low), to8(high), to8(rising), 0};
    case 3:
        return {to8(low), to8(rising), to8(high), 0};
    case 4:
        return {to8(rising), to8(low), to8(high), 0};
    default:
        return {to8(high), to8(low), to8(rising), 0};
    }
}

} // namespace

Components hsbToRgb(const Components& hsb) {
    const double saturation = hsb[1] / 255.0, brightness = hsb[2] / 255.0;
    return fromHue(hsb[0], brightness * (1 - saturation), brightness);
}

Components rgbToHsb(const Components& rgb) {
    const Extent e = extentOf(rgb);
    return {wholeDegrees(e.hue), to8(e.high == 0 ? 0 : (e.high - e.low) / e.high), to8(e.high), 0};
}

Components hslToRgb(const Components& hsl) {
    const double saturation = hsl[1] / 255.0, lightness = hsl[2] / 255.0;
    const double half = saturation * std::min(lightness, 1 - lightness);
    return fromHue(hsl[0], lightness - half, lightness + half);
}

Components rgbToHsl(const Components& rgb) {
    const Extent e = extentOf(rgb);
    const double lightness = (e.high + e.low) / 2, room = std::min(lightness, 1 - lightness);
    return {wholeDegrees(e.hue), to8(room == 0 ? 0 : (e.high - e.low) / 2 / room), to8(lightness), 0};
}

} // namespace chromalog::standalone
