#include "colour/harmony.h"

#include "base/colour.h"

#include <gtest/gtest.h>
#include <math.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>
#include <random>

namespace chromalog {
namespace {

/// The rules once more, a step a statement and every rounding spelled out, with the C library's functions.
struct Independent {
    double x[7], y[7]; // opposite, balance1, balance2, equi1, equi2, quadri1, quadri2
    float reported;

    Independent(double W, double H, double sx, double sy, float spread) {
        const double halfW = W / 2.0, halfH = H / 2.0;
        put(0, W - sx, H - sy);
        const double dx = sx - halfW;
        const double dy = sy - halfH;
        const double squares = dx * dx + dy * dy;
        const float r = (float)sqrt(squares);
        float phi = 0.0f;
        if (r != 0.0f) {
            double quotient = dx / (double)r;
            if (quotient > 1.0) quotient = 1.0;
            if (quotient < -1.0) quotient = -1.0;
            phi = (float)acos(quotient);
        }
        reported = phi;
        const float a = (float)(0.017453292519943295 * (double)spread);
        float sr = r;
        if (dy < 0.0) {
            sr = -r;
            phi = (float)(3.141592653589793 + (double)phi);
        }
        const float plus = phi + a, minus = phi - a;
        const float b1x = sr * cosf(plus), b1y = r * sinf(plus);
        const float b2x = sr * cosf(minus), b2y = r * sinf(minus);
        put(1, (double)b1x + halfW, (double)b1y + halfH);
        put(2, (double)b2x + halfW, (double)b2y + halfH);
        const double up = (double)phi + 2.0943951023931953, down = (double)phi - 2.0943951023931953;
        put(3, (double)sr * cos(up) + halfW, (double)r * sin(up) + halfH);
        put(4, (double)sr * cos(down) + halfW, (double)r * sin(down) + halfH);
        const float doubled = 2.0f * a;
        if (dy < 0.0) phi = -phi;
        const float q1 = phi + doubled;
        const float q1x = r * cosf(q1), q1y = r * sinf(q1);
        put(5, (double)q1x + halfW, (double)q1y + halfH);
        const double q2 = ((double)phi + 3.141592653589793) + (double)doubled;
        put(6, (double)r * cos(q2) + halfW, (double)r * sin(q2) + halfH);
    }

    void put(int i, double px, double py) {
        x[i] = px;
        y[i] = py;
    }
};

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool agree(Size view, Point selected, float spread) {
    const HarmonyPoints h = harmonyPoints(view, selected, spread);
    const Independent expected(view.w, view.h, selected.x, selected.y, spread);
    const Point points[] = {h.opposite, h.balance1, h.balance2, h.equi1, h.equi2, h.quadri1, h.quadri2};
    for (int i = 0; i < 7; ++i)
        if (!sameBits(points[i].x, expected.x[i]) || !sameBits(points[i].y, expected.y[i])) return false;
    return std::bit_cast<std::uint32_t>(harmonyAngle(view, selected)) ==
           std::bit_cast<std::uint32_t>(expected.reported);
}

/// Counter-clockwise from positive x, degrees 0..360.
double angleOf(Size view, Point p) {
    const double degrees = std::atan2(p.y - view.h / 2, p.x - view.w / 2) * 180 / std::numbers::pi;
    return degrees < 0 ? degrees + 360 : degrees;
}

Point at(Size view, double degrees, double radius) {
    const double a = degrees * std::numbers::pi / 180;
    return {view.w / 2 + radius * std::cos(a), view.h / 2 + radius * std::sin(a)};
}

double turned(double degrees) {
    return degrees < 0 ? degrees + 360 : std::fmod(degrees, 360);
}

constexpr Size wheel{256, 256};

TEST(Harmony, TwoHundredThousandPointsAgreeBitForBitWithAnIndependentComputation) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> side(1, 1200), unit(-0.2, 1.2);
    std::uniform_int_distribution<int> whole(0, 512);
    int wrong = 0;
    for (int i = 0; i < 100'000; ++i) { // anywhere, in views of any size, square or not
        const Size view{side(random), side(random)};
        wrong += !agree(view, {unit(random) * view.w, unit(random) * view.h}, 55.0f);
    }
    for (int i = 0; i < 100'000; ++i) // where mice point
        wrong += !agree({512, 512}, {double(whole(random)), double(whole(random))}, 55.0f);
    EXPECT_EQ(wrong, 0);
}

TEST(Harmony, OtherSpreadsAgreeToo) {
    for (float spread : {0.0f, 1.0f, 30.0f, 90.0f, 180.0f, 360.0f, -55.0f})
        for (int x = 0; x <= 256; x += 16)
            for (int y = 0; y <= 256; y += 16)
                ASSERT_TRUE(agree(wheel, {double(x), double(y)}, spread));
}

TEST(Harmony, EveryPointOfTheCentreIsTheCentre) {
    const HarmonyPoints h = harmonyPoints(wheel, {128, 128}, 55);
    for (Point p : {h.opposite, h.balance1, h.balance2, h.equi1, h.equi2, h.quadri1, h.quadri2})
        EXPECT_EQ(p, (Point{128, 128}));
    EXPECT_EQ(harmonyAngle(wheel, {128, 128}), 0.0f);
}

TEST(Harmony, AnglesInTheUpperAndTheLowerHalf) {
    for (double theta : {10.0, 60.0, 100.0, 170.0, 190.0, 250.0, 300.0, 350.0}) {
        SCOPED_TRACE(theta);
        const double side = theta < 180 ? 1 : -1; // the pairs change places in the lower half
        const HarmonyPoints h = harmonyPoints(wheel, at(wheel, theta, 100), 55);
        EXPECT_NEAR(angleOf(wheel, h.opposite), turned(theta + 180), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.balance1), turned(theta + side * 55), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.balance2), turned(theta - side * 55), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.equi1), turned(theta + side * 120), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.equi2), turned(theta - side * 120), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.quadri1), turned(theta + (side > 0 ? 110 : 290)), 1e-3);
        EXPECT_NEAR(angleOf(wheel, h.quadri2), turned(theta + (side > 0 ? 290 : 110)), 1e-3);
        for (Point p : {h.balance1, h.balance2, h.equi1, h.equi2, h.quadri1, h.quadri2})
            EXPECT_NEAR(std::hypot(p.x - 128, p.y - 128), 100, 1e-4);
    }
}

