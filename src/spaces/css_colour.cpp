#include "spaces/css_colour.h"

#include "base/css_names.h"
#include "spaces/ascii_text.h"
#include "spaces/css_functions.h"

namespace chromalog {
namespace {

constexpr std::size_t kLongest = 200; ///< bytes; the longest sensible text has half of that

std::string_view unquoted(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                        (text.front() == '"' || text.front() == '\'' || text.front() == '`');
    return quoted ? trimmed(text.substr(1, text.size() - 2)) : text;
}

/// Letters of any script count: a custom property may be named in them.
bool isPropertyName(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return isLetter(c) || isDigit(c) || static_cast<unsigned char>(c) >= 0x80 || c == '-' || c == '_' ||
               c == '$' || c == '@';
    });
}

/// What is written as the colour: without the declaration's name, quotes and what ends it.
std::string_view valueIn(std::string_view text) {
    text = trimmed(trimmedEnd(text, [](char c) { return isSpace(c) || c == ';' || c == ','; }));
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos && isPropertyName(unquoted(trimmed(text.substr(0, colon)))))
        text = trimmed(text.substr(colon + 1));
    return unquoted(text);
}

/// Of lower-case digits.
std::optional<ReadColour> readHex(std::string_view digits, bool bare) {
    const bool isShort = digits.size() == 3 || (digits.size() == 4 && !bare);
    if (!isShort && digits.size() != 6 && digits.size() != 8) return std::nullopt;
    if (!std::ranges::all_of(digits, isHexDigit)) return std::nullopt;
    std::uint32_t value = 0;
    for (const char c : digits)
        value = value << 4 | static_cast<std::uint32_t>(isDigit(c) ? c - '0' : c - 'a' + 10);
    if (isShort) // each digit twice, with the alpha of #rgba in the place of its byte
        value = (value & 0xF000) * 0x11000 | (value & 0xF00) * 0x1100 | (value & 0xF0) * 0x110 |
                (value & 0xF) * 0x11;
    const bool hasAlpha = digits.size() == 4 || digits.size() == 8;
    return ReadColour{rgbOfBytes(hasAlpha ? value >> 8 : value), hasAlpha ? (value & 0xFF) / 255.0 : 1.0};
}

std::optional<ReadColour> readName(std::string_view lower) {
    if (lower == "transparent") return ReadColour{{}, 0};
    const auto* const found = std::ranges::lower_bound(kCssColours, lower, {}, &CssColour::name);
    if (found == std::end(kCssColours) || found->name != lower) return std::nullopt;
    return ReadColour{rgbOfBytes(found->rgb)};
}

} // namespace

std::optional<ReadColour> readCssColour(std::string_view text) {
    const std::string_view value = valueIn(text);
    if (value.empty() || value.size() > kLongest) return std::nullopt;
    const std::string lower = lowerCase(value);
    if (lower[0] == '#') return readHex(std::string_view(lower).substr(1), false);
    if (lower.find('(') != std::string::npos) return readCssFunction(lower);
    const auto named = readName(lower);
    return named ? named : readHex(lower, true);
}

} // namespace chromalog
