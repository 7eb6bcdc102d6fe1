#pragma once

#include "base/channels.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace chromalog {

/// Fixed point from single precision: adding `offset` leaves 255 × brightness × factor, rounded to
/// `fractionBits` bits after the point, in the low bits of the sum. Factor, scale and product are each
/// rounded by at most 2^-17 (half a unit in the last place below 256), and a factor that two mirrored pixels
/// share may be off by 255 × 3 × 2^-25: all in all less than half of the last bit kept. So a fraction that is
/// not zero settles the truncated byte, and a fraction of zero leaves it in doubt.
struct BrightnessScale {
    static constexpr int fractionBits = 13;
    static constexpr float offset = 1 << (23 - fractionBits);

    /// Brightness in 0..1.
    explicit BrightnessScale(float brightness)
        : top(static_cast<std::uint32_t>(eightBit(brightness))),
          scale(static_cast<float>(brightness * 255.0)) {}

    std::uint32_t fixed(float factor) const { return std::bit_cast<std::uint32_t>(factor * scale + offset); }
    /// Bit fractionBits - 1 tells whether all bits of the fraction are zero; the other bits mean nothing.
    static std::uint32_t wholeBit(std::uint32_t fixed) { return ~fixed & (fixed - 1); }
    bool doubtful(float factor) const { return wholeBit(fixed(factor)) >> (fractionBits - 1) & 1; }

    std::uint32_t top; ///< the byte of factor 1, exact
    float scale;
};

/// Where a pixel's largest, middle and smallest channel stand in its pixel.
struct ChannelOrder {
    std::uint32_t top; ///< 1 in the largest channel, or in two that are equal
    int middle, low;   ///< bit positions
};

/// By sextant of the hue; the last one is for pixels with two largest channels (hue 0.5).
constexpr ChannelOrder channelOrders[] = {{1 << 16, 8, 0}, {1 << 8, 16, 0}, {1 << 8, 0, 16},     {1, 8, 16},
                                          {1, 16, 8},      {1 << 16, 0, 8}, {1 << 8 | 1, 16, 16}};
constexpr std::uint32_t twoLargest = 6;

/// Of the pixel in the mirrored row: the hue runs backwards.
constexpr std::uint32_t mirroredOrder(std::uint32_t order) {
    return order == twoLargest ? twoLargest : 5 - order;
}

constexpr int chunkPixels = 16;
constexpr int groupChunks = 8;

/// Neighbours in a row that share the order of their channels, and those that mirror them above the centre,
/// with the same factors. The factors of all chunks follow each other: each chunk's of the middle channel,
/// then those of the smallest.
struct WheelChunk {
    std::uint32_t first;  ///< index of the first pixel in the picture
    std::uint32_t mirror; ///< of its mirror; the same in the middle row
    std::uint32_t order;  ///< of channelOrders
};
constexpr int chunkFactors = 2 * chunkPixels;

/// Writes the opaque pixels of groups of chunks in turn, up to the first group that holds a doubtful pixel,
/// that group included. Returns its number, or `groups`.
std::size_t fillWheelChunks(const WheelChunk* chunks, const float* factors, std::size_t group,
                            std::size_t groups, std::uint32_t* picture, const BrightnessScale&);

} // namespace chromalog
