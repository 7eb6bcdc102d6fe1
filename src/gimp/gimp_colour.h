#pragma once

#include "standalone/host_colour.h"

#include <array>

namespace chromalog {

/// Red, green and blue as GIMP keeps them: 0..1 of sRGB, sometimes beyond.
using GimpChannels = std::array<double, 3>;

/// The nearest colour of 16 bits a channel; what lies beyond is taken as the nearest inside, no number as 0.
standalone::HostColour offeredColour(const GimpChannels&);
/// Exactly what was picked: offered again, it is the same.
GimpChannels pickedColour(const standalone::HostColour& rgb);

} // namespace chromalog
