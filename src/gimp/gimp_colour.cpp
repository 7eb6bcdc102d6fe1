#include "gimp/gimp_colour.h"

#include <algorithm>
#include <cmath>

namespace chromalog {

standalone::HostColour offeredColour(const GimpChannels& channels) {
    standalone::HostColour offered{standalone::Space::rgb, {}};
    for (int i = 0; i < 3; ++i) {
        const double inside = channels[i] > 0 ? std::min(channels[i], 1.0) : 0;
        offered.components[i] = static_cast<std::uint16_t>(std::lround(inside * 65535));
    }
    return offered;
}

GimpChannels pickedColour(const standalone::HostColour& rgb) {
    GimpChannels channels;
    for (int i = 0; i < 3; ++i)
        channels[i] = rgb.components[i] / 65535.0;
    return channels;
}

} // namespace chromalog
