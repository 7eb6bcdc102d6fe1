#include "base/colour_text.h"
#include "base/css_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace chromalog {
namespace {

struct Reading {
    const char* text;
    std::int16_t space;
    std::array<std::uint16_t, 4> components;
};

TEST(ColourText, ReadsEveryForm) {
    const Reading readings[] = {
        {"#3366cc", 0, {0x3333, 0x6666, 0xCCCC, 0}},
        {"#36C", 0, {0x3333, 0x6666, 0xCCCC, 0}},
        {"#FFFFFF", 0, {65535, 65535, 65535, 0}},
        {"red", 0, {65535, 0, 0, 0}},
        {"RebeccaPurple", 0, {0x6666, 0x3333, 0x9999, 0}},
        {"rgb:4863,13312,65535", 0, {4863, 13312, 65535, 0}},
        {"rgb:1,2,3,4", 0, {1, 2, 3, 4}},
        {"hsb:0,65535,65535", 1, {0, 65535, 65535, 0}},
        {"cmyk:0,65535,1,2", 2, {0, 65535, 1, 2}},
        {"lab:1,2,3", 3, {1, 2, 3, 0}},
        {"gray:32768,0,0", 4, {32768, 0, 0, 0}},
        {"gray:65535", 4, {65535, 0, 0, 0}},
        {"gray:7,8", 4, {7, 8, 0, 0}},
    };
    for (const auto& expected : readings) {
        const auto read = readWrittenColour(expected.text);
        ASSERT_TRUE(read) << expected.text;
        EXPECT_EQ(read->space, expected.space) << expected.text;
        EXPECT_EQ(read->components, expected.components) << expected.text;
        EXPECT_EQ(read->alpha, 65535) << expected.text;
    }
}

TEST(ColourText, RefusesEverythingElse) {
    for (const char* text :
         {"",           "#",         "#12",           "#12345",        "#12345g",    "#-12345",
          "#1234567",   "#33 66cc",  "3366cc",        "reddish",       "rgb:",       "rgb:1",
          "rgb:1,2",    "rgb:1,2,",  "rgb:1,2,3,4,5", "rgb:1,2,65536", "rgb:1,2,-3", "rgb:1, 2,3",
          "rgb:1,2,3x", "xyz:1,2,3", ":1,2,3",        "RGB:1,2,3",     "#3366cc80",  "transparent",
          "rgb:1,2,3,", "rgb:1,,3",  "cmyk:1,2,3",    "gray:",         "gray:1,",    "gray:1,2,3,4,5"})
        EXPECT_FALSE(readWrittenColour(text)) << text;
}

TEST(ColourText, SaysWhichComponentsAreMissing) {
    const std::pair<const char*, const char*> cases[] = {{"rgb:1,2", "missing: blue"},
                                                         {"rgb:1", "missing: green, blue"},
                                                         {"rgb:", "missing: red, green, blue"},
                                                         {"rgb:1,,3", "missing: green"},
                                                         {"rgb:,2,", "missing: red, blue"},
                                                         {"hsb:1", "missing: saturation, brightness"},
                                                         {"cmyk:1,2,3", "missing: black"},
                                                         {"lab:1", "missing: a, b"},
                                                         {"gray:", "missing: gray"},
                                                         {"rgb:1,2,3", ""},
                                                         {"rgb:1,2,x", ""},
                                                         {"rgb:1,2,3,", ""},
                                                         {"rgb:1,2,3,4,5", ""},
                                                         {"xyz:1", ""},
                                                         {"#12", ""},
                                                         {"", ""}};
    for (const auto& [text, missing] : cases)
        EXPECT_EQ(missingComponents(text), missing) << text;
}

TEST(ColourText, ReadsAlphaOnlyWhereItIsAsked) {
    const auto read = readWrittenColour("#33669980", WithAlpha::yes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->components, (std::array<std::uint16_t, 4>{0x3333, 0x6666, 0x9999, 0}));
    EXPECT_EQ(read->alpha, 0x8080);
    EXPECT_TRUE(readWrittenColour("#336699", WithAlpha::yes));
    EXPECT_FALSE(readWrittenColour("#33669980", WithAlpha::no));
}

TEST(ColourText, TheByteOfAWordIsTheNearest) {
    for (int word = 0; word <= 65535; ++word)
        ASSERT_EQ(byteOf(static_cast<std::uint16_t>(word)), std::lround(word * 255 / 65535.0)) << word;
}

TEST(ColourText, EveryByteComesBackFromItsWordAndThroughAComponent) {
    for (int byte = 0; byte <= 255; ++byte) {
        EXPECT_EQ(byteOf(static_cast<std::uint16_t>(byte * 257)), byte);
        EXPECT_EQ(byteOf(channelOf(byte / 255.0)), byte);
        EXPECT_EQ(byteOf(channelOf(static_cast<float>(byte * 257) / 65535.0f)), byte)
            << "as a swatch's channel";
    }
}

TEST(ColourText, WordsAreTruncatedAsOkReturnsThem) {
    EXPECT_EQ(channelOf(0.9), 58981);
    EXPECT_EQ(channelOf(0.5), 32767);
    EXPECT_EQ(channelOf(1), 65535);
    EXPECT_EQ(channelOf(0), 0);
}

TEST(ColourText, WritesHexAndSpokenValues) {
    EXPECT_EQ(hexText({58981, 19660, 6553}), "#e54c19");
    EXPECT_EQ(hexText({0, 1 * 257, 16 * 257}), "#000110");
    EXPECT_EQ(spokenText(RgbChannels{0xF8F8, 0xF9F9, 0xFAFA}), "RGB 248 249 250, #f8f9fa");
    EXPECT_EQ(spokenText(RgbChannels{65535, 65535, 65535}), "RGB 255 255 255, #ffffff");
}

TEST(ColourText, AColourIsTheOneThatOkReturns) {
    EXPECT_EQ(spokenText(Colour::rgb(0.9, 0.3, 0.1)), "RGB 229 76 25, #e54c19");
    EXPECT_EQ(spokenText(Colour::rgb(1, 0, 1)), "RGB 255 0 255, #ff00ff");
    EXPECT_EQ(spokenText(Colour::rgb(0.999, 0.4999, 0.001)), "RGB 255 127 0, #ff7f00");
}

TEST(ColourText, NamesAreSortedForTheSearch) {
    EXPECT_TRUE(std::ranges::is_sorted(kCssColours, {}, &CssColour::name));
    EXPECT_EQ(std::size(kCssColours), 148u);
    for (const auto& [name, rgb] : kCssColours)
        EXPECT_TRUE(readWrittenColour(name)) << name;
}

} // namespace
} // namespace chromalog
