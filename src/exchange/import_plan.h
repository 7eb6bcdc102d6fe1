#pragma once

#include "palettes/palette_loss.h"
#include "palettes/swatch_palette.h"

namespace chromalog {

enum class ImportWay { replace, append, onlyNew };

/// What an import does to a list, before it does it.
struct ImportPlan {
    std::size_t start = 0;  ///< the first row that it writes
    FittedPalette swatches; ///< from there on
    PaletteLoss loss;
};

/// `rows`: the list as it stands. Only what is new: colours whose 16-bit channels no row has, and each once.
ImportPlan planImport(const Palette&, ImportWay, ConstListRecords rows, const CmykToRgb&);

} // namespace chromalog
