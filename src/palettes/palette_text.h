#pragma once

#include "palettes/palette.h"

#include <optional>
#include <string_view>

namespace chromalog {

// Names in files: every result is valid UTF-8 without a zero.

/// UTF-8 as it is; other bytes are taken for Latin 1, of which older programs made their files.
std::string textOfBytes(std::string_view bytes);
/// Big-endian units up to the first zero; half a pair becomes U+FFFD.
std::string textOfUtf16(Bytes units);
std::u16string utf16Of(std::string_view text);

/// On one line: control characters become spaces, and white space goes from both ends.
std::string oneLine(std::string_view text);
/// No more than so many UTF-16 units; a pair is not torn.
std::string cutToUtf16(std::string_view text, std::size_t units);

/// The lines of a text file, without what ends them (LF, CR LF or CR) and without the mark at its beginning.
class TextLines {
  public:
    explicit TextLines(Bytes file);
    bool next(std::string_view& line); ///< false past the last one

  private:
    std::string_view rest_;
};

/// Takes a whole number off the front, after white space; more than 9 digits are no number.
std::optional<int> takeWhole(std::string_view& text);

/// Takes white space, then 0..255 thrice off the front: a colour without a name. Larger numbers are clamped.
std::optional<PaletteColour> takeByteTriple(std::string_view& text);

/// #rgb, #rgba, #rrggbb and #rrggbbaa, without the hash. Nothing for other digits.
std::optional<PaletteColour> colourOfHex(std::string_view digits);
/// "#rrggbb" of an RGB colour, with "aa" where its byte of alpha is below 255.
std::string hexOf(const PaletteColour&);
std::string hexWithoutAlpha(const PaletteColour&);

/// Appends a text of JSON with its quotes.
void appendJsonText(std::string& json, std::string_view text);

} // namespace chromalog
