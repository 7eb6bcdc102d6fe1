#pragma once

#include "record/list_store.h"

#include <cstdint>
#include <vector>

namespace chromalog {

/// Appends a swatch file of version 2, RGB, of `count` records: the header tells the count as it is told
/// here, entries are written for those that the array has. Channels keep their low 16 bits; names stay one
/// byte a character.
void writeAco(std::vector<std::uint8_t>& data, ConstListRecords, std::int16_t count);

} // namespace chromalog
