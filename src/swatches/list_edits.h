#pragma once

#include "base/colour.h"
#include "record/list_store.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace chromalog {

/// Edits of records in place. Counts and indices come as told, out of range too: whatever would lie outside
/// the array is neither read nor written, and the records there keep what they hold.

/// One memory move of `count` records; the two runs may overlap.
void moveRecords(ListRecords, std::int64_t from, std::int64_t to, std::int64_t count);

/// Moves everything behind `index` down by one. The unused record just past the last one moves along: kept.
void deleteRecord(ListRecords, int count, int index);

/// Opens a gap at `position` (at the end where that is past it) and returns where. The record there keeps its
/// old contents, name included.
int insertGap(ListRecords, int count, int position);

/// Takes a record out and puts it back at `to`; those between move by one. The count plays no part. `to`
/// stops at the array's ends.
void moveRecord(ListRecords, int from, int to);

/// Component × 65535, truncated: the colour of an inserted swatch.
void storeColour(FCOStruct&, const Colour&);
/// The same, cut to a signed 16-bit value: 32768 and above become negative, white is −1. Kept.
void overwriteColour(FCOStruct&, const Colour&);

/// A name as records store it. Made before the record changes: writing it then needs no memory.
struct StoredName {
    explicit StoredName(std::string_view utf8);
    std::string bytes;   ///< ASCII
    std::uint8_t length; ///< the text's UTF-16 length cut to 8 bits
};
/// Writes the length byte and up to 255 bytes; those past them keep what they hold.
void writeName(FCOStruct&, const StoredName&);

} // namespace chromalog
