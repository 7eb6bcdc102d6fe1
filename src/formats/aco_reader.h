#pragma once

#include "formats/book_lookup.h"
#include "formats/byte_cursor.h"
#include "record/list_store.h"

#include <optional>

namespace chromalog {

/// What a swatch file announces, before a record changes.
struct AcoHeader {
    std::int8_t version = 0;
    std::int16_t count = 0;       ///< records that the reader goes on with
    std::int16_t viewCount = 0;   ///< what the view is told first
    std::optional<int> overLimit; ///< the number that the limit alert shows, where it is shown
};

/// `start` is 0 to replace a list and its count to append to it. A file that brings the list to the capacity
/// or beyond goes on with the overflow, not with the room that is left: kept.
AcoHeader readAcoHeader(Bytes file, std::int16_t start);

/// Reads the records of versions 1 and 2 to `start` and up; what falls outside the array is dropped. Records
/// keep their fields that a file does not hold. Returns what the view is told next, where a second section
/// follows the first.
std::optional<std::int16_t> readAcoRecords(Bytes file, const AcoHeader&, std::int16_t start, ListRecords,
                                           ColorServicesProc, const ColourBookRegistry&);

} // namespace chromalog
