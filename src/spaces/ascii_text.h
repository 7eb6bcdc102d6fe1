#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace chromalog {

/// Texts that people paste, byte by byte: only ASCII has case, white space and digits here.
inline bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
inline bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

inline bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

inline std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return lower;
}

template <typename Predicate> std::string_view trimmedStart(std::string_view text, Predicate drop) {
    while (!text.empty() && drop(text.front()))
        text.remove_prefix(1);
    return text;
}

template <typename Predicate> std::string_view trimmedEnd(std::string_view text, Predicate drop) {
    while (!text.empty() && drop(text.back()))
        text.remove_suffix(1);
    return text;
}

inline std::string_view trimmed(std::string_view text) {
    return trimmedEnd(trimmedStart(text, isSpace), isSpace);
}

} // namespace chromalog
