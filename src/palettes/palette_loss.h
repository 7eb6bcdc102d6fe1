#pragma once

#include "palettes/palette.h"

namespace chromalog {

/// What a palette loses when it is fitted to a format or a list; numbers of colours.
struct PaletteLoss {
    std::size_t beyond = 0;                              ///< left out: there is no room for them
    std::size_t references = 0;                          ///< left out: they refer to colour books
    std::array<std::size_t, kPaletteSpaces> converted{}; ///< to RGB, by the space that they had
    std::size_t rounded = 0; ///< other components than before, in the same space and by more than a millionth
    std::size_t namesLost = 0;    ///< have none any more
    std::size_t namesCut = 0;     ///< keep the front of theirs
    std::size_t namesChanged = 0; ///< letters replaced, numbers added
    std::size_t alpha = 0;        ///< are more or less transparent, or opaque
    std::size_t groups = 0;       ///< in no group or another one
    std::size_t spotInks = 0;     ///< mixtures now
    std::size_t moved = 0;        ///< stand elsewhere among those that are kept
    bool title = false;           ///< the palette's own name

    friend bool operator==(const PaletteLoss&, const PaletteLoss&) = default;
};

PaletteLoss lossOf(const Palette& before, const FittedPalette& after);

/// A line a kind of loss, for people: "12 names lost". Empty where nothing is. `ink` tells who converts
/// CMYK.
std::vector<std::string> lossLines(const PaletteLoss&, const std::string& ink);

} // namespace chromalog
