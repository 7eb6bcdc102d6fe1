#pragma once

#include "spaces/rgb.h"

namespace chromalog {

/// Hue, saturation and brightness by the rule of the colour value itself, bit for bit: hue is a fraction of a
/// full turn, 0..1 exclusive; saturation and brightness 0..1. All three are 0 where that rule says so (hue of
/// greys, saturation of black).
struct Hsb {
    double hue = 0, saturation = 0, brightness = 0;
};

/// Components outside 0..1 are clamped first. A colour that remembers its hue is asked itself, not by its
/// Rgb.
inline Hsb hsbOf(const Rgb& rgb) {
    const Colour colour = colourOf(rgb);
    return {colour.hue(), colour.saturation(), colour.brightness()};
}

inline Rgb rgbOf(const Hsb& hsb) {
    return rgbOf(Colour::hsb(hsb.hue, hsb.saturation, hsb.brightness));
}

} // namespace chromalog
