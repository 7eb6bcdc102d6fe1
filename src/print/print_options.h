#pragma once

#include <cstdint>

namespace chromalog {

/// What is printed of a swatch list. Lives as long as the dialog and is not saved: each opening starts from
/// zero.
struct PrintOptions {
    std::int16_t printSize = 0; ///< 0 Small, 1 Middle, 2 Large
    std::uint8_t printName = 0;
    std::uint8_t printRGB = 0;
    std::uint8_t printCMYK = 0;

    void setPrintAttributes(std::int16_t which,
                            std::uint8_t flag); ///< 0 name, 1 RGB, 2 CMYK; others change nothing
};

struct PrintSize {
    const char* title; ///< in the dialog, the same in every language: chooseSize: compares it
    int height;        ///< of a patch, in points
    int width;
};

inline constexpr PrintSize kPrintSizes[] = {{"Small", 25, 40}, {"Middle", 35, 60}, {"Large", 55, 80}};

/// The sizes of a `printSize`; one that is none of the three prints Small.
constexpr const PrintSize& patchSize(std::int16_t printSize) {
    return kPrintSizes[printSize >= 0 && printSize < 3 ? printSize : 0];
}

} // namespace chromalog
