#include "palettes/mac_roman_name.h"

#include "palettes/palette_text.h"
#include "record/name_text.h"
#include "spaces/ascii_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace chromalog {
namespace {

constexpr std::size_t kLongest = 255;

/// Letters that have a composed form in Mac OS Roman, by their combining mark.
struct Marked {
    char32_t mark;
    std::string_view letters;
    std::u32string_view composed;
};
constexpr Marked kMarked[] = {
    {0x300, "AEIOUaeiou", U"ÀÈÌÒÙàèìòù"},
    {0x301, "AEIOUaeiou", U"ÁÉÍÓÚáéíóú"},
    {0x302, "AEIOUaeiou", U"ÂÊÎÔÛâêîôû"},
    {0x303, "ANOano", U"ÃÑÕãñõ"},
    {0x308, "AEIOUYaeiouy", U"ÄËÏÖÜŸäëïöüÿ"},
    {0x30A, "Aa", U"Åå"},
    {0x327, "Cc", U"Çç"},
};

/// Takes a letter with the mark that follows it, as one where there is such a letter.
char32_t takeComposed(std::string_view& text) {
    const char32_t c = takeCodePoint(text);
    if (c >= 0x80 || text.empty()) return c;
    std::string_view rest = text;
    const char32_t mark = takeCodePoint(rest);
    for (const Marked& row : kMarked)
        if (const std::size_t at = row.letters.find(static_cast<char>(c));
            row.mark == mark && at != std::string_view::npos) {
            text = rest;
            return row.composed[at];
        }
    return c;
}

using Table = std::array<std::pair<char32_t, std::uint8_t>, 128>;

/// The bytes above ASCII by what they stand for.
const Table& romanBytes() {
    static const Table table = [] {
        Table rows;
        for (unsigned i = 0; i < rows.size(); ++i) {
            const char byte = static_cast<char>(0x80 + i);
            const std::string utf8 = macRomanToUtf8({&byte, 1});
            std::string_view text = utf8;
            rows[i] = {takeCodePoint(text), static_cast<std::uint8_t>(0x80 + i)};
        }
        std::ranges::sort(rows);
        return rows;
    }();
    return table;
}

std::string romanOf(char32_t c) {
    if (c < 0x80) return {static_cast<char>(c)};
    const auto* const found = std::ranges::lower_bound(romanBytes(), c, {}, &Table::value_type::first);
    if (found != romanBytes().end() && found->first == c) return {static_cast<char>(found->second)};
    std::string utf8;
    appendUtf8(utf8, c);
    return lossyAscii(utf8);
}

} // namespace

std::string macRomanName(std::string_view utf8) {
    const std::string line = oneLine(utf8);
    std::string name;
    for (std::string_view rest = line; !rest.empty();) {
        name += romanOf(takeComposed(rest));
        if (name.size() >= kLongest) break;
    }
    return std::string(trimmed(std::string_view(name).substr(0, kLongest))); // a mark may have hidden a space
}

} // namespace chromalog
