// What can be printed, by whatever the host answers.
#include "judge/gamut_outline.h"
#include "judge/made_host.h"

#include "spaces/ciede2000.h"

#include <gtest/gtest.h>

#include <cmath>

namespace chromalog::test {
namespace {

class Gamut : public testing::Test {
  protected:
    Gamut() { MadeHost::reset(); }
    const HostGamut host{MadeHost::convert};
};

TEST_F(Gamut, ANullHostAndOneThatFailsSayNothing) {
    EXPECT_FALSE(HostGamut(nullptr).available());
    EXPECT_FALSE(HostGamut(nullptr).judge({1, 2, 3}));
    for (const int works : {0, 1}) {
        MadeHost::failsAfter = works;
        MadeHost::calls = 0;
        EXPECT_FALSE(host.judge({255, 0, 0})) << works;
        MadeHost::calls = 0;
        EXPECT_FALSE(host.printable({255, 0, 0})) << works;
    }
}

TEST_F(Gamut, ARoundTripThatLosesMoreThanTwoCannotBePrinted) {
    const auto difference = [](int blue) {
        return ciede2000(labOf(Rgb{0, 0, blue / 255.0}), labOf(Rgb{0, 0, 100 / 255.0}));
    };
    int least = 101; // whose difference to what comes back is above 2
    while (difference(least) <= 2)
        ++least;
    ASSERT_GT(least, 102);
    const auto out = host.judge({0, 0, least}), in = host.judge({0, 0, least - 1});
    ASSERT_TRUE(out && in);
    EXPECT_FALSE(out->printable);
    EXPECT_EQ(out->roundTrip, (HostGamut::Bytes{0, 0, 100}));
    EXPECT_DOUBLE_EQ(out->difference, difference(least));
    EXPECT_TRUE(in->printable);
    EXPECT_EQ(host.printable({0, 0, least}), false);
    EXPECT_EQ(host.printable({0, 0, least - 1}), true);
}

TEST_F(Gamut, TheHostsOwnWordIsTaken) {
    MadeHost::saysGamut = true;
    MadeHost::word = true;
    EXPECT_TRUE(host.judge({255, 0, 0})->printable) << "whatever the round trip loses";
    EXPECT_EQ(host.printable({255, 0, 0}), true);
    MadeHost::word = false;
    EXPECT_FALSE(host.judge({9, 9, 9})->printable);
    MadeHost::calls = 0;
    EXPECT_EQ(host.printable({9, 9, 9}), false);
    EXPECT_EQ(MadeHost::calls, 1) << "there is no need of a way back";
}

TEST_F(Gamut, AnswersOutOfTheirRangeAreClamped) {
    MadeHost::raves = true;
    const auto verdict = host.judge({10, 20, 30});
    ASSERT_TRUE(verdict);
    EXPECT_EQ(verdict->roundTrip, (HostGamut::Bytes{255, 0, 30}));
}

class Outline : public Gamut {
  protected:
    GamutOutline outline{MadeHost::convert};
    const GamutOutline::Rays& searched(int level) {
        EXPECT_TRUE(outline.search(level, 1e9));
        return *outline.at(level);
    }
    /// One step after the other, outwards.
    double plain(int level, int ray) const {
        for (int step = 1; step <= 255; ++step) {
            const Colour c = Colour::hsb(ray / 180.0, step / 255.0, level / 255.0);
            const auto bytes = bytesOf(rgbOf(c));
            if (!*host.printable({int(bytes >> 16), int(bytes >> 8 & 255), int(bytes & 255)}))
                return (step - 1) / 255.0;
        }
        return 1;
    }
};

TEST_F(Outline, IsWhereTheLastPrintableStepIs) {
    for (const int level : {255, 180, 90}) {
        const auto& rays = searched(level);
        ASSERT_TRUE(rays.known);
        for (int ray = 0; ray < GamutOutline::kRays; ray += 7)
            EXPECT_FLOAT_EQ(rays.saturation[ray], static_cast<float>(plain(level, ray)))
                << level << ' ' << ray;
    }
    EXPECT_LT(outline.at(255)->saturation[0], 0.6F);
    EXPECT_EQ(outline.at(90)->saturation[0], 1) << "all of a dark disc";
}

TEST_F(Outline, IsRememberedByBrightness) {
    searched(200);
    const int calls = MadeHost::calls;
    EXPECT_LE(calls, 2 * 10 * GamutOutline::kRays);
    searched(200);
    EXPECT_EQ(MadeHost::calls, calls);
    outline.forget();
    EXPECT_EQ(outline.at(200), nullptr);
}

TEST_F(Outline, ASearchInSlicesFindsTheSame) {
    const auto whole = searched(200).saturation;
    outline.forget();
    int slices = 1;
    while (!outline.search(200, 0))
        ++slices;
    EXPECT_EQ(slices, GamutOutline::kRays) << "a ray at least";
    EXPECT_EQ(outline.at(200)->saturation, whole);
}

TEST_F(Outline, AHostThatFailsOnTheWayLeavesNone) {
    MadeHost::failsAfter = 100;
    EXPECT_TRUE(outline.search(255, 1e9)) << "the search ends";
    EXPECT_FALSE(outline.at(255)->known);
}

TEST_F(Outline, AGreyThatCannotBePrintedIsTheMiddle) {
    MadeHost::saysGamut = true;
    MadeHost::word = false;
    for (const float saturation : searched(255).saturation)
        EXPECT_EQ(saturation, 0);
}

TEST(OutlineLevel, IsClamped) {
    EXPECT_EQ(GamutOutline::levelOf(2.0F), 255);
    EXPECT_EQ(GamutOutline::levelOf(-1.0F), 0);
    EXPECT_EQ(GamutOutline::levelOf(std::nanf("")), 0);
    EXPECT_EQ(GamutOutline::levelOf(0.5F), 128);
}

} // namespace
} // namespace chromalog::test
