#pragma once

#include "base/colour.h"
#include "record/list_store.h"

#include <span>
#include <vector>

namespace chromalog {

/// What rows can be sorted by beside the two buttons' keys. All rise, and equal keys keep their order.
enum class SortKey {
    name,       ///< as the button does: bytes up to the first zero
    hue,        ///< as the button does: greys first
    brightness, ///< of hue, saturation and brightness
    saturation, ///< of the same
    difference, ///< CIEDE2000 from a reference colour
    reversed,   ///< the order that stands, from the end
};

/// Which of the rows comes to each of their places, by its index in `rows`, whose records are in `shown`.
std::vector<int> sortedOrder(ConstListRecords shown, std::span<const int> rows, SortKey,
                             const Colour& reference);

} // namespace chromalog
