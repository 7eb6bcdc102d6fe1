#pragma once

#include "base/colour.h"

#include <array>
#include <cstdint>
#include <span>

namespace chromalog {

/// The 8-bit value of a component: component × 255 truncated toward zero.
constexpr int eightBit(double component) {
    return static_cast<int>(component * 255.0);
}

/// A swatch's channel as a fraction, by way of single precision: as lists are sorted, matched and
/// printed. May lie outside 0..1.
constexpr double fractionOf(std::int64_t channel) {
    return static_cast<float>(channel) / 65535.0;
}

/// The same for what a chosen swatch makes the first colour: the channel's low 32 bits, unsigned, all in
/// single precision, so a hair away from fractionOf and far above 1 for a negative one. Kept.
constexpr float unsignedFractionOf(std::int64_t channel) {
    return static_cast<float>(static_cast<std::uint32_t>(channel)) / 65535.0f;
}

/// The high bytes of 16-bit components, as the host converts them.
constexpr std::array<std::int16_t, 4> highBytes(std::span<const std::uint16_t, 4> channels) {
    std::array<std::int16_t, 4> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::int16_t>(channels[i] >> 8);
    return bytes;
}

/// Red, green and blue of 0..255; the fourth slot plays no part.
inline Colour colourOfBytes(const std::array<std::int16_t, 4>& rgb, double alpha = 1.0) {
    return Colour::rgb(rgb[0] / 255.0, rgb[1] / 255.0, rgb[2] / 255.0, alpha);
}

} // namespace chromalog
