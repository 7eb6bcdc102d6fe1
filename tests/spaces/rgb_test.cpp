#include "spaces/rgb.h"

#include <gtest/gtest.h>

#include <limits>

namespace chromalog {
namespace {

TEST(Rgb, BytesGoThereAndBack) {
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        const std::uint32_t bytes = byte << 16 | (255 - byte) << 8 | (byte ^ 0x55);
        EXPECT_EQ(bytesOf(rgbOfBytes(bytes)), bytes);
    }
    EXPECT_EQ(rgbOfBytes(0xFF336699), rgbOfBytes(0x336699));
}

TEST(Rgb, AByteIsTheNearest) {
    EXPECT_EQ(byteOf(0.5 / 255), 1u);
    EXPECT_EQ(byteOf(0.499 / 255), 0u);
    EXPECT_EQ(byteOf(254.49 / 255), 254u);
    EXPECT_EQ(byteOf(7.0), 255u);
    EXPECT_EQ(byteOf(-7.0), 0u);
    EXPECT_EQ(byteOf(std::numeric_limits<double>::quiet_NaN()), 0u);
}

TEST(Rgb, AColourKeepsItsDoublesAndClampsOthers) {
    const Colour colour = Colour::rgb(0.1, 0.2, 0.3, 0.4);
    EXPECT_TRUE(colourOf(rgbOf(colour)).sameRgb(colour));
    EXPECT_EQ(colourOf({0, 0, 0}, 0.4).alpha(), 0.4);
    EXPECT_EQ(colourOf({-1, 2, 0.5}).green(), 1);
    EXPECT_EQ(colourOf({-1, 2, 0.5}).red(), 0);
}

} // namespace
} // namespace chromalog
