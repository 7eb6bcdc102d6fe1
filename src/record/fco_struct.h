#pragma once

#include <cstddef>
#include <cstdint>

namespace chromalog {

/// Records in one swatch list.
inline constexpr int kListCapacity = 5000;

/// One swatch, as it stands in the global record, in undo snapshots and in the preferences file.
/// The order red, blue, green is kept: the record is saved as a block. Assign by name, never by position.
struct FCOStruct {
    std::uint8_t
        Namen[256];      ///< length byte, then that many characters (Mac OS Roman); no terminator of its own
    std::int64_t SRed;   ///< nominally 0..65535; readers may leave negative or larger values
    std::int64_t SBlue;  ///< same scale
    std::int64_t SGreen; ///< same scale
    std::uint16_t PRed;  ///< this and all below: carried for the layout, read by nothing
    std::uint16_t PBlue;
    std::uint16_t PGreen;
    std::int16_t Ordre;
    std::int64_t MaxRGB;
    std::int64_t MinRGB;
};

static_assert(sizeof(FCOStruct) == 304);
static_assert(offsetof(FCOStruct, SRed) == 256);
static_assert(offsetof(FCOStruct, SBlue) == 264);
static_assert(offsetof(FCOStruct, SGreen) == 272);
static_assert(offsetof(FCOStruct, PRed) == 280);
static_assert(offsetof(FCOStruct, Ordre) == 286);
static_assert(offsetof(FCOStruct, MinRGB) == 296);

} // namespace chromalog
