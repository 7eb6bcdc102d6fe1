#include "colour/ink_text.h"

#include "base/number_text.h"
#include "spaces/ascii_text.h"

namespace chromalog {
namespace {

constexpr std::size_t kLongest = 200; ///< bytes

bool isBetween(char c) {
    return isSpace(c) || c == ',' || c == ';' || c == '/' || c == '%';
}

/// What stands in the brackets of cmyk(...) or device-cmyk(...); a text without brackets as it is.
std::string_view withoutFunction(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos || !text.ends_with(')')) return text;
    const std::string_view name = trimmed(text.substr(0, open));
    if (name != "cmyk" && name != "device-cmyk") return text;
    return text.substr(open + 1, text.size() - open - 2);
}

/// A letter of an ink in front of its number, with or without a colon.
std::string_view withoutLetter(std::string_view text, char letter) {
    if (!text.starts_with(letter)) return text;
    return trimmedStart(text.substr(1), [](char c) { return isSpace(c) || c == ':' || c == '='; });
}

} // namespace

std::optional<InkPercents> readInks(std::string_view text) {
    if (text.size() > kLongest) return std::nullopt;
    const std::string lower =
        lowerCase(trimmedEnd(trimmed(text), [](char c) { return isSpace(c) || c == ';'; }));
    std::string_view rest = withoutFunction(lower);
    InkPercents inks{};
    for (std::size_t i = 0; i < inks.size(); ++i) {
        rest = withoutLetter(trimmedStart(rest, isBetween), "cmyk"[i]);
        const auto ink = takeDecimal(rest);
        if (!ink || *ink < 0 || *ink > 100) return std::nullopt;
        const bool ends = rest.empty() || isBetween(rest.front()) || isLetter(rest.front());
        if (!ends) return std::nullopt;
        inks[i] = *ink;
    }
    if (!trimmedStart(rest, isBetween).empty()) return std::nullopt;
    return inks;
}

std::string inksText(const InkPercents& inks) {
    std::string text;
    for (const double ink : inks)
        text.append(text.empty() ? "" : " ").append(decimalText(ink, 1));
    return text;
}

} // namespace chromalog
