#pragma once

#include "palettes/palette.h"

#include <optional>

namespace chromalog {

/// The value of a design token, as its file says it.
struct TokenValue {
    std::string text; ///< "#rrggbb", another notation of CSS, or "{group.name}"; empty for the form below
    std::string colorSpace, hex;
    std::vector<double> components; ///< in the units of the space, as CSS has them
    double alpha = 1;

    /// Whether it stands for another token's.
    bool isAlias() const { return text.size() > 2 && text.front() == '{' && text.back() == '}'; }
    /// Nothing where it is no colour.
    std::optional<PaletteColour> colour() const;
};

} // namespace chromalog
