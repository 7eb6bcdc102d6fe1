#pragma once

#include "base/colour.h"
#include "record/fco_struct.h"

namespace chromalog {

/// The colour that a swatch's patch shows: the low 16 bits of each channel, whatever stands above them.
inline Colour shownColour(const FCOStruct& record) {
    const auto part = [](std::int64_t channel) { return static_cast<std::uint16_t>(channel) / 65535.0; };
    return Colour::rgb(part(record.SRed), part(record.SGreen), part(record.SBlue));
}

} // namespace chromalog
