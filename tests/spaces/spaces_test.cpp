#include "random_colours.h"
#include "spaces/lab.h"
#include "spaces/oklab.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

void expectNear(const Rgb& actual, const Rgb& expected, double tolerance) {
    EXPECT_NEAR(actual.red, expected.red, tolerance);
    EXPECT_NEAR(actual.green, expected.green, tolerance);
    EXPECT_NEAR(actual.blue, expected.blue, tolerance);
}

TEST(Srgb, TheTwoPiecesOfTheCurveMeetWhereTheStandardSays) {
    // IEC 61966-2-1: 0.04045 encoded is 0.0031308 linear, by either piece.
    EXPECT_NEAR(decodeSrgb(0.04045), 0.0031308, 1e-7);
    EXPECT_NEAR(decodeSrgb(0.04045 + 1e-12), 0.0031308, 1e-7);
    EXPECT_NEAR(encodeSrgb(0.0031308 + 1e-12), 0.04045, 1e-6);
    EXPECT_EQ(decodeSrgb(1), 1);
    EXPECT_NEAR(encodeSrgb(1), 1, 1e-15);
    EXPECT_EQ(encodeSrgb(0), 0);
    EXPECT_EQ(decodeSrgb(-0.7), -decodeSrgb(0.7));
    EXPECT_EQ(encodeSrgb(-0.7), -encodeSrgb(0.7));
}

TEST(Xyz, ThePrimariesAreThoseOfTheStandard) {
    // IEC 61966-2-1, matrix to four digits; CSS Color 4, sample code, as fractions.
    const double rounded[3][3] = {
        {0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}};
    const double exact[3][3] = {{506752.0 / 1228815, 87881.0 / 245763, 12673.0 / 70218},
                                {87098.0 / 409605, 175762.0 / 245763, 12673.0 / 175545},
                                {7918.0 / 409605, 87881.0 / 737289, 1001167.0 / 1053270}};
    const LinearRgb primaries[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int i = 0; i < 3; ++i) {
        const XyzD65 xyz = xyzD65Of(primaries[i]);
        const double components[3] = {xyz.x, xyz.y, xyz.z};
        for (int row = 0; row < 3; ++row) {
            EXPECT_NEAR(components[row], rounded[row][i], 5e-5);
            EXPECT_NEAR(components[row], exact[row][i], 1e-15);
        }
    }
}

TEST(Xyz, TheAdaptationIsBradfords) {
    // CSS Color 4, sample code: D65_to_D50.
    const double expected[3][3] = {{1.0479297925449969, 0.022946870601609652, -0.05019226628920524},
                                   {0.02962780877005599, 0.9904344267538799, -0.017073799063418826},
                                   {-0.009243040646204504, 0.015055191490298152, 0.7518742814281371}};
    for (int i = 0; i < 3; ++i) {
        const XyzD50 adapted = xyzD50Of(XyzD65{i == 0 ? 1.0 : 0, i == 1 ? 1.0 : 0, i == 2 ? 1.0 : 0});
        EXPECT_NEAR(adapted.x, expected[0][i], 1e-12);
        EXPECT_NEAR(adapted.y, expected[1][i], 1e-12);
        EXPECT_NEAR(adapted.z, expected[2][i], 1e-12);
    }
    const XyzD50 white = xyzD50Of(kWhiteD65);
    EXPECT_NEAR(white.x, kWhiteD50.x, 1e-14);
    EXPECT_NEAR(white.z, kWhiteD50.z, 1e-14);
}

struct WrittenRgb {
    double first, second, third;    ///< in the space of the table
    double redPercent, green, blue; ///< sRGB in per cent
};

// The W3C's web platform tests for CSS Color 4 (css/css-color, lab-, lch-, oklab-, oklch-*.html).
constexpr WrittenRgb kLabTests[] = {{50, 50, 0, 75.6208, 30.4487, 47.5634},
                                    {70, -45, 0, 10.7506, 75.5575, 66.3982},
                                    {70, 0, 70, 76.6254, 66.3607, 5.5775},
                                    {55, 0, -60, 12.8128, 53.105, 92.7645},
                                    {46.2775, -47.5621, 48.5837, 0, 50.196, 0},
                                    {0, 0, 0, 0, 0, 0},
                                    {100, 0, 0, 100, 100, 100}};
