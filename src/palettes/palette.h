#pragma once

#include "base/translated.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace chromalog {

using Bytes = std::span<const std::uint8_t>;

/// The spaces in which palettes keep their colours, and what their components mean:
///   rgb   red, green, blue of sRGB, 0..1
///   hsb   hue as a fraction of a full turn, saturation, brightness, 0..1
///   cmyk  ink, 0 = none, 1 = full
///   lab   lightness 0..100, a and b about -128..127, relative to D50
///   gray  0 = black, 1 = white
///   book  a reference into a colour book: the book's code, then three 16-bit words of the key
enum class PaletteSpace : std::uint8_t { rgb, hsb, cmyk, lab, gray, book };
inline constexpr std::size_t kPaletteSpaces = 6;

using PaletteComponents = std::array<double, 4>; ///< those that a space does not use are 0

struct PaletteColour {
    std::string name; ///< valid UTF-8 without a zero; may be empty
    PaletteSpace space = PaletteSpace::rgb;
    PaletteComponents components{};
    double alpha = 1;
    bool isSpot = false; ///< an ink of its own rather than a mixture
    std::string group;   ///< nested ones with slashes between their names; empty: none

    friend bool operator==(const PaletteColour&, const PaletteColour&) = default;
};

/// The colours of a file, of any format.
struct Palette {
    std::string title; ///< what the file calls itself; empty where it does not
    std::vector<PaletteColour> colours;

    friend bool operator==(const Palette&, const Palette&) = default;
};

/// No reader gives more colours and no writer takes more.
inline constexpr std::size_t kMostPaletteColours = 65535;

/// What a reader makes of a file.
struct ReadPalette {
    Palette palette;
    std::size_t unread =
        0; ///< colours that the file announces or names and that could not be read, all or their names
};

/// A palette changed into what a format, or a list of swatches, holds.
struct FittedPalette {
    Palette palette;
    std::vector<std::size_t> from; ///< where each of its colours stood before
};

/// Why a file is none of a format, as one line for people.
struct PaletteError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Adds a colour; a file with too many is refused.
inline void addColour(Palette& palette, PaletteColour colour) {
    if (palette.colours.size() >= kMostPaletteColours)
        throw PaletteError(translated("it holds more than 65535 colors"));
    palette.colours.push_back(std::move(colour));
}

} // namespace chromalog
