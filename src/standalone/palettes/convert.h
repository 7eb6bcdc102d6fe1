#pragma once

#include "standalone/palettes/palette_order.h"

#include <string>
#include <vector>

namespace chromalog::standalone {

struct ConvertRequest {
    std::vector<std::string> files; ///< the last is written, unless the colours are listed
    std::string from, to;           ///< words of formats; empty: by contents and by extension
    std::string cmykProfile;
    PaletteOrder order = PaletteOrder::asItIs;
    double dedupe = -1; ///< CIEDE2000; below 0: nothing is left out
    bool list = false, json = false;
};

struct NearestRequest {
    std::string colour;
    std::vector<std::string> files;
    std::string from, cmykProfile;
    int count = 1;
};

/// Both throw std::runtime_error with one line, and NobodyReads.
void runConvert(const ConvertRequest&);
void runNearest(const NearestRequest&);

} // namespace chromalog::standalone
