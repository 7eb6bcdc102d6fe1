#pragma once

#include "abi/color_services.h"

#include <algorithm>
#include <cstdint>

namespace chromalog::test {

/// A host that prints no more than so much colour: from RGB to inks and back, all that stands further from
/// the darkest channel than `most` is lost. It answers as the test has set it.
struct MadeHost {
    static inline int calls = 0;
    static inline int most = 100;         ///< difference of two channels
    static inline int failsAfter = -1;    ///< calls; -1: never
    static inline bool saysGamut = false; ///< gives its own word
    static inline bool word = true;
    static inline bool raves = false; ///< slots far out of their range

    static void reset() {
        calls = 0;
        most = 100;
        failsAfter = -1;
        saysGamut = raves = false;
        word = true;
    }

    static std::int16_t convert(ColorServicesInfo* info) {
        if (failsAfter >= 0 && calls++ >= failsAfter) return -1;
        if (failsAfter < 0) ++calls;
        std::int16_t* c = info->colorComponents;
        if (info->resultSpace == plugIncolorServicesCMYKSpace) {
            const int least = std::min({c[0], c[1], c[2]});
            for (int i = 0; i < 3; ++i)
                c[i] = static_cast<std::int16_t>(std::min<int>(c[i], least + most));
            c[3] = 255;
        }
        if (raves) {
            c[0] = 32767;
            c[1] = -32768;
        }
        info->resultGamutInfoValid = saysGamut ? 1 : 0;
        info->resultInGamut = saysGamut && word ? 1 : 0;
        return 0;
    }
};

} // namespace chromalog::test
