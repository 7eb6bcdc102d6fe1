#include "random_colours.h"
#include "spaces/gamut.h"

#include <gtest/gtest.h>

#include <limits>

namespace chromalog {
namespace {

double hueDistance(double first, double second) {
    const double distance = std::abs(first - second);
    return std::min(distance, 360 - distance);
}

double difference(const Oklab& from, const Oklab& to) {
    return std::hypot(to.lightness - from.lightness, to.a - from.a, to.b - from.b);
}

TEST(Gamut, TheToleranceIsAskedOfEveryComponent) {
    EXPECT_TRUE(inSrgb({0, 0.5, 1}));
    EXPECT_FALSE(inSrgb({1.001, 0, 0}));
    EXPECT_FALSE(inSrgb({0, -0.001, 0}));
    EXPECT_FALSE(inSrgb({0, 0, 1.001}));
    EXPECT_TRUE(inSrgb({1.001, 0, -0.001}, 0.002));
    EXPECT_FALSE(inSrgb({0, std::numeric_limits<double>::quiet_NaN(), 0}));
}

TEST(Gamut, AColourInsideStays) {
    RandomColours random(4);
    for (int i = 0; i < 2000; ++i) {
        const Rgb rgb = random.rgb();
        EXPECT_EQ(mappedToSrgb(rgb), rgb);
        const Rgb mapped = mappedToSrgb(oklchOf(rgb));
        EXPECT_NEAR(mapped.red, rgb.red, 1e-9);
        EXPECT_NEAR(mapped.green, rgb.green, 1e-9);
        EXPECT_NEAR(mapped.blue, rgb.blue, 1e-9);
    }
}

TEST(Gamut, AColourOutsideIsMappedAndNotClipped) {
    const Rgb outside{1.2, -0.2, 0.1};
    const Rgb mapped = mappedToSrgb(outside);
    EXPECT_TRUE(inSrgb(mapped, 0));
    EXPECT_NEAR(mapped.red, mappedToSrgb(oklchOf(outside)).red, 1e-12);
    EXPECT_GT(difference(oklabOf(mapped), oklabOf(clippedToSrgb(outside))), 0.02) << "for once it shows";
}

TEST(Gamut, LightnessEndsAtWhiteAndBlack) {
    EXPECT_EQ(mappedToSrgb(Oklch{1, 0.3, 20}), (Rgb{1, 1, 1}));
    EXPECT_EQ(mappedToSrgb(Oklch{7, 0.3, 20}), (Rgb{1, 1, 1}));
    EXPECT_EQ(mappedToSrgb(Oklch{0, 0.3, 20}), (Rgb{0, 0, 0}));
    EXPECT_EQ(mappedToSrgb(Oklch{std::numeric_limits<double>::quiet_NaN(), 0.3, 20}), (Rgb{0, 0, 0}));
}

TEST(Gamut, HueAndLightnessLookTheSameAndChromaIsTheLargest) {
    RandomColours random(5);
    for (int i = 0; i < 2000; ++i) {
        const Oklch wide{random.number(0.05, 0.95), random.number(0, 0.5), random.number(0, 360)};
        const Rgb mapped = mappedToSrgb(wide);
        EXPECT_TRUE(inSrgb(mapped, 0));
        const Oklch result = oklchOf(mapped);
        EXPECT_NEAR(result.lightness, wide.lightness, 0.0201);
        // Within the difference that is not noticed of the ray that the chroma is taken along.
        double nearest = 1;
        for (double chroma = 0; chroma <= wide.chroma; chroma += 0.0005)
            nearest = std::min(nearest,
                               difference(oklabOf(Oklch{wide.lightness, chroma, wide.hue}), oklabOf(result)));
        EXPECT_LT(nearest, 0.0205);
        // A little more chroma along the ray would be noticed, or is more than was asked.
        const Oklch more{wide.lightness, result.chroma + 0.03, wide.hue};
        const double lost = difference(oklabOf(more), oklabOf(clippedToSrgb(rgbOf(more))));
        EXPECT_TRUE(result.chroma > wide.chroma - 0.021 || lost > 0.0199)
            << wide.lightness << ' ' << wide.chroma << ' ' << wide.hue;
    }
}

TEST(Gamut, PlainClippingTurnsTheHueWhereMappingDoesNot) {
    const Oklch ochre{0.5, 0.3, 80}; // of a far larger gamut: clipping makes it a red brown
    EXPECT_GT(hueDistance(oklchOf(clippedToSrgb(rgbOf(ochre))).hue, 80), 40);
    EXPECT_LT(hueDistance(oklchOf(mappedToSrgb(ochre)).hue, 80), 10);
}

TEST(Gamut, NoNumberAndEndlessOnesEnd) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double endless = std::numeric_limits<double>::infinity();
    for (const double bad : {none, endless, -endless, 1e300}) {
        EXPECT_TRUE(inSrgb(mappedToSrgb(Oklch{0.5, bad, 20}), 0));
        EXPECT_TRUE(inSrgb(mappedToSrgb(Oklch{0.5, 0.1, bad}), 0));
        EXPECT_TRUE(inSrgb(mappedToSrgb(Rgb{bad, 0.5, 0.5}), 0));
    }
}

} // namespace
} // namespace chromalog
