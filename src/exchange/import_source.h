#pragma once

#include "palettes/palette.h"

#include <string>

namespace chromalog {

/// What the files that a person chose hold.
struct ImportSource {
    Palette palette;         ///< of all files, in their order
    std::string name;        ///< of the first file
    std::string description; ///< "GIMP palette, 16 colors"
    std::size_t unread = 0;  ///< colours
};

/// Reads palettes of any kind; throws PaletteError with one line where one of them cannot be read.
ImportSource readImportSource(const std::vector<std::string>& paths);

} // namespace chromalog
