#include "base/css_names.h"
#include "spaces/css_colour.h"
#include "spaces/gamut.h"

#include <gtest/gtest.h>

#include <span>
#include <string>

namespace chromalog {
namespace {

struct Text {
    std::string_view text;
    std::uint32_t bytes;
    std::uint32_t alpha = 255;
};

void expectTexts(std::span<const Text> table) {
    for (const auto& [text, bytes, alpha] : table) {
        const auto read = readCssColour(text);
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(bytesOf(read->rgb), bytes) << text << std::hex << ' ' << bytesOf(read->rgb);
        EXPECT_EQ(byteOf(read->alpha), alpha) << text;
        EXPECT_FALSE(read->mapped) << text;
    }
}

TEST(CssColour, ReadsHex) {
    const Text table[] = {{"#36c", 0x3366CC},
                          {"#36C8", 0x3366CC, 0x88},
                          {"#3366cc", 0x3366CC},
                          {"#3366CC80", 0x3366CC, 0x80},
                          {"36c", 0x3366CC},
                          {"3366cc", 0x3366CC},
                          {"3366CC80", 0x3366CC, 0x80},
                          {"#0000", 0, 0},
                          {"abc", 0xAABBCC},
                          {"000000", 0}};
    expectTexts(table);
}

TEST(CssColour, ReadsEveryName) {
    for (const auto& [name, rgb] : kCssColours) {
        const auto read = readCssColour(name);
        ASSERT_TRUE(read) << name;
        EXPECT_EQ(bytesOf(read->rgb), rgb) << name;
    }
    const Text table[] = {{"RebeccaPurple", 0x663399}, {"TRANSPARENT", 0, 0}};
    expectTexts(table);
}

TEST(CssColour, ReadsFunctions) {
    const Text table[] = {
        {"rgb(51, 102, 153)", 0x336699},
        {"rgb(51,102,153)", 0x336699},
        {"rgb(51 102 153)", 0x336699},
        {"RGBA(51, 102, 153, 0.5)", 0x336699, 128},
        {"rgba(51,102,153,50%)", 0x336699, 128},
        {"rgb(51 102 153 / 50%)", 0x336699, 128},
        {"rgb(51 102 153/.5)", 0x336699, 128},
        {"rgb(20%, 40%, 60%)", 0x336699},
        {"rgb( 20%\t40% 60% )", 0x336699},
        {"rgb (51, 102, 153)", 0x336699},
        {"rgb(300, -5, 1e2)", 0xFF0064},
        {"rgb(none 102 153)", 0x006699},
        {"rgb(51 102 153 / 7)", 0x336699},
        {"rgb(51 102 153 / none)", 0x336699, 0},
        {"hsl(210, 50%, 40%)", 0x336699},
        {"hsl(210 50 40)", 0x336699},
        {"hsla(210deg 50% 40% / .5)", 0x336699, 128},
        {"hsl(-150deg, 50%, 40%)", 0x336699},
        {"hsl(233.3333333grad, 50%, 40%)", 0x336699},
        {"hsl(0.5833333333turn, 50%, 40%)", 0x336699},
        {"hsl(3.6651914rad, 50%, 40%)", 0x336699},
        {"hsl(210, 500%, 40%)", 0x0066CC},
        {"hsb(210, 66.67%, 60%)", 0x336699},
        {"hsv(210 66.67 60)", 0x336699},
        {"hwb(210 20% 40%)", 0x336699},
        {"hwb(90 80% 80%)", 0x808080},
    };
    expectTexts(table);
}

TEST(CssColour, ReadsDeviceIndependentFunctions) {
    // Green and white as CSS Color 4 and its web platform tests write them.
    const Text table[] = {
        {"lab(46.2775% -47.5621 48.5837)", 0x008000},
        {"lab(46.2775 -47.5621 48.5837)", 0x008000},
        {"lab(46.2775 -38.05% 38.867%)", 0x008000},
        {"lch(46.2775% 67.9892 134.3912)", 0x008000},
        {"lch(46.2775, 45.3261%, 134.3912deg)", 0x008000},
        {"oklab(51.975% -0.1403 0.10768)", 0x008000},
        {"oklab(.51975 -35.075% 26.92%)", 0x008000},
        {"oklch(51.975% 0.17686 142.495)", 0x008000},
        {"oklch(0.51975 44.215% 142.495deg / 50%)", 0x008000, 128},
        {"oklch(100% 0 none)", 0xFFFFFF},
        {"lab(100 0 0)", 0xFFFFFF},
        {"lch(50 -20 30)", 0x777777},
    };
    expectTexts(table);
}

TEST(CssColour, TakesWhatSurroundsAColour) {
    const Text table[] = {
        {"  #abc;  ", 0xAABBCC},
        {"\t#abc\r\n", 0xAABBCC},
        {"color: #abc;", 0xAABBCC},
        {"COLOR:red", 0xFF0000},
        {"--brand-blue: rgb(0 0 255);", 0x0000FF},
        {"--marke-gr\xC3\xBCn: #abc", 0xAABBCC},
        {"$primary: #abc;", 0xAABBCC},
        {"\"primary\": \"#abc\",", 0xAABBCC},
        {"primary: '#abc',", 0xAABBCC},
        {"'#abc'", 0xAABBCC},
        {"`#abc`", 0xAABBCC},
        {"#abc ;;", 0xAABBCC},
    };
    expectTexts(table);
}

TEST(CssColour, RefusesEverythingElse) {
    for (const std::string_view text : {"",
                                        " ",
                                        ";",
                                        "#",
                                        "#1",
                                        "#12",
                                        "#12345",
                                        "#1234567",
                                        "#123456789",
                                        "#12345g",
                                        "#-12345",
                                        "#+1234",
                                        "# abc",
                                        "##abc",
                                        "1234",
                                        "12",
                                        "reddish",
                                        "red blue",
                                        "currentcolor",
                                        "color:",
                                        ": #abc",
                                        "a b: #abc",
                                        "color: a: #abc",
                                        "rgb",
                                        "rgb(",
                                        "rgb()",
                                        "rgb(1)",
                                        "rgb(1 2)",
                                        "rgb(1 2 3 4)",
                                        "rgb(1 2 3 / 4 / 5)",
                                        "rgb(1 2 3 /)",
                                        "rgb(1, 2, 3,)",
                                        "rgb(1,, 2, 3)",
                                        "rgb(1/2/3)",
                                        "rgb(1 2 3",
                                        "rgb(1 2 3))",
                                        "rgb((1 2 3)",
                                        "rgb(1 2 3) x",
                                        "x rgb(1 2 3)",
                                        "rgb(1deg 2 3)",
                                        "rgb(1px 2 3)",
                                        "rgb(1 2 3 / 1deg)",
                                        "rgb(a b c)",
                                        "rgb(255-0-0)",
                                        "rgb(nonesuch 1 2)",
                                        "hsl(10% 20% 30%)",
                                        "hsl(10 20deg 30%)",
                                        "lch(10 20 30%)",
                                        "cmyk(1 2 3 4)",
                                        "foo(1 2 3)",
                                        "(1 2 3)",
                                        "rgb(inf 0 0)",
                                        "rgb(nan 0 0)",
                                        "\"#abc",
                                        "'#abc\""})
        EXPECT_FALSE(readCssColour(text)) << text;
    EXPECT_FALSE(readCssColour(std::string_view("\0", 1)));
    EXPECT_FALSE(readCssColour(std::string_view("#ab\0c", 5)));
}

TEST(CssColour, AColourOutsideSrgbIsMappedAndSaysSo) {
    for (const char* text : {"oklch(70% 0.35 150)", "lab(50% 120 -120)", "lch(80 150 30)", "oklab(.5 .4 .4)",
                             "lab(100 110 0)", "lab(50 1e300 -1e300)", "lch(50 1e99 1e99)"}) {
        const auto read = readCssColour(text);
        ASSERT_TRUE(read) << text;
        EXPECT_TRUE(read->mapped) << text;
        EXPECT_TRUE(inSrgb(read->rgb, 0)) << text;
    }
    // The reddest red of a wide screen, as CSS writes Display P3's: nearly sRGB's own red.
    const auto red = readCssColour("oklch(64.86% 0.299 28.96)");
    ASSERT_TRUE(red);
    EXPECT_TRUE(red->mapped);
    EXPECT_GT(red->rgb.red, 0.98);
    EXPECT_LT(red->rgb.blue, 0.2);
}

TEST(CssColour, AVeryLongTextIsRefused) {
    for (const char* start : {"rgb(", "#", "a", "a:", ";", "\"", "1e", "rgb(1 2 3 / ", "0."}) {
        std::string text = start;
        text.resize(50'000'000, text.back());
        EXPECT_FALSE(readCssColour(text)) << start;
    }
    EXPECT_TRUE(readCssColour(std::string(100000, ' ') + "red" + std::string(100000, ';')));
    EXPECT_FALSE(readCssColour("rgb(1 2 3" + std::string(200, ' ') + ")"));
}

} // namespace
} // namespace chromalog
