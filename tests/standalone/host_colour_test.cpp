#include "standalone/conversion/closed_converter.h"
#include "standalone/host_colour.h"

#include <gtest/gtest.h>

namespace chromalog::standalone {
namespace {

TEST(HostColour, IsReadAsTheRecordHoldsIt) {
    EXPECT_EQ(readColour("#12ABff", Scale::sixteen), (HostColour{Space::rgb, {0x1212, 0xABAB, 0xFFFF, 0}}));
    EXPECT_EQ(readColour("tomato", Scale::sixteen), (HostColour{Space::rgb, {0xFFFF, 0x6363, 0x4747, 0}}));
    EXPECT_EQ(readColour("cmyk:9,8,7,6", Scale::sixteen), (HostColour{Space::cmyk, {9, 8, 7, 6}}));
    EXPECT_EQ(readColour("no colour", Scale::sixteen), std::nullopt);
    EXPECT_EQ(readColour("#12345678", Scale::sixteen), std::nullopt);
}

TEST(HostColour, FunctionsOfCssAreRead) {
    EXPECT_EQ(readColour("rgb(18, 171, 255)", Scale::sixteen),
              (HostColour{Space::rgb, {0x1212, 0xABAB, 0xFFFF, 0}}));
    EXPECT_EQ(readColour("hsl(240 100% 50%)", Scale::eight), (HostColour{Space::rgb, {0, 0, 255, 0}}));
    EXPECT_EQ(readColour("oklch(1 0 0)", Scale::sixteen),
              (HostColour{Space::rgb, {0xFFFF, 0xFFFF, 0xFFFF, 0}}));
    for (const char* text : {"rgb(1 2 3 / 50%)", "rgb(1, 2)", "cmyk(1 2 3 4)", "rgb(1 2 3", "()"})
        EXPECT_EQ(readColour(text, Scale::sixteen), std::nullopt) << text;
}

TEST(HostColour, EightBitRecordsHoldBytes) {
    EXPECT_EQ(readColour("#12ABff", Scale::eight), (HostColour{Space::rgb, {0x12, 0xAB, 0xFF, 0}}));
    EXPECT_EQ(readColour("rgb:1,2,300", Scale::eight), (HostColour{Space::rgb, {1, 2, 300, 0}}));
}

TEST(HostColour, EveryByteSurvivesReadingAndPrinting) {
    for (int byte = 0; byte < 256; ++byte) {
        char text[8];
        std::snprintf(text, sizeof text, "#%02x%02x%02x", byte, 255 - byte, byte / 2);
        for (const Scale scale : {Scale::eight, Scale::sixteen}) {
            const auto colour = readColour(text, scale);
            ASSERT_TRUE(colour);
            EXPECT_EQ(formatColour(rgbOf(*colour, scale, ClosedConverter()), Format::hex), text);
        }
    }
}

TEST(HostColour, EightBitFormatsTakeTheNearestValue) {
    const RgbChannels rgb{58981, 0x00FF, 0xFF00};
    EXPECT_EQ(formatColour(rgb, Format::hex), "#e501fe");
    EXPECT_EQ(formatColour(rgb, Format::rgb8), "229 1 254");
    EXPECT_EQ(formatColour(rgb, Format::rgb16), "58981 255 65280");
    EXPECT_EQ(formatColour(rgb, Format::css), "rgb(229, 1, 254)");
    EXPECT_EQ(formatColour(rgb, Format::json),
              R"({"hex": "#e501fe", "rgb8": [229, 1, 254], "rgb16": [58981, 255, 65280]})");
}

TEST(HostColour, TheHighByteOfA16BitHueCountsAsDegrees) {
    const ClosedConverter converter;
    EXPECT_EQ(rgbOf({Space::hsb, {120 << 8, 65535, 65535}}, Scale::sixteen, converter),
              (RgbChannels{0, 65535, 0}));
    EXPECT_EQ(rgbOf({Space::hsb, {(240 << 8) + 255, 65535, 65535}}, Scale::sixteen, converter),
              (RgbChannels{0, 0, 65535}));
    EXPECT_EQ(rgbOf({Space::hsb, {300, 255, 255}}, Scale::eight, converter), (RgbChannels{65535, 0, 65535}));
}

} // namespace
} // namespace chromalog::standalone
