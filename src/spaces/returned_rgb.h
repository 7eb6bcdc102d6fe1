#pragma once

#include "base/colour_text.h"
#include "spaces/rgb.h"

namespace chromalog {

/// As OK returns it: what every text tells of a colour.
inline Rgb returnedRgb(const Colour& colour) {
    const RgbChannels channels = channelsOf(colour);
    return {channels[0] / 65535.0, channels[1] / 65535.0, channels[2] / 65535.0};
}

} // namespace chromalog
