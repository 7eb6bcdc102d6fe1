#pragma once

#include "base/colour_text.h"
#include "standalone/conversion/colour_converter.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace chromalog::standalone {

/// How many bits of a record's component hold the colour: 16 as this plug-in understands records, or 8 as the
/// published ranges have it (0..255 in each slot).
enum class Scale { eight = 8, sixteen = 16 };

/// A colour as the picker's record holds it.
struct HostColour {
    Space space = Space::rgb;
    std::array<std::uint16_t, 4> components{};
    bool operator==(const HostColour&) const = default;
};

/// Reads #rrggbb, #rgb, a CSS name, an opaque function of CSS (`hsl(173 58% 39%)`), or SPACE:c0,c1,c2[,c3]
/// with the components as the record holds them.
std::optional<HostColour> readColour(const std::string& text, Scale scale);

/// The colour as 16-bit RGB; other spaces go through the converter.
RgbChannels rgbOf(const HostColour& colour, Scale scale, const ColourConverter& converter);

enum class Format { hex, rgb8, rgb16, css, json };

/// One line without its end.
std::string formatColour(const RgbChannels& rgb, Format format);

} // namespace chromalog::standalone
