#pragma once

#include "base/colour.h"
#include "record/list_store.h"

#include <cstdint>

namespace chromalog {

struct NearestSwatch {
    int index = 0;      ///< 0 for no records; of equal ones the lowest
    float distance = 0; ///< Euclidean, in 16-bit channel units; about 3,162,277.6 for no records
};

/// All in single precision. Negative channels enter as they are stored.
NearestSwatch nearestSwatch(ConstListRecords shown, const Colour&);

/// A number for what the search and its readout take from a list: two equal ones mean that nothing of it has
/// changed.
std::uint64_t listMark(ConstListRecords shown);

/// 10 for the same colour, 0 at a distance of about 28,377, negative beyond.
float closeness(float distance);

} // namespace chromalog
