// What the screen shows around the disc, over the wheel's picture.
#include "views/wheel_rim.h"

#include "views/wheel_picture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace chromalog {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;
const Colour kDark = Colour::rgb(50 / 255.0, 50 / 255.0, 50 / 255.0);
constexpr std::uint32_t kDarkPixel = 0xFF323232U;

/// Whether a pick can hit the pixel.
bool isOfTheDisc(int x, int y, int size) {
    float hue = 0, saturation = 0;
    getColorWheelValue(x, y, &hue, &saturation, static_cast<float>(size / 2.0));
    return saturation < 1;
}

using Cut = WheelRim::Cut;

/// The pieces put together.
Bitmap joined(const std::vector<WheelRim::Piece>& pieces, int size) {
    Bitmap all{size, size, std::vector<std::uint32_t>(static_cast<std::size_t>(size) * size)};
    for (const WheelRim::Piece& piece : pieces)
        for (int y = 0; y < piece.bitmap.height; ++y)
            for (int x = 0; x < piece.bitmap.width; ++x)
                all.pixels[(piece.y + y) * size + piece.x + x] =
                    piece.bitmap.pixels[y * piece.bitmap.width + x];
    return all;
}

Bitmap rimAround(WheelRim& rim, const Bitmap& wheel, float disc, const Colour& surround,
                 Cut cut = Cut::whole) {
    return joined(rim.around(wheel, disc, surround, cut), wheel.width);
}

double distanceOf(int x, int y, int size) {
    return std::hypot(x - size / 2.0, y - size / 2.0);
}

TEST(WheelRim, ThePixelsThatAPickCanHitShowTheirColour) {
    for (const int size : {1, 2, 3, 16, 99, 200, 322}) {
        const Bitmap wheel = plainWheelPicture(size, 0.8F);
        WheelRim rim;
        const Bitmap around = rimAround(rim, wheel, 0.8F, kDark);
        ASSERT_EQ(around.pixels.size(), wheel.pixels.size());
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                const std::uint32_t over = around.pixels[y * size + x], under = wheel.pixels[y * size + x];
                if (!isOfTheDisc(x, y, size)) continue;
                const bool through = under >= kOpaque; // where the disc fades, its colour is shown opaque
                ASSERT_EQ(over, through ? 0 : under | kOpaque) << size << ": " << x << ", " << y;
            }
    }
}

TEST(WheelRim, OutsideIsTheSurround) {
    const Bitmap wheel = plainWheelPicture(200, 1);
    WheelRim rim;
    const Bitmap around = rimAround(rim, wheel, 1, kDark);
    int corners = 0;
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 200; ++x) {
            if (distanceOf(x, y, 200) < 101) continue;
            ASSERT_EQ(around.pixels[y * 200 + x], kDarkPixel) << x << ", " << y;
            ++corners;
        }
    EXPECT_GT(corners, 200 * 200 / 5);
}

TEST(WheelRim, ShowsOrHidesAPixelWhole) {
    const Bitmap wheel = plainWheelPicture(99, 0.5F);
    WheelRim rim;
    for (const WheelRim::Piece& piece : rim.around(wheel, 0.5F, kDark, Cut::frame)) {
        EXPECT_TRUE(piece.bitmap.cut);
        for (const std::uint32_t pixel : piece.bitmap.pixels)
            ASSERT_TRUE(pixel == 0 || pixel >= kOpaque) << std::hex << pixel;
    }
}

TEST(WheelRim, BetweenTheTwoTheRimRunsOut) {
    const Bitmap wheel = plainWheelPicture(322, 1);
    WheelRim rim;
    const Bitmap around = rimAround(rim, wheel, 1, kDark);
    int mixed = 0;
    for (int y = 0; y < 322; ++y)
        for (int x = 0; x < 322; ++x) {
            const std::uint32_t pixel = around.pixels[y * 322 + x];
            if (isOfTheDisc(x, y, 322)) continue;
            ASSERT_GE(pixel, kOpaque) << "nothing of the picture's own grey is seen: " << x << ", " << y;
            if (pixel != kDarkPixel) ++mixed;
        }
    EXPECT_GT(mixed, 322 * 2) << "of a circumference of a thousand";
    // Outwards along a slant: the disc, most of its colour, nothing of it.
    EXPECT_EQ(around.pixels[47 * 322 + 48], 0U);
    EXPECT_NE(around.pixels[47 * 322 + 47], kDarkPixel);
    EXPECT_EQ(around.pixels[46 * 322 + 46], kDarkPixel);
}

TEST(WheelRim, AnotherBrightnessOrSurroundIsFollowed) {
    WheelRim rim;
    const Bitmap bright = plainWheelPicture(64, 1), black = plainWheelPicture(64, 0);
    const auto fresh = [](const Bitmap& wheel, float disc, const Colour& surround) {
        WheelRim other;
        return rimAround(other, wheel, disc, surround).pixels;
    };
    rimAround(rim, bright, 1, kDark);
    const Bitmap atBlack = rimAround(rim, black, 0, kDark);
    EXPECT_EQ(atBlack.pixels, fresh(black, 0, kDark));
    const Bitmap onWhite = rimAround(rim, black, 0, Colour::rgb(1, 1, 1));
    EXPECT_EQ(onWhite.pixels, fresh(black, 0, Colour::rgb(1, 1, 1)));
    EXPECT_NE(onWhite.pixels, atBlack.pixels);
    EXPECT_NE(atBlack.pixels, fresh(bright, 1, kDark));
}

TEST(WheelRim, AFrameShowsTheSameInHalfTheMemory) {
    WheelRim rim;
    for (const int size : {1, 2, 3, 7, 8, 9, 16, 63, 64, 99, 200, 322, 424}) {
        const Bitmap wheel = plainWheelPicture(size, 0.7F);
        const Bitmap whole = rimAround(rim, wheel, 0.7F, kDark);
        EXPECT_EQ(rimAround(rim, wheel, 0.7F, kDark, Cut::frame).pixels, whole.pixels) << size;
        std::size_t pixels = 0;
        for (const WheelRim::Piece& piece : rim.around(wheel, 0.7F, kDark, Cut::frame))
            pixels += piece.bitmap.pixels.size();
        EXPECT_LE(pixels, whole.pixels.size()) << "no piece lies over another: " << size;
        if (size >= 200) {
            EXPECT_LT(pixels * 100, whole.pixels.size() * 55);
        }
    }
}

TEST(WheelRim, AnEmptyPictureHasNone) {
    WheelRim rim;
    EXPECT_TRUE(rim.around(Bitmap(), 1, kDark, Cut::frame).empty());
}

} // namespace
} // namespace chromalog