constexpr WrittenRgb kLchTests[] = {{50, 50, 0, 75.6208, 30.4487, 47.5634},
                                    {70, 45, 180, 10.7506, 75.5575, 66.3982},
                                    {70, 70, 90, 76.6254, 66.3607, 5.5775},
                                    {55, 60, 270, 12.8128, 53.105, 92.7645}};
constexpr WrittenRgb kOklabTests[] = {{0.5, 0.05, 0, 48.477, 34.29, 38.412},
                                      {0.7, -0.1, 0, 29.264, 70.096, 63.017},
                                      {0.7, 0, 0.125, 73.942, 60.484, 19.65},
                                      {0.55, 0, -0.2, 27.888, 38.072, 89.414},
                                      {0.51975, -0.1403, 0.10768, 0, 50.196, 0}};
constexpr WrittenRgb kOklchTests[] = {{0.5, 0.2, 0, 70.492, 2.351, 37.073},
                                      {0.5, 0.2, 270, 23.056, 31.73, 82.628},
                                      {0.8, 0.15, 160, 32.022, 85.805, 61.147},
                                      {0.55, 0.15, 345, 67.293, 27.791, 52.28}};

template <typename Space, std::size_t n>
void expectTable(const WrittenRgb (&table)[n], double tolerancePercent) {
    for (const WrittenRgb& row : table) {
        SCOPED_TRACE(testing::Message() << row.first << ' ' << row.second << ' ' << row.third);
        expectNear(rgbOf(Space{row.first, row.second, row.third}),
                   {row.redPercent / 100, row.green / 100, row.blue / 100}, tolerancePercent / 100);
    }
}

TEST(Lab, AgreesWithTheWebPlatformTests) {
    expectTable<Lab>(kLabTests, 0.05); // their table for lab is computed with coarser matrices
}
TEST(Lch, AgreesWithTheWebPlatformTests) {
    expectTable<Lch>(kLchTests, 0.05);
}
TEST(Oklab, AgreesWithTheWebPlatformTests) {
    expectTable<Oklab>(kOklabTests, 0.01);
}
TEST(Oklch, AgreesWithTheWebPlatformTests) {
    expectTable<Oklch>(kOklchTests, 0.001);
}

TEST(Oklab, AgreesWithTheTableOfItsPaper) {
    // Ottosson 2020, "A perceptual color space for image processing", table of XYZ and Lab pairs.
    const double table[][6] = {{0.950, 1.000, 1.089, 1.000, 0.000, 0.000},
                               {1, 0, 0, 0.450, 1.236, -0.019},
                               {0, 1, 0, 0.922, -0.671, 0.263},
                               {0, 0, 1, 0.153, -1.415, -0.449}};
    for (const auto& row : table) {
        const Oklab oklab = oklabOf(XyzD65{row[0], row[1], row[2]});
        EXPECT_NEAR(oklab.lightness, row[3], 1e-3);
        EXPECT_NEAR(oklab.a, row[4], 1e-3);
        EXPECT_NEAR(oklab.b, row[5], 1e-3);
    }
}

TEST(Spaces, GreysHaveNoHue) {
    for (int i = 0; i <= 255; ++i) {
        const Rgb grey{i / 255.0, i / 255.0, i / 255.0};
        EXPECT_EQ(oklchOf(grey).hue, 0) << i;
        EXPECT_EQ(lchOf(labOf(grey)).hue, 0) << i;
        EXPECT_LT(lchOf(labOf(grey)).chroma, 1e-9) << i;
    }
    EXPECT_GT(oklchOf(rgbOfBytes(0x808081)).hue, 200); // the bluest of greys is one no more
}

TEST(Spaces, EverySpaceLeadsBack) {
    RandomColours random(1);
    for (int i = 0; i < 10000; ++i) {
        // Outside sRGB too.
        const Rgb rgb{random.number(-0.3, 1.3), random.number(-0.3, 1.3), random.number(-0.3, 1.3)};
        expectNear(rgbOf(linearRgbOf(rgb)), rgb, 1e-7); // the standard's constants leave a step of 2e-8
        expectNear(rgbOf(lchOf(labOf(rgb))), rgb, 1e-7);
        expectNear(rgbOf(oklchOf(rgb)), rgb, 1e-7);
    }
}

} // namespace
} // namespace chromalog
