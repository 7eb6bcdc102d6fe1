#pragma once

#include "base/colour.h"
#include "desktop/picture_reading.h"

#include <optional>

namespace chromalog {

/// The mean of the bytes of a square of `edge` (odd) pixels around one, as far as it lies in the picture;
/// pixels with alpha below 128 do not count. Nothing where none counts.
std::optional<Colour> sampleAt(const Picture&, int column, int row, int edge);

} // namespace chromalog