TEST(Harmony, TheHorizontalDiameterCountsAsTheUpperHalf) {
    const HarmonyPoints h = harmonyPoints(wheel, {228, 128}, 55);
    EXPECT_NEAR(angleOf(wheel, h.balance1), 55, 1e-3);
    EXPECT_NEAR(angleOf(wheel, h.quadri1), 110, 1e-3);
}

TEST(Harmony, ThePairsSwapAcrossTheHorizontalDiameter) {
    const HarmonyPoints above = harmonyPoints(wheel, {228, 128.001}, 55);
    const HarmonyPoints below = harmonyPoints(wheel, {228, 127.999}, 55);
    const auto near = [](Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y) < 0.01; };
    EXPECT_TRUE(near(above.balance1, below.balance2));
    EXPECT_TRUE(near(above.balance2, below.balance1));
    EXPECT_TRUE(near(above.equi1, below.equi2));
    EXPECT_TRUE(near(above.equi2, below.equi1));
    EXPECT_TRUE(near(above.quadri1, below.quadri2));
    EXPECT_TRUE(near(above.quadri2, below.quadri1));
}

TEST(Harmony, ColoursOfHueZeroAndAHalfAreNeverNoNumber) {
    int beyond = 0; // where the rounded radius is less than the distance: no number without the clamp
    for (int size : {255, 256, 300, 512})
        for (int high = 1; high < 256; ++high)
            for (int low = 0; low <= high; ++low) {
                const double saturation = (high - low) / double(high);
                const float radius = static_cast<float>(size / 2.0);
                for (double sign : {1.0, -1.0}) { // hue 0 and hue 0.5
                    const Size view{double(size), double(size)};
                    const Point selected{radius + sign * radius * saturation, radius};
                    const double dx = selected.x - view.w / 2;
                    beyond += std::abs(dx) > static_cast<float>(std::abs(dx));
                    const HarmonyPoints h = harmonyPoints(view, selected, 55);
                    for (Point p : {h.balance1, h.balance2, h.equi1, h.equi2, h.quadri1, h.quadri2})
                        ASSERT_TRUE(std::isfinite(p.x) && std::isfinite(p.y)) << high << ' ' << low;
                    ASSERT_TRUE(std::isfinite(harmonyAngle(view, selected)));
                }
            }
    EXPECT_GT(beyond, 1000);
}

} // namespace
} // namespace chromalog
