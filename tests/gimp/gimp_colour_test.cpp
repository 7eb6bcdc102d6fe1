// Colours between GIMP, which keeps doubles, and the picker's record.
#include "gimp/gimp_colour.h"

#include <gmock/gmock.h>

#include <cmath>

namespace chromalog {
namespace {

using testing::ElementsAre;

TEST(GimpColour, EveryPickIsOfferedAgainAsItIs) {
    for (int word = 0; word <= 65535; ++word) {
        const auto channel = static_cast<std::uint16_t>(word);
        const standalone::HostColour picked{standalone::Space::rgb, {channel, 0, 65535, 0}};
        ASSERT_EQ(offeredColour(pickedColour(picked)), picked) << word;
    }
}

TEST(GimpColour, BytesAreTheSameDoublesAsGimps) {
    for (int byte = 0; byte <= 255; ++byte) {
        const double gimps = byte / 255.0;
        ASSERT_EQ(pickedColour(offeredColour({gimps, gimps, gimps}))[0], gimps) << byte;
    }
}

TEST(GimpColour, TheNearestIsOffered) {
    EXPECT_THAT(offeredColour({0.5, 1.4 / 65535, 1.6 / 65535}).components, ElementsAre(32768, 1, 2, 0));
}

TEST(GimpColour, WhatLiesBeyondIsTheNearestInside) {
    EXPECT_THAT(offeredColour({1.5, -0.25, std::nan("")}).components, ElementsAre(65535, 0, 0, 0));
    EXPECT_THAT(offeredColour({INFINITY, -INFINITY, 1e300}).components, ElementsAre(65535, 0, 65535, 0));
}

} // namespace
} // namespace chromalog
