#pragma once

#include "base/colour.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// A colour as a person writes it on the command line or in a script: 16-bit components of one of the host's
/// colour spaces, as the picker record holds them.
struct WrittenColour {
    std::int16_t space = 0; ///< the host's code: 0 RGB, 1 HSB, 2 CMYK, 3 Lab, 4 Gray
    std::array<std::uint16_t, 4> components{};
    std::uint16_t alpha = 65535; ///< below 65535 only from #rrggbbaa
};

enum class WithAlpha { no, yes };

/// Reads #rrggbb, #rgb, a CSS colour name (any case), or SPACE:c0,c1,... with SPACE one of rgb hsb cmyk lab
/// gray and as many decimal components 0..65535 as the space has, up to four; #rrggbbaa where asked. A byte b
/// is the channel b * 257. Nothing for any other text.
std::optional<WrittenColour> readWrittenColour(std::string_view text, WithAlpha = WithAlpha::no);

/// What a text of the last form lacks: "missing: green, blue". Empty for every other text.
std::string missingComponents(std::string_view text);

/// 16-bit red, green and blue, as the picker record holds them.
using RgbChannels = std::array<std::uint16_t, 3>;

/// What OK returns for a component in 0..1: component × 65535, truncated.
constexpr std::uint16_t channelOf(double component) {
    return static_cast<std::uint16_t>(component * 65535.0);
}
inline RgbChannels channelsOf(const Colour& c) {
    return {channelOf(c.red()), channelOf(c.green()), channelOf(c.blue())};
}

/// The 8-bit value that people read for a 16-bit channel, everywhere but in the dialog's value fields and on
/// printed labels, which truncate: channel × 255 / 65535 rounded, so that every 8-bit value comes back from
/// its channel.
constexpr int byteOf(std::uint16_t channel) {
    return (channel + 128) / 257; // 257 is odd: no ties
}

std::string hexText(const RgbChannels&);    ///< "#e54c19"
std::string spokenText(const RgbChannels&); ///< "RGB 229 76 25, #e54c19"
/// A colour as assistive technology tells it: the 8-bit values of what OK returns.
inline std::string spokenText(const Colour& colour) {
    return spokenText(channelsOf(colour));
}

} // namespace chromalog
