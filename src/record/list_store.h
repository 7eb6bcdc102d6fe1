#pragma once

#include "record/fco_struct.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

namespace chromalog {

/// The records of one list: kListCapacity of them, or none where a view has no list yet.
using ListRecords = std::span<FCOStruct>;
using ConstListRecords = std::span<const FCOStruct>;

/// A count as told (negative, or past the array) clamped to what the array can have: 0..kListCapacity.
constexpr int clampedCount(std::int64_t count) {
    return static_cast<int>(std::clamp<std::int64_t>(count, 0, kListCapacity));
}

/// The record at an index, or null where the array has none: the one door for every unchecked index.
template <typename Record> constexpr Record* recordAt(std::span<Record> records, std::int64_t index) {
    return index >= 0 && index < std::ssize(records) ? &records[static_cast<std::size_t>(index)] : nullptr;
}

/// Writes the zero byte just past the characters. Past a name of 255 it falls on the lowest byte of SRed:
/// kept.
inline void terminateName(FCOStruct& record) {
    std::uint8_t& past = reinterpret_cast<std::uint8_t*>(&record)[1 + record.Namen[0]];
    if (past != 0)
        past = 0; // a draw ends all names of a list: what is unchanged is not written back to memory
}

/// The name's characters by its length byte, as stored (Mac OS Roman).
inline std::string_view nameBytes(const FCOStruct& record) {
    return {reinterpret_cast<const char*>(record.Namen) + 1, record.Namen[0]};
}

/// The name's characters up to the first zero byte, never past byte 255.
inline std::string_view zeroTerminatedName(const FCOStruct& record) {
    const std::string_view all{reinterpret_cast<const char*>(record.Namen) + 1, 255};
    return all.substr(0, std::min(all.find('\0'), all.size()));
}

} // namespace chromalog
