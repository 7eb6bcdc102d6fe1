#pragma once

#include <bit>
#include <cstdint>

namespace chromalog {

/// Bit positions of a pixel's largest, middle and smallest channel.
struct ChannelShifts {
    int top, middle, low;
};

/// Fixed point from single precision: adding `offset` leaves 255 × brightness × factor, rounded to
/// `fractionBits` bits after the point, in the low bits of the sum. The rounding errors of factor, scale,
/// product and of the mirrored hue stay below 255 × 3.3e-7, less than half of the last bit (1.2e-4): a
/// fraction that is not zero settles the truncated byte, a fraction of zero leaves it in doubt.
struct BrightnessScale {
    static constexpr int fractionBits = 12;
    static constexpr float offset = 1 << (23 - fractionBits);

    /// Brightness in 0..1.
    explicit BrightnessScale(float brightness)
        : top(static_cast<std::uint32_t>(brightness * 255.0)), scale(static_cast<float>(brightness * 255.0)) {
    }

    std::uint32_t fixed(float factor) const { return std::bit_cast<std::uint32_t>(factor * scale + offset); }
    static std::uint32_t fraction(std::uint32_t fixed) { return fixed & ((1u << fractionBits) - 1); }
    bool doubtful(float factor) const { return fraction(fixed(factor)) == 0; }

    std::uint32_t top; ///< the byte of factor 1, exact
    float scale;
};

inline constexpr int wheelBlock = 32;

/// Writes one block of opaque pixels; true where one of them is doubtful.
bool fillWheelBlock(const float* middle, const float* low, std::uint32_t* out, const BrightnessScale&,
                    ChannelShifts);

} // namespace chromalog
