#include "base/colour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace chromalog {
namespace {

TEST(Colour, ComponentsAreClampedWhenTheColourIsMade) {
    const Colour c = Colour::rgb(1.5, -0.5, std::numeric_limits<double>::quiet_NaN(), 2);
    EXPECT_EQ(c.red(), 1.0);
    EXPECT_EQ(c.green(), 0.0);
    EXPECT_EQ(c.blue(), 0.0);
    EXPECT_EQ(c.alpha(), 1.0);
}

TEST(Colour, BrightnessZeroKeepsHueAndSaturation) {
    const Colour c = Colour::hsb(0.25, 0.5, 0.0);
    EXPECT_EQ(c.brightness(), 0.0);
    EXPECT_EQ(c.hue(), 0.25);
    EXPECT_EQ(c.saturation(), 0.5);
    EXPECT_EQ(c.withAlpha(0.5).hue(), 0.25);
    EXPECT_EQ(Colour::rgb(c.red(), c.green(), c.blue()).hue(), 0.0);
}

TEST(Colour, AFullTurnAndNoNumberCountAsHueZero) {
    EXPECT_EQ(Colour::hsb(1.0, 1, 1).hue(), 0.0);
    EXPECT_EQ(Colour::hsb(std::nan(""), 1, 1).red(), 1.0);
}

TEST(Colour, SextantsAndTheirInverse) {
    struct Row {
        double h, r, g, b;
    };
    for (const Row& row : {Row{0, 1, 0.5, 0.5}, Row{1 / 6.0, 1, 1, 0.5}, Row{2 / 6.0, 0.5, 1, 0.5},
                           Row{3 / 6.0, 0.5, 1, 1}, Row{4 / 6.0, 0.5, 0.5, 1}, Row{5 / 6.0, 1, 0.5, 1}}) {
        const Colour c = Colour::hsb(row.h, 0.5, 1);
        EXPECT_NEAR(c.red(), row.r, 1e-15);
        EXPECT_NEAR(c.green(), row.g, 1e-15);
        EXPECT_NEAR(c.blue(), row.b, 1e-15);
        EXPECT_NEAR(Colour::rgb(c.red(), c.green(), c.blue()).hue(), row.h, 1e-15);
    }
    EXPECT_EQ(Colour::rgb(0.5, 0.5, 0.5).hue(), 0.0);
    EXPECT_EQ(Colour::rgb(0, 0, 0).saturation(), 0.0);
    EXPECT_GT(Colour::rgb(1, 0, 0.1).hue(), 0.9);
}

} // namespace
} // namespace chromalog
