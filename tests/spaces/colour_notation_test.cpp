#include "random_colours.h"
#include "spaces/colour_notation.h"
#include "spaces/colour_reading.h"
#include "spaces/css_colour.h"
#include "spaces/hsl.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace chromalog {
namespace {

constexpr ColourNotation kReadable[] = {ColourNotation::hex, ColourNotation::rgb,   ColourNotation::rgbCommas,
                                        ColourNotation::hsl, ColourNotation::hsb,   ColourNotation::lab,
                                        ColourNotation::lch, ColourNotation::oklab, ColourNotation::oklch};

TEST(ColourNotation, WritesEveryForm) {
    const Rgb blue = rgbOfBytes(0x336699);
    EXPECT_EQ(colourText(blue, ColourNotation::hex), "#336699");
    EXPECT_EQ(colourText(blue, ColourNotation::rgb), "rgb(51 102 153)");
    EXPECT_EQ(colourText(blue, ColourNotation::rgbCommas), "rgb(51, 102, 153)");
    EXPECT_EQ(colourText(blue, ColourNotation::hsl), "hsl(210 50% 40%)");
    EXPECT_EQ(colourText(blue, ColourNotation::hsb), "hsb(210 66.7% 60%)");
    EXPECT_EQ(colourText(blue, ColourNotation::lab), "lab(41.5 -4.6 -33.5)");
    EXPECT_EQ(colourText(blue, ColourNotation::lch), "lch(41.5 33.8 262.2)");
    EXPECT_EQ(colourText(blue, ColourNotation::oklab), "oklab(49.9% -0.033 -0.093)");
    EXPECT_EQ(colourText(blue, ColourNotation::oklch), "oklch(49.9% 0.099 250.4)");
    EXPECT_EQ(colourText(blue, ColourNotation::unit), "0.200, 0.400, 0.600");
}

TEST(ColourNotation, WritesAlphaWhereThereIsAny) {
    const Rgb blue = rgbOfBytes(0x336699);
    EXPECT_EQ(colourText(blue, ColourNotation::hex, 0.5), "#33669980");
    EXPECT_EQ(colourText(blue, ColourNotation::rgb, 0.5), "rgb(51 102 153 / 0.5)");
    EXPECT_EQ(colourText(blue, ColourNotation::rgbCommas, 0.5), "rgba(51, 102, 153, 0.5)");
    EXPECT_EQ(colourText(blue, ColourNotation::hsl, 0), "hsl(210 50% 40% / 0)");
    EXPECT_EQ(colourText(blue, ColourNotation::unit, 0.5), "0.200, 0.400, 0.600, 0.500");
    EXPECT_EQ(colourText(blue, ColourNotation::hex, 0.9999), "#336699");
    EXPECT_EQ(colourText(blue, ColourNotation::rgb, 135 / 255.0), "rgb(51 102 153 / 0.53)");
    EXPECT_EQ(colourText(blue, ColourNotation::rgb, 1 / 255.0), "rgb(51 102 153 / 0.004)");
    for (std::uint32_t byte = 0; byte < 256; ++byte)
        for (const ColourNotation notation : kReadable) {
            const auto read = readCssColour(colourText(blue, notation, byte / 255.0));
            ASSERT_TRUE(read);
            EXPECT_EQ(byteOf(read->alpha), byte);
        }
}

TEST(ColourNotation, GreysAreWrittenWithoutHue) {
    EXPECT_EQ(colourText({0, 0, 0}, ColourNotation::oklch), "oklch(0% 0 0)");
    EXPECT_EQ(colourText({1, 1, 1}, ColourNotation::oklch), "oklch(100% 0 0)");
    EXPECT_EQ(colourText({1, 1, 1}, ColourNotation::lab), "lab(100 0 0)");
    EXPECT_EQ(colourText({0.5, 0.5, 0.5}, ColourNotation::lch), "lch(53.4 0 0)");
    EXPECT_EQ(colourText({1, 1, 1}, ColourNotation::hsl), "hsl(0 0% 100%)");
}

TEST(ColourNotation, AHueIsBelowAFullTurn) {
    EXPECT_EQ(colourText(rgbOf(Hsl{359.999, 1, 0.5}), ColourNotation::hsl), "hsl(0 100% 50%)");
}

TEST(ColourNotation, WhatIsOutsideIsClamped) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(colourText({-1, 0.4, 2}, ColourNotation::hex), "#0066ff");
    EXPECT_EQ(colourText({none, none, none}, ColourNotation::oklch, none), "oklch(0% 0 0 / 0)");
    EXPECT_EQ(colourText({-1, 0.4, 2}, ColourNotation::unit, 3), "0.000, 0.400, 1.000");
}

