#pragma once

#include "palettes/palette.h"

namespace chromalog {

// How formats store components. Whatever is outside its range is clamped; no number counts as 0.

unsigned byteOfUnit(double unit); ///< 0..1 to 0..255, the nearest
unsigned wordOfUnit(double unit); ///< 0..1 to 0..65535, the nearest

using AcoWords = std::array<std::uint16_t, 5>; ///< the code of the space, then four components
AcoWords acoWordsOf(const PaletteColour&);
/// Space and components of a swatch file's colour; false for a code that nobody has told of.
bool takeAcoWords(const AcoWords&, PaletteColour&);

using BookBytes = std::array<std::uint8_t, 4>; ///< a colour book's; three but for CMYK
BookBytes bookBytesOf(const PaletteColour&);
void takeBookBytes(const BookBytes&, PaletteColour&); ///< of a colour whose space is set

using AseReals = std::array<float, 4>;
AseReals aseRealsOf(const PaletteColour&);
void takeAseReals(const AseReals&, PaletteColour&); ///< of a colour whose space is set

// Components as they come back from a file.
void roundToAco(PaletteColour&);
void roundToBook(PaletteColour&);
void roundToAse(PaletteColour&);
void roundToBytes(PaletteColour&); ///< with alpha
void roundToWords(PaletteColour&); ///< 16-bit RGB

std::size_t componentsOf(PaletteSpace); ///< how many a space has

} // namespace chromalog
