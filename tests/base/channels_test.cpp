#include "base/channels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace chromalog {
namespace {

TEST(Channels, AnEightBitValueIsTruncated) {
    EXPECT_EQ(eightBit(1.0), 255);
    EXPECT_EQ(eightBit(0.9999), 254);
    EXPECT_EQ(eightBit(-0.001), 0);
    EXPECT_EQ(eightBit(0.2), 51);
}

/// The wheel's transparency is single precision: the product may be rounded there before it is truncated.
TEST(Channels, SinglePrecisionTruncatesAlike) {
    for (int k = 1; k <= 255; ++k) {
        float component = static_cast<float>(k / 255.0);
        for (int step = 0; step < 3; ++step) {
            EXPECT_EQ(eightBit(component), static_cast<int>(component * 255.0F)) << k;
            component = std::nextafter(component, 0.0F);
        }
    }
}

TEST(Channels, AnUnsignedFractionTakesTheLow32Bits) {
    EXPECT_EQ(unsignedFractionOf(65535), 1.0F);
    EXPECT_EQ(unsignedFractionOf(std::int64_t{1} << 32 | 65535), 1.0F);
    EXPECT_EQ(unsignedFractionOf(-1), 65537.0F);
}

TEST(Channels, AChannelGoesByWayOfSinglePrecision) {
    EXPECT_EQ(fractionOf(65535), 1.0);
    EXPECT_EQ(fractionOf(-65535), -1.0);
    EXPECT_EQ(fractionOf(16'777'217), 16'777'216 / 65535.0);
}

TEST(Channels, HighBytesMakeAColour) {
    const std::uint16_t words[4] = {0xFFFF, 0x3300, 0x00FF, 0x1234};
    const auto bytes = highBytes(words);
    EXPECT_EQ(bytes, (std::array<std::int16_t, 4>{255, 51, 0, 0x12}));
    EXPECT_TRUE(colourOfBytes(bytes).sameRgb(Colour::rgb(1, 51 / 255.0, 0)));
    EXPECT_EQ(colourOfBytes(bytes, 0.5).alpha(), 0.5);
}

} // namespace
} // namespace chromalog
