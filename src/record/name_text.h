#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace chromalog {

/// Swatch and list names are bytes in Mac OS Roman; the rest of the program holds UTF-8.
std::string macRomanToUtf8(std::string_view bytes);

/// One code point of UTF-8 text, taken off the front of `text` (which must not be empty). A byte that begins
/// no valid sequence counts as U+FFFD.
char32_t takeCodePoint(std::string_view& text);
void appendUtf8(std::string& text, char32_t codePoint);

/// Length in UTF-16 units: what the length byte of a stored name counts.
std::size_t utf16Length(std::string_view utf8);

/// ASCII, lossily: accents are dropped, each other UTF-16 unit outside ASCII becomes "?".
std::string lossyAscii(std::string_view utf8);

} // namespace chromalog
