#pragma once

#include <array>
#include <cstdint>

namespace chromalog::standalone {

/// The host's colour spaces by their published codes.
enum class Space : std::int16_t { rgb = 0, hsb = 1, cmyk = 2, lab = 3, gray = 4, hsl = 5, xyz = 6 };

/// 8-bit values in 16-bit slots: 0..255; hue 0..359; CMYK with 255 = no ink; a and b of Lab with 128 =
/// neutral. Slots that a space does not use are 0 in results.
using Components = std::array<std::int16_t, 4>;

class ColourConverter {
  public:
    virtual ~ColourConverter() = default;
    /// Values out of their range are taken as the nearest value inside. Equal spaces change nothing.
    virtual Components convert(Space from, Space to, const Components& components) const = 0;
};

} // namespace chromalog::standalone
