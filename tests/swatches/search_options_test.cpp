#include "spaces/nearest_css_name.h"
#include "swatches/list_fixture.h"
#include "swatches/search_options.h"
#include "swatches/shown_colour.h"

#include <random>

namespace chromalog {
namespace {

using test::swatch;

bool finds(std::string_view text, const FCOStruct& record, const SearchOptions& options) {
    return swatchTest(text, options)(record);
}

SearchOptions only(bool SearchOptions::*option) {
    SearchOptions options;
    options.*option = true;
    return options;
}

TEST(SearchOptions, WithoutAnyTheSearchIsLetterByLetter) {
    EXPECT_TRUE(finds("Blue", swatch("Light Blue"), {}));
    EXPECT_FALSE(finds("blue", swatch("Light Blue"), {}));
    EXPECT_FALSE(finds("Caf", swatch("Caf\x8e"), {})) << "a name with a byte above 127";
    EXPECT_FALSE(finds("", swatch("Blue"), {}));
}

TEST(SearchOptions, LetterCase) {
    EXPECT_TRUE(finds("bLUE", swatch("Light Blue"), only(&SearchOptions::ignoreCase)));
    EXPECT_TRUE(finds("CAF", swatch("Caf\x8e"), only(&SearchOptions::ignoreCase)));
    EXPECT_FALSE(finds("cafe", swatch("Caf\x8e"), only(&SearchOptions::ignoreCase)));
}

TEST(SearchOptions, AccentsOfNamesAndOfTheText) {
    const SearchOptions accents = only(&SearchOptions::ignoreAccents);
    EXPECT_TRUE(finds("Cafe", swatch("Caf\x8e"), accents));
    EXPECT_TRUE(finds("Café", swatch("Cafe"), accents));
    EXPECT_TRUE(finds("Cafe\xcc\x81", swatch("Caf\x8e"), accents)) << "a combining accent";
    EXPECT_FALSE(finds("Привет", swatch("??????"), accents)) << "letters that have no other stay themselves";
    EXPECT_FALSE(finds("\xcc\x81", swatch("Cafe"), accents)) << "an accent alone finds nothing";
}

TEST(SearchOptions, HexAndItsBeginnings) {
    const SearchOptions hex = only(&SearchOptions::hex);
    const FCOStruct blue = swatch("Sea", 0x3333, 0x6666, 0xcccc);
    for (const char* text : {"#3366cc", "#36C", "3366CC", "36c", "#3366", "#3", " #3366cc "})
        EXPECT_TRUE(finds(text, blue, hex)) << text;
    for (const char* text : {"#3366cd", "366", "6c", "#3366cc0", "#"})
        EXPECT_FALSE(finds(text, blue, hex)) << text;
    EXPECT_TRUE(finds("#ffffff", swatch("Store", -1, -1, -1), hex)) << "white, as Store writes it";
    EXPECT_FALSE(finds("#3366cc", blue, only(&SearchOptions::ignoreCase)));
}

TEST(SearchOptions, TheNearestNameOfCss) {
    const SearchOptions css = only(&SearchOptions::cssName);
    const FCOStruct teal = swatch("Sea", 0, 0x8080, 0x8484);
    EXPECT_TRUE(finds("teal", teal, css));
    EXPECT_TRUE(finds("TEA", teal, css));
    EXPECT_FALSE(finds("red", teal, css));
    EXPECT_TRUE(finds("light blue", swatch("x", 0xadad, 0xd8d8, 0xe6e6), css));
    EXPECT_FALSE(finds("  ", teal, css));
}

TEST(SearchOptions, TheNearestNameIsTheSameAsEverywhere) {
    const SearchOptions css = only(&SearchOptions::cssName);
    std::mt19937 random(14);
    for (int i = 0; i < 60; ++i) {
        const FCOStruct any = swatch("", random() % 65536, random() % 65536, random() % 65536);
        EXPECT_TRUE(finds(nearestCssName(rgbOf(shownColour(any))), any, css));
    }
}

TEST(SearchOptions, AWiderSearchAlsoEndsTheNamesOfList1) {
    std::vector<FCOStruct> one{swatch("one")}, two{swatch("TWO")};
    one[0].Namen[4] = 'x';
    EXPECT_EQ(findSwatches(two, one, 1, "two", only(&SearchOptions::ignoreCase)).size(), 1u);
    EXPECT_EQ(one[0].Namen[4], 0);
    EXPECT_TRUE(findSwatches(two, one, 1, "two", {}).empty());
}

} // namespace
} // namespace chromalog
