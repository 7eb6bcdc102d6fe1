#include "drive/script_words.h"

#include <algorithm>

namespace chromalog::drive {
namespace {

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

constexpr bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether `rest`, which begins with #, is that and hexadecimal digits up to the next blank.
bool isHexColour(std::string_view rest) {
    const auto* const end = std::ranges::find_if(rest, isBlank);
    return end - rest.begin() > 1 && std::all_of(rest.begin() + 1, end, isHexDigit);
}

class Splitter {
  public:
    Splitter(std::string_view line, ColourPlace colourPlace) : line_(line), colourPlace_(colourPlace) {}

    Words split() {
        while (skipBlanks(), at_ < line_.size() && !commentStarts())
            if (!readWord()) break;
        return std::move(found_);
    }

  private:
    void skipBlanks() {
        while (at_ < line_.size() && isBlank(line_[at_]))
            ++at_;
    }

    bool commentStarts() const {
        if (line_[at_] != '#') return false;
        const bool colour =
            !found_.words.empty() && colourPlace_(found_.words.front()) == found_.words.size();
        return !colour || !isHexColour(line_.substr(at_));
    }

    bool readWord() {
        std::string word;
        for (; at_ < line_.size() && !isBlank(line_[at_]); ++at_) {
            const char c = line_[at_];
            if (c == '\'' || c == '"') {
                if (!readQuoted(c, word)) return fail("a quote is not closed");
            } else if (c == '\\') {
                if (++at_ == line_.size()) return fail("nothing follows the last \\");
                word += line_[at_];
            } else {
                word += c;
            }
        }
        found_.words.push_back(std::move(word));
        return true;
    }

    /// Reads up to the closing quote and stops on it.
    bool readQuoted(char quote, std::string& word) {
        for (++at_; at_ < line_.size() && line_[at_] != quote; ++at_) {
            const bool escapes = quote == '"' && line_[at_] == '\\' && at_ + 1 < line_.size() &&
                                 (line_[at_ + 1] == '"' || line_[at_ + 1] == '\\');
            if (escapes) ++at_;
            word += line_[at_];
        }
        return at_ < line_.size();
    }

    bool fail(const char* message) {
        found_.error = message;
        return false;
    }

    std::string_view line_;
    ColourPlace colourPlace_;
    std::size_t at_ = 0;
    Words found_;
};

} // namespace

Words splitWords(std::string_view line, ColourPlace colourPlace) {
    return Splitter(line, colourPlace).split();
}

} // namespace chromalog::drive
