#pragma once

#include "palettes/fit_palette.h"
#include "record/list_store.h"

namespace chromalog {

/// A list's swatches as a palette.
Palette paletteOfSwatches(ConstListRecords, std::string_view title);

/// What swatches keep of a palette: 16-bit RGB and names in Mac OS Roman, at most `room` of them.
FittedPalette fitSwatches(const Palette&, std::size_t room, const CmykToRgb&);

/// Puts a fitted palette's colours into the records from `start` on, as far as there are records.
void storeSwatches(const Palette& fitted, ListRecords, std::size_t start);

} // namespace chromalog
