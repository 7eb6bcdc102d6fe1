#include "palettes/palette_text.h"

#include "palettes/component_codes.h"
#include "record/name_text.h"
#include "spaces/ascii_text.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// U+FFFD itself counts as invalid where its three bytes do not stand there.
bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const bool written = text.starts_with("\xEF\xBF\xBD");
        if (takeCodePoint(text) == kReplacement && !written) return false;
    }
    return true;
}

int hexDigit(char c) {
    return isDigit(c) ? c - '0' : (c | 0x20) - 'a' + 10;
}

void appendHex(std::string& text, std::uint32_t byte) {
    constexpr const char* kDigits = "0123456789abcdef";
    text.push_back(kDigits[byte >> 4 & 15]);
    text.push_back(kDigits[byte & 15]);
}

} // namespace

std::string textOfBytes(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    if (isAscii(bytes) || isUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (const char c : bytes)
        appendUtf8(text, static_cast<unsigned char>(c));
    return text;
}

std::string textOfUtf16(Bytes units) {
    std::string text;
    text.reserve(units.size() / 2);
    const auto unitAt = [&units](std::size_t i) -> char32_t {
        return i + 1 < units.size() ? static_cast<char32_t>(units[i] << 8 | units[i + 1]) : 0;
    };
    for (std::size_t i = 0; i + 1 < units.size(); i += 2) {
        char32_t c = unitAt(i);
        if (c == 0) break;
        const char32_t low = unitAt(i + 2);
        if (c >= 0xD800 && c < 0xDC00 && low >= 0xDC00 && low < 0xE000)
            c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00), i += 2;
        else if (c >= 0xD800 && c < 0xE000)
            c = kReplacement;
        appendUtf8(text, c);
    }
    return text;
}

std::u16string utf16Of(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t c = takeCodePoint(text);
        if (c >= 0x10000) units.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
        units.push_back(static_cast<char16_t>(c >= 0x10000 ? 0xDC00 + (c & 0x3FF) : c));
    }
    return units;
}

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, ' ');
    return std::string(trimmed(line));
}

std::string cutToUtf16(std::string_view text, std::size_t units) {
    if (text.size() <= units) return std::string(text); // a unit takes a byte or more
    std::string_view rest = text;
    std::size_t kept = 0;
    while (!rest.empty()) {
        const std::string_view before = rest;
        const std::size_t width = takeCodePoint(rest) >= 0x10000 ? 2 : 1;
        if (width > units) return std::string(text.substr(0, kept));
        units -= width;
        kept += before.size() - rest.size();
    }
    return std::string(text);
}

TextLines::TextLines(Bytes file) : rest_(reinterpret_cast<const char*>(file.data()), file.size()) {
    if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);
}

bool TextLines::next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (rest_.starts_with("\r\n"))
        rest_.remove_prefix(2);
    else if (!rest_.empty())
        rest_.remove_prefix(1);
    return true;
}

std::optional<int> takeWhole(std::string_view& text) {
    std::string_view rest = trimmedStart(text, isSpace);
    int value = 0, digits = 0;
    for (; !rest.empty() && isDigit(rest.front()); rest.remove_prefix(1)) {
        if (++digits > 9) return std::nullopt;
        value = value * 10 + (rest.front() - '0');
    }
    if (digits == 0) return std::nullopt;
    text = rest;
    return value;
}

std::optional<PaletteColour> takeByteTriple(std::string_view& text) {
    std::string_view rest = text;
    PaletteColour colour;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto value = takeWhole(rest);
        if (!value) return std::nullopt;
        colour.components[i] = std::min(*value, 255) / 255.0;
    }
    text = rest;
    return colour;
}

std::optional<PaletteColour> colourOfHex(std::string_view digits) {
    const std::size_t size = digits.size();
    if ((size != 3 && size != 4 && size != 6 && size != 8) || !std::ranges::all_of(digits, isHexDigit))
        return std::nullopt;
    const std::size_t width = size <= 4 ? 1 : 2;
    const auto valueAt = [&](std::size_t channel) {
        const char* at = digits.data() + channel * width;
        return (width == 1 ? hexDigit(*at) * 17 : hexDigit(at[0]) * 16 + hexDigit(at[1])) / 255.0;
    };
    PaletteColour colour;
    for (std::size_t i = 0; i < 3; ++i)
        colour.components[i] = valueAt(i);
    if (size == 4 || size == 8) colour.alpha = valueAt(3);
    return colour;
}

std::string hexWithoutAlpha(const PaletteColour& colour) {
    std::string text = "#";
    for (std::size_t i = 0; i < 3; ++i)
        appendHex(text, byteOfUnit(colour.components[i]));
    return text;
}

std::string hexOf(const PaletteColour& colour) {
    std::string text = hexWithoutAlpha(colour);
    if (const unsigned alpha = byteOfUnit(colour.alpha); alpha < 255) appendHex(text, alpha);
    return text;
}

void appendJsonText(std::string& json, std::string_view text) {
    constexpr const char* kDigits = "0123456789abcdef";
    json.push_back('"');
    for (const char c : text) {
        if (c == '"' || c == '\\')
            json.append(1, '\\').push_back(c);
        else if (static_cast<unsigned char>(c) < ' ')
            json.append("\\u00").append({kDigits[c >> 4], kDigits[c & 15]});
        else
            json.push_back(c);
    }
    json.push_back('"');
}

} // namespace chromalog
