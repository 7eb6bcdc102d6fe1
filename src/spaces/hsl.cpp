#include "spaces/hsl.h"

#include "spaces/polar.h"

namespace chromalog {
namespace {

struct Extent {
    double hue; ///< degrees
    double smallest, largest;
};

Extent extentOf(const Rgb& rgb) {
    const Colour colour = colourOf(rgb);
    return {colour.hue() * 360, std::min({colour.red(), colour.green(), colour.blue()}), colour.brightness()};
}

} // namespace

Hsl hslOf(const Rgb& rgb) {
    const auto [hue, smallest, largest] = extentOf(rgb);
    const double lightness = (smallest + largest) / 2;
    const double room = std::min(lightness, 1 - lightness);
    return {hue, room > 0 ? (largest - lightness) / room : 0, lightness};
}

Rgb rgbOf(const Hsl& hsl) {
    const double reach = hsl.saturation * std::min(hsl.lightness, 1 - hsl.lightness);
    const auto component = [&](double offset) {
        const double k = wrappedDegrees(hsl.hue + 30 * offset) / 30;
        return hsl.lightness - reach * std::clamp(std::min(k - 3, 9 - k), -1.0, 1.0);
    };
    return {component(0), component(8), component(4)};
}

Hwb hwbOf(const Rgb& rgb) {
    const auto [hue, smallest, largest] = extentOf(rgb);
    return {hue, smallest, 1 - largest};
}

Rgb rgbOf(const Hwb& hwb) {
    const double sum = hwb.whiteness + hwb.blackness;
    if (sum >= 1) {
        const double grey = hwb.whiteness / sum;
        return {grey, grey, grey};
    }
    const Rgb pure = rgbOf(Hsl{hwb.hue, 1, 0.5});
    const auto mixed = [&](double component) { return component * (1 - sum) + hwb.whiteness; };
    return {mixed(pure.red), mixed(pure.green), mixed(pure.blue)};
}

} // namespace chromalog
