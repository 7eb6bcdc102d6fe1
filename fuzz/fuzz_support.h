#pragma once

#include "formats/byte_cursor.h"
#include "record/host_conversion.h"
#include "record/list_store.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace chromalog::fuzz {

/// A rule of the program that an input broke: the fuzzer keeps that input.
inline void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", rule);
    std::abort();
}

/// The array of one list in a block of its own, so that the address sanitizer guards both ends. It is kept
/// between inputs: what a reader leaves alone is what an earlier input wrote.
inline ListRecords listRecords() {
    static const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    return {records.get(), kListCapacity};
}

/// A conversion that uses every slot and refuses what a host refuses.
inline std::int16_t convert(ColorServicesInfo* info) {
    if (info->sourceSpace < 0 || info->sourceSpace > 6) return -30901;
    for (std::int16_t& c : info->colorComponents)
        c = static_cast<std::int16_t>(255 - c);
    return 0;
}

} // namespace chromalog::fuzz
