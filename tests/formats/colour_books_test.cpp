#include "formats/colour_books.h"

#include "support/swatch_files.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::keyOf;

TEST(ColourBooks, EachCodeHasItsBook) {
    struct Row {
        int space;
        std::string_view key, file;
    };
    for (const Row& row : {Row{3, "  101C", "PANTONE solid coated.acb"},
                           Row{3, "  101U", "PANTONE solid uncoated.acb"},
                           Row{3, "U 101 ", "PANTONE solid coated.acb"},
                           Row{4, "  1204", "FOCOLTONE.acb"},
                           Row{5, "   1-A", "TRUMATCH.acb"},
                           Row{6, " 0001 ", "TOYO 94 COLOR FINDER.acb"},
                           Row{11, "   1  ", "DIC Color Guide.acb"},
                           Row{3000, " 71-1D", "ANPA Color.acb"},
                           Row{3022, " 8001C", "PANTONE+ Metallic Coated.acb"},
                           Row{3032, " 0001 ", "TOYO COLOR FINDER.acb"},
                           Row{3060, "000", "PANTONE+ Solid Coated.acb"},
                           Row{3061, "001", "PANTONE+ Solid Uncoated.acb"},
                           Row{3062, "002", "PANTONE+ CMYK Coated.acb"},
                           Row{3063, "003", "PANTONE+ CMYK Coated.acb"},
                           Row{3064, "004", "PANTONE+ Color Bridge Coated.acb"},
                           Row{3065, "005", "PANTONE+ Color Bridge Uncoated.acb"},
                           Row{3067, "007", "PANTONE+ Pastels & Neons Uncoated.acb"},
                           Row{3068, "008", "PANTONE+ Premium Metallics Coated.acb"},
                           Row{10, "   1EP", "HKS E Process.acb"},
                           Row{10, "   1 E", "HKS E.acb"},
                           Row{10, "   1KP", "HKS K Process.acb"},
                           Row{10, "   1 K", "HKS K.acb"},
                           Row{10, "   1NP", "HKS N Process.acb"},
                           Row{10, "   1 N", "HKS N.acb"},
                           Row{10, "   1ZP", "HKS Z Process.acb"},
                           Row{10, "   1 Z", "HKS Z.acb"},
                           Row{10, "   1ZE", "HKS E.acb"}}) {
        const auto book = bookForSpace(static_cast<std::int16_t>(row.space), keyOf(row.key));
        ASSERT_TRUE(book) << row.space << row.key;
        EXPECT_EQ(book->file, row.file) << row.space << row.key;
        EXPECT_TRUE(book->opens) << row.space;
        EXPECT_TRUE(isBookSpace(static_cast<std::int16_t>(row.space)));
    }
}

TEST(ColourBooks, TheNameOf3066NeverBecomesAPath) {
    const auto book = bookForSpace(3066, keyOf("  006 "));
    ASSERT_TRUE(book);
    EXPECT_EQ(book->file, "PANTONE+ Pastels & Neons Coated.acb");
    EXPECT_FALSE(book->opens);
}

TEST(ColourBooks, AnHksKeyWithoutAKnownLetterChoosesNothing) {
    EXPECT_FALSE(bookForSpace(10, keyOf("   1 X")));
    EXPECT_FALSE(bookForSpace(10, keyOf("   1 P")));
    EXPECT_TRUE(isBookSpace(10));
}

TEST(ColourBooks, PublicCodesThatAreNotInTheTableAreNoBooks) {
    for (const int space : {0, 1, 2, 7, 8, 9, 12, 2999, 3001, 3002, 3021, 3023, 3031, 3033, 3059, 3069, -1}) {
        EXPECT_FALSE(isBookSpace(static_cast<std::int16_t>(space))) << space;
        EXPECT_FALSE(bookForSpace(static_cast<std::int16_t>(space), {})) << space;
    }
}

TEST(ColourBooks, TheFolderFollowsTheHostsMajorVersion) {
    EXPECT_EQ(pathOfBooks(13 * 65536, ""), "/Applications/Adobe Photoshop CS6/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(14 * 65536 + 2 * 256, ""), "/Applications/Adobe Photoshop CC/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(15 * 65536, "", "/a"), "/a/Adobe Photoshop CC 2014/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(16 * 65536, "", "/a"), "/a/Adobe Photoshop CC 2015/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(12 * 65536, ""), "/Applications");
    EXPECT_EQ(pathOfBooks(17 * 65536, ""), "/Applications");
    EXPECT_EQ(pathOfBooks(0, ""), "/Applications");
}

TEST(ColourBooks, TheVersionIsDividedBy65535) {
    EXPECT_EQ(pathOfBooks(16 * 65535, "", "/a"), "/a/Adobe Photoshop CC 2015/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(17 * 65535 - 1, "", "/a"), "/a/Adobe Photoshop CC 2015/Presets/Color Books");
    EXPECT_EQ(pathOfBooks(17 * 65535, "", "/a"), "/a");
}

TEST(ColourBooks, ANamedFolderStandsForTheHostsOwn) {
    for (const int major : {13, 14, 15, 16})
        EXPECT_EQ(pathOfBooks(major * 65536, "/books"), "/books");
    EXPECT_EQ(pathOfBooks(12 * 65536, "/books"), "");
    EXPECT_EQ(pathOfBooks(17 * 65536, "/books"), "");
}

} // namespace
} // namespace chromalog
