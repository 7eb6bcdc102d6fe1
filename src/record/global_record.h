#pragma once

#include "record/fco_struct.h"

#include <cstddef>
#include <cstdint>

struct PickerRecord;

namespace chromalog {

/// The one global record. The host's handle owns it; it outlives the picks of one host run.
/// A copy of the whole is an undo snapshot; bytes 18 to the end are the body of the preferences file.
struct GlobalRecord {
    std::int16_t* resultCode;   ///< where the host reads the result of the current call
    PickerRecord* pickerRecord; ///< the host's record of the current call
    std::uint8_t reserved1[8];
    FCOStruct swatchList1[kListCapacity];
    FCOStruct swatchList2[kListCapacity];
    std::int16_t numColors1; ///< as stored: may be out of 0..5000 (a foreign preferences file)
    std::int16_t numColors2;
    std::uint8_t swatchName1[256]; ///< length byte, then the characters
    std::uint8_t swatchName2[256];
    std::uint8_t reserved2[6];
    std::uint16_t useSecondColor; ///< 0: OK returns the first colour, 1: the second
    std::int16_t undoLimit;       ///< levels of undo; set to 20 when a history starts
    std::uint8_t reserved3[2];
};

static_assert(offsetof(GlobalRecord, swatchList1) == 24);
static_assert(offsetof(GlobalRecord, swatchList2) == 1'520'024);
static_assert(offsetof(GlobalRecord, numColors1) == 3'040'024);
static_assert(offsetof(GlobalRecord, numColors2) == 3'040'026);
static_assert(offsetof(GlobalRecord, swatchName1) == 3'040'028);
static_assert(offsetof(GlobalRecord, swatchName2) == 3'040'284);
static_assert(offsetof(GlobalRecord, useSecondColor) == 3'040'546);
static_assert(offsetof(GlobalRecord, undoLimit) == 3'040'548);
static_assert(sizeof(GlobalRecord) == 3'040'552);

} // namespace chromalog
