#pragma once

#include "palettes/palette.h"

#include <algorithm>
#include <random>

namespace chromalog::test {

/// What people and programs name colours: all that a format might trip over.
inline std::string randomName(std::mt19937& random) {
    static const std::string kNames[] = {"",
                                         "Blue",
                                         "Blue",
                                         "blue",
                                         "Za\u017C\u00F3\u0142\u0107",
                                         "e\u0301te\u0301",
                                         "\u00E9t\u00E9",
                                         "\U0001F308 rainbow",
                                         "\u05E9\u05DC\u05D5\u05DD",
                                         "a\x01\x1F\x7F z",
                                         "two\nlines\r\nmore\t",
                                         "  blanks  ",
                                         "12 34 56 78",
                                         "#336699",
                                         "# comment",
                                         "; comment",
                                         "// comment",
                                         "Name: x",
                                         "Columns: 4",
                                         "$value",
                                         "$$$/a/b=Text",
                                         "$$$/a=$$$/b=^^RR",
                                         "^R^C^",
                                         "{a.b}",
                                         "a.b",
                                         "a/b",
                                         "Color 2",
                                         "color-2",
                                         "color",
                                         "Blue-2",
                                         "Blue 2",
                                         "--x--",
                                         "\"quoted\"\\",
                                         "<&>'\"]]>",
                                         "\uFFFE\uFFFF\uFFFD\uFEFF",
                                         "\U0010FFFF",
                                         "\u0080\u2028",
                                         "value",
                                         "-",
                                         "_",
                                         "9",
                                         "rgb(1 2 3)",
                                         std::string(300, 'n'),
                                         std::string(150, 'n') + "\u00FC",
                                         "!important",
                                         "*/ /* {;}"};
    std::string name = kNames[random() % std::size(kNames)];
    if (random() % 4 == 0) name += kNames[random() % std::size(kNames)];
    return name;
}

inline double randomUnit(std::mt19937& random) {
    constexpr double kEdges[] = {0, 1, 0.5, 1 / 255.0, 128 / 255.0, 257 / 65535.0, 65534 / 65535.0};
    const auto kind = random() % 10;
    return kind < std::size(kEdges) ? kEdges[kind] : random() / 4294967295.0;
}

inline PaletteColour randomColour(std::mt19937& random, PaletteSpace space) {
    static const std::string kGroups[] = {"", "", "A", "A/B", "B", "A/B/C", "$x.y/{z}", "//", "Blue", "a\nb"};
    PaletteColour colour;
    colour.name = randomName(random);
    colour.space = space;
    const std::size_t used = space == PaletteSpace::gray ? 1 : space == PaletteSpace::cmyk ? 4 : 3;
    for (std::size_t i = 0; i < used; ++i)
        colour.components[i] = randomUnit(random);
    if (space == PaletteSpace::lab)
        colour.components = {100 * colour.components[0], 255 * colour.components[1] - 128,
                             255 * colour.components[2] - 128};
    if (space == PaletteSpace::book)
        colour.components = {3000, double(random() & 0xFFFF), double(random() & 0xFFFF),
                             double(random() & 0xFFFF)};
    colour.alpha = random() % 3 ? 1 : randomUnit(random);
    colour.isSpot = random() % 4 == 0;
    colour.group = kGroups[random() % std::size(kGroups)];
    return colour;
}

/// Mostly a few colours of all spaces; some of one space, some with hundreds.
inline Palette randomPalette(std::mt19937& random) {
    constexpr PaletteSpace kSpaces[] = {PaletteSpace::rgb, PaletteSpace::hsb,  PaletteSpace::cmyk,
                                        PaletteSpace::lab, PaletteSpace::gray, PaletteSpace::book};
    Palette palette;
    palette.title = randomName(random);
    const std::size_t count = random() % 200 == 0 ? 80 + random() % 300 : random() % 7;
    const bool oneSpace = random() % 3 == 0;
    const PaletteSpace first = kSpaces[random() % 5];
    for (std::size_t i = 0; i < count; ++i)
        palette.colours.push_back(
            randomColour(random, oneSpace ? first : kSpaces[random() % std::size(kSpaces)]));
    return palette;
}

/// Ink without a profile.
inline std::array<double, 3> plainInk(const PaletteComponents& c) {
    return {(1 - c[0]) * (1 - c[3]), (1 - c[1]) * (1 - c[3]), (1 - c[2]) * (1 - c[3])};
}

} // namespace chromalog::test
