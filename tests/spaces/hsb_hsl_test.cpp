#include "random_colours.h"
#include "spaces/hsb.h"
#include "spaces/hsl.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

TEST(Hsb, IsTheColoursOwnRuleBitForBit) {
    RandomColours random(2);
    for (int i = 0; i < 20000; ++i) {
        const Rgb rgb = i % 4 == 0 ? rgbOfBytes(random.below(0x1000000)) : random.rgb();
        const Colour colour = Colour::rgb(rgb.red, rgb.green, rgb.blue);
        const Hsb hsb = hsbOf(rgb);
        EXPECT_EQ(hsb.hue, colour.hue());
        EXPECT_EQ(hsb.saturation, colour.saturation());
        EXPECT_EQ(hsb.brightness, colour.brightness());
        const Rgb back = rgbOf(hsb);
        EXPECT_TRUE(Colour::hsb(hsb.hue, hsb.saturation, hsb.brightness).sameRgb(colourOf(back)));
        EXPECT_EQ(bytesOf(back), bytesOf(rgb));
    }
}

TEST(Hsb, BlackAndGreysAreZeroWhereNothingIsThere) {
    EXPECT_EQ(hsbOf({0, 0, 0}).saturation, 0);
    EXPECT_EQ(hsbOf({0.4, 0.4, 0.4}).hue, 0);
    EXPECT_EQ(hsbOf({2, -1, -1}).brightness, 1);
}

struct NamedForm {
    std::uint32_t bytes;
    double hue, first, second; ///< degrees, then per cent
};

TEST(Hsl, AgreesWithTheTablesOfCssColor) {
    // CSS Color 4, section 7: hsl(120deg 100% 25%) is dark green. CSS Color 3, section 4.2.4: cells of the
    // tables for 30 and 240 degrees.
    const NamedForm table[] = {{0x008000, 120, 100, 25}, {0xFF8000, 30, 100, 50}, {0xFFBF80, 30, 100, 75},
                               {0x804000, 30, 100, 25},  {0xBF8040, 30, 50, 50},  {0x0000FF, 240, 100, 50},
                               {0x4040BF, 240, 50, 50},  {0xFFFFFF, 0, 0, 100},   {0x000000, 0, 0, 0},
                               {0x808080, 0, 0, 50.196}};
    for (const auto& [bytes, hue, saturation, lightness] : table) {
        EXPECT_EQ(bytesOf(rgbOf(Hsl{hue, saturation / 100, lightness / 100})), bytes) << std::hex << bytes;
        const Hsl hsl = hslOf(rgbOfBytes(bytes));
        EXPECT_NEAR(hsl.hue, hue, 0.3) << std::hex << bytes;
        EXPECT_NEAR(hsl.saturation * 100, saturation, 0.5) << std::hex << bytes;
        EXPECT_NEAR(hsl.lightness * 100, lightness, 0.2) << std::hex << bytes;
    }
}

TEST(Hwb, MixesWithWhiteAndBlack) {
    // CSS Color 4, section 8: hwb(150 20% 10%) is hsl(150 77.78% 55%); at 45 degrees 40% 80% a grey of a
    // third.
    const Rgb mixed = rgbOf(Hwb{150, 0.2, 0.1});
    const Hsl hsl = hslOf(mixed);
    EXPECT_NEAR(hsl.hue, 150, 1e-9);
    EXPECT_NEAR(hsl.saturation, 0.7778, 5e-5);
    EXPECT_NEAR(hsl.lightness, 0.55, 1e-9);
    EXPECT_EQ(bytesOf(rgbOf(Hwb{45, 0.4, 0.8})), 0x555555u);
    EXPECT_EQ(bytesOf(rgbOf(Hwb{45, 0, 1})), 0u);
    const Hwb back = hwbOf(mixed);
    EXPECT_NEAR(back.hue, 150, 1e-9);
    EXPECT_NEAR(back.whiteness, 0.2, 1e-12);
    EXPECT_NEAR(back.blackness, 0.1, 1e-12);
}

TEST(Hsl, LeadsBackFromEveryHue) {
    RandomColours random(3);
    for (int i = 0; i < 20000; ++i) {
        const Rgb rgb = random.rgb();
        for (const Rgb& back : {rgbOf(hslOf(rgb)), rgbOf(hwbOf(rgb))}) {
            EXPECT_NEAR(back.red, rgb.red, 1e-12);
            EXPECT_NEAR(back.green, rgb.green, 1e-12);
            EXPECT_NEAR(back.blue, rgb.blue, 1e-12);
        }
    }
    for (const double turn : {-720.0, -360.0, 360.0, 3600.0})
        EXPECT_EQ(bytesOf(rgbOf(Hsl{210 + turn, 0.5, 0.4})), 0x336699u);
}

} // namespace
} // namespace chromalog