void expectSameBytesBack(std::uint32_t bytes) {
    for (const ColourNotation notation : kReadable) {
        const std::string text = colourText(rgbOfBytes(bytes), notation);
        const auto read = readCssColour(text);
        ASSERT_TRUE(read) << text;
        ASSERT_EQ(bytesOf(read->rgb), bytes) << text;
        ASSERT_FALSE(read->mapped) << text;
        ASSERT_EQ(read->alpha, 1) << text;
    }
}

TEST(ColourNotation, WrittenAndReadIsTheSameColour) {
    for (std::uint32_t byte = 0; byte < 256; ++byte) // greys, primaries and their mixtures, ramps to white
        for (const std::uint32_t mask :
             {0x010101u, 0x010000u, 0x000100u, 0x000001u, 0x010100u, 0x010001u, 0x000101u}) {
            expectSameBytesBack(byte * mask);
            expectSameBytesBack(0xFFFFFF - byte * mask);
        }
    for (std::uint32_t red = 0; red < 256; red += 15)
        for (std::uint32_t green = 0; green < 256; green += 15)
            for (std::uint32_t blue = 0; blue < 256; blue += 15)
                expectSameBytesBack(red << 16 | green << 8 | blue);
}

TEST(ColourNotation, ColoursBetweenTwoBytesComeBackAsTheirBytes) {
    RandomColours random(8);
    for (int i = 0; i < 3000; ++i) {
        // Right on the edge between two bytes, or a hair beside it.
        const double edge = (random.below(255) + 0.5) / 255 + (i % 3 - 1) * 1e-12;
        const Rgb rgb{edge, random.number(0, 1), i % 2 ? edge : random.number(0, 1)};
        for (const ColourNotation notation : kReadable) {
            const auto read = readCssColour(colourText(rgb, notation));
            ASSERT_TRUE(read);
            EXPECT_EQ(bytesOf(read->rgb), bytesOf(rgb)) << colourText(rgb, notation);
        }
    }
}

TEST(ColourReading, IsTheFunctionWithoutItsName) {
    const Rgb blue = rgbOfBytes(0x336699);
    EXPECT_EQ(readingText(blue, ColourNotation::hsl), "210 50% 40%");
    EXPECT_EQ(readingText(blue, ColourNotation::oklch), "49.9% 0.099 250.4");
    for (const ColourNotation notation : kReadable) {
        SCOPED_TRACE(static_cast<int>(notation));
        const auto read = readReading(readingText(blue, notation), notation);
        ASSERT_TRUE(read);
        EXPECT_EQ(bytesOf(read->rgb), 0x336699U);
    }
}

TEST(ColourReading, IsReadAsItIsTyped) {
    for (const char* text : {"210 50 40", "210, 50%, 40%", "210° 50% 40%", " 210deg 50% 40% ",
                             "hsl(210 50% 40%)", "#336699", "hsb(210 66.7% 60%)"}) {
        const auto read = readReading(text, ColourNotation::hsl);
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(bytesOf(read->rgb), 0x336699U) << text;
    }
    for (const char* text : {"", "210", "210 50", "210 50 40 5 6", "two 50 40"})
        EXPECT_FALSE(readReading(text, ColourNotation::hsl)) << text;
}

TEST(ColourNotation, ThreeDecimalsTellAllBytesApart) {
    std::set<std::string> texts;
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        const std::string text = colourText({byte / 255.0, 0, 0}, ColourNotation::unit);
        EXPECT_EQ(byteOf(std::stod(text)), byte) << text;
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 256u);
}

} // namespace
} // namespace chromalog
