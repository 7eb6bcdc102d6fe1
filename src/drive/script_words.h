#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace chromalog::drive {

/// One line of a script in its words, or what is wrong with it.
struct Words {
    std::vector<std::string> words;
    std::string error; ///< empty where the line is well formed
};

inline constexpr std::size_t kNoColour = static_cast<std::size_t>(-1);

/// Which word of a line is a colour, by the line's first word; kNoColour where none is.
using ColourPlace = std::size_t (*)(std::string_view verb);

/// Splits as a shell does: '…' takes everything literally, "…" lets \ escape " and \, \ outside of quotes
/// takes the next character literally, '' is an empty word, and # where a word would begin starts a comment.
/// One exception saves quotes: where a colour stands, a # followed by hexadecimal digits begins that colour.
Words splitWords(std::string_view line, ColourPlace);

} // namespace chromalog::drive
