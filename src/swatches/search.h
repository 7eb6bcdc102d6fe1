#pragma once

#include "record/list_store.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace chromalog {

/// One hit of a search by name.
struct FoundEntry {
    std::int64_t position = 0; ///< index of the swatch when the search ran; later changes do not move it
    double scrollValue = 0;    ///< index / count, computed in single precision
};

/// Whether a name holds the text, compared byte by byte. The name is read as zero-terminated ASCII: one with
/// a byte above 127 holds nothing. Empty text is found nowhere.
bool nameHolds(const FCOStruct&, std::string_view text);

/// Hits among the first `count` (as told) records of `searched`. On the way it ends the name of the record of
/// the same index in `list1`, whatever list is searched: kept.
std::vector<FoundEntry> findByName(ListRecords searched, ListRecords list1, int count, std::string_view text);

} // namespace chromalog
