#include "record/name_text.h"

#include <cstdint>

namespace chromalog {
namespace {

/// Code points of the bytes 0x80..0xFF; 0xF0 is in the private use area.
constexpr char16_t kMacRoman[128] = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5,
    0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4,
    0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6,
    0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8, 0x221E, 0x00B1, 0x2264, 0x2265,
    0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF,
    0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044,
    0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9,
    0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

/// The letter that is left of an accented one; '.' where there is none.
struct AccentRange {
    char32_t first;
    std::string_view letters;
};

constexpr AccentRange kAccents[] = {
    {0x00C0, "AAAAAA.CEEEEIIII.NOOOOO..UUUUY..aaaaaa.ceeeeiiii.nooooo..uuuuy.y"
             "AaAaAaCcCcCcCcDd..EeEeEeEeEeGgGgGgGgHh..IiIiIiIiI...JjKk.LlLlLl."
             "...NnNnNn...OoOoOo..RrRrRrSsSsSsSsTtTt..UuUuUuUuUuUuWwYyYZzZzZz."},
    {0x01CD, "AaIiOoUuUuUuUuUu.AaAa....GgKkOoOo..j...Gg..NnAa....AaAaEeEeIiIiO"
             "oOoRrRrUuUuSsTt..Hh......AaEeOoOoOoOoYy"},
    {0x1E00, "AaBbBbBbCcDdDdDdDdDdEeEeEeEeEeFfGgHhHhHhHhHhIiIiKkKkKkLlLlLlLlMm"
             "MmMmNnNnNnNnOoOoOoOoPpPpRrRrRrRrSsSsSsSsSsTtTtTtTtUuUuUuUuUuVvVv"
             "WwWwWwWwWwXxXxYyZzZzZzhtwy......AaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEe"
             "EeEeEeEeIiIiOoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYy......"},
};

char withoutAccent(char32_t c) {
    for (const AccentRange& range : kAccents)
        if (c >= range.first && c < range.first + range.letters.size()) {
            const char letter = range.letters[c - range.first];
            return letter == '.' ? '?' : letter;
        }
    return '?';
}

bool isCombiningMark(char32_t c) {
    return c >= 0x0300 && c <= 0x036F;
}

} // namespace

void appendUtf8(std::string& text, char32_t c) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto putTail = [&](int shift) { put(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6)), putTail(0);
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12)), putTail(6), putTail(0);
    } else {
        put(0xF0 | (c >> 18)), putTail(12), putTail(6), putTail(0);
    }
}

std::string macRomanToUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        appendUtf8(text, byte < 0x80 ? byte : kMacRoman[byte - 0x80]);
    }
    return text;
}

char32_t takeCodePoint(std::string_view& text) {
    constexpr char32_t kBad = 0xFFFD;
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800,
                                      0x10000}; // by the sequence's length: no overlong forms
    const auto byteAt = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byteAt(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC0 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF8 ? 4
                                             : 0;
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    bool good = length > 0 && length <= text.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        good = (byteAt(i) & 0xC0) == 0x80;
        c = c << 6 | (byteAt(i) & 0x3F);
    }
    good = good && c >= kSmallest[length] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
    text.remove_prefix(good ? length : 1);
    return good ? c : kBad;
}

std::size_t utf16Length(std::string_view utf8) {
    std::size_t units = 0;
    while (!utf8.empty())
        units += takeCodePoint(utf8) >= 0x10000 ? 2 : 1;
    return units;
}

std::string lossyAscii(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const char32_t c = takeCodePoint(utf8);
        if (c < 0x80)
            text.push_back(static_cast<char>(c));
        else if (!isCombiningMark(c))
            text.append(c >= 0x10000 ? 2 : 1, withoutAccent(c));
    }
    return text;
}

} // namespace chromalog
