#include "random_colours.h"
#include "spaces/ciede2000.h"
#include "spaces/colour_blindness.h"
#include "spaces/gamut.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

constexpr ColourBlindness kAll[] = {ColourBlindness::protanopia, ColourBlindness::deuteranopia,
                                    ColourBlindness::tritanopia};

TEST(ColourBlindness, GreysStayThemselves) {
    for (const ColourBlindness blindness : kAll)
        for (std::uint32_t byte = 0; byte < 256; ++byte)
            EXPECT_EQ(bytesOf(seenWith(blindness, rgbOfBytes(byte * 0x010101))), byte * 0x010101);
}

TEST(ColourBlindness, ThePrimariesBecomeTheColumnsOfThePublishedMatrices) {
    // Machado, Oliveira and Fernandes 2009, table 1, severity 1.0: rows for red, green, blue of linear light.
    const double table[3][3][3] = {
        {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}},
        {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}},
        {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};
    const Rgb primaries[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int kind = 0; kind < 3; ++kind)
        for (int column = 0; column < 3; ++column) {
            const LinearRgb seen = linearRgbOf(seenWith(kAll[kind], primaries[column]));
            EXPECT_NEAR(seen.red, std::clamp(table[kind][0][column], 0.0, 1.0), 1e-6);
            EXPECT_NEAR(seen.green, std::clamp(table[kind][1][column], 0.0, 1.0), 1e-6);
            EXPECT_NEAR(seen.blue, std::clamp(table[kind][2][column], 0.0, 1.0), 1e-6);
        }
}

TEST(ColourBlindness, IsAppliedToLightNotToTheCurve) {
    // By hand from the matrix; applied to the encoded components it would be #54659c.
    EXPECT_EQ(bytesOf(seenWith(ColourBlindness::protanopia, rgbOfBytes(0x336699))), 0x50699Bu);
}

TEST(ColourBlindness, RedAndGreenComeTogetherForTheFirstTwoAlone) {
    const Rgb olive = rgbOfBytes(0x808000), brown = rgbOfBytes(0xA06000);
    const double asIs = ciede2000(labOf(olive), labOf(brown));
    const auto seen = [&](ColourBlindness blindness) {
        return ciede2000(labOf(seenWith(blindness, olive)), labOf(seenWith(blindness, brown)));
    };
    EXPECT_LT(seen(ColourBlindness::protanopia), asIs / 2);
    EXPECT_LT(seen(ColourBlindness::deuteranopia), asIs / 2);
    EXPECT_GT(seen(ColourBlindness::tritanopia), asIs / 2);
}

TEST(ColourBlindness, StaysInsideSrgb) {
    RandomColours random(7);
    for (int i = 0; i < 5000; ++i)
        for (const ColourBlindness blindness : kAll)
            EXPECT_TRUE(inSrgb(seenWith(blindness, random.rgb()), 0));
}

} // namespace
} // namespace chromalog
