#pragma once

#include "base/colour.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace chromalog {

/// sRGB components as encoded (IEC 61966-2-1). 0..1 lies inside the gamut; nothing clamps them here, so that
/// a colour of a larger gamut keeps its place until it is brought inside (gamut.h).
struct Rgb {
    double red = 0, green = 0, blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

inline Rgb rgbOf(const Colour& colour) {
    return {colour.red(), colour.green(), colour.blue()};
}

/// Clamps each component by itself, as every `Colour` is clamped.
inline Colour colourOf(const Rgb& rgb, double alpha = 1.0) {
    return Colour::rgb(rgb.red, rgb.green, rgb.blue, alpha);
}

/// From 0xRRGGBB; what stands above is ignored.
constexpr Rgb rgbOfBytes(std::uint32_t bytes) {
    return {((bytes >> 16) & 0xFF) / 255.0, ((bytes >> 8) & 0xFF) / 255.0, (bytes & 0xFF) / 255.0};
}

/// 0..1 as a byte: the nearest, halves up; clamped, no number is 0.
inline std::uint32_t byteOf(double component) {
    return component > 0 ? static_cast<std::uint32_t>(std::floor(std::min(component, 1.0) * 255 + 0.5)) : 0;
}

/// To 0xRRGGBB.
inline std::uint32_t bytesOf(const Rgb& rgb) {
    return byteOf(rgb.red) << 16 | byteOf(rgb.green) << 8 | byteOf(rgb.blue);
}

} // namespace chromalog
