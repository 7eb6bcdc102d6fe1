#include "views/wheel_picture.h"

#include "views/golden_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace chromalog {
namespace {

using test::equalsGolden;

constexpr std::uint32_t lightGrey = 0xFFEDEDED; // 0.93 of 255 is 237.15

bool equalsPlain(const WheelPicture& picture, int size, float brightness) {
    return picture.bitmap().pixels == plainWheelPicture(size, brightness).pixels;
}

/// Rebuilds one picture at `count` brightness values from 0 to 1, every byte against the plain algorithm.
void compareAtBrightnesses(int size, int count) {
    WheelPicture picture;
    for (int i = 0; i < count; ++i) {
        const float brightness = static_cast<float>(i) / (count - 1);
        picture.render(size, brightness);
        ASSERT_TRUE(equalsPlain(picture, size, brightness)) << size << " at " << brightness;
    }
}

bool isSame(const Colour& a, const Colour& b) {
    return a.red() == b.red() && a.green() == b.green() && a.blue() == b.blue() && a.alpha() == b.alpha();
}

TEST(WheelColour, IsThePicturesPixelNearestToThePlace) {
    for (const int size : {1, 2, 7, 64, 99})
        for (const float brightness : {0.0F, 0.31F, 1.0F}) {
            const Bitmap picture = plainWheelPicture(size, brightness);
            for (double row = -2.5; row < size + 3; row += 0.75)
                for (double column = -2.5; column < size + 3; column += 0.75)
                    ASSERT_TRUE(
                        isSame(wheelColour(column, row, size, brightness), picture.colourAt(column, row)))
                        << size << ' ' << column << ' ' << row;
        }
    EXPECT_TRUE(isSame(wheelColour(NAN, 3, 8, 1), plainWheelPicture(8, 1).colourAt(NAN, 3)));
    EXPECT_TRUE(isSame(wheelColour(3, 3, 0, 1), Bitmap().colourAt(3, 3)));
}

TEST(WheelPicture, ARebuildEqualsThePlainAlgorithmAtAThousandBrightnesses) {
    compareAtBrightnesses(256, 1000);
}
TEST(WheelPicture, ARebuildOf512PixelsEqualsThePlainAlgorithm) {
    compareAtBrightnesses(512, 101);
}
TEST(WheelPicture, ARebuildOf1024PixelsEqualsThePlainAlgorithm) {
    compareAtBrightnesses(1024, 27);
}

TEST(WheelPicture, AKeptMeasureServesTheNextPictureOfItsSize) {
    WheelPicture::keepMeasure(true);
    const std::uint32_t* first = nullptr;
    for (const auto& [size, brightness] :
         {std::pair{64, 0.5F}, {64, 1.0F}, {65, 0.25F}, {64, 0.0F}, {64, 0.75F}}) {
        WheelPicture picture;
        picture.render(size, brightness);
        EXPECT_TRUE(equalsPlain(picture, size, brightness)) << size << " at " << brightness;
        const std::uint32_t* pixels = picture.bitmap().pixels.data();
        if (!first) first = pixels;
        if (brightness == 1) {
            EXPECT_EQ(pixels, first) << "the same memory: nothing was measured";
        }
    }
    WheelPicture::keepMeasure(false);
    WheelPicture picture;
    picture.render(64, 1);
    EXPECT_TRUE(equalsPlain(picture, 64, 1));
}

TEST(WheelPicture, TwoAtATimeShareNothing) {
    WheelPicture::keepMeasure(true);
    { WheelPicture().render(64, 1); }
    WheelPicture one, other;
    one.render(64, 1);
    other.render(64, 0.5F);
    EXPECT_TRUE(equalsPlain(one, 64, 1) && equalsPlain(other, 64, 0.5F));
    WheelPicture::keepMeasure(false);
}

TEST(WheelPicture, EverySmallSizeEqualsThePlainAlgorithm) {
    for (int size = 0; size <= 80; ++size)
        compareAtBrightnesses(size, 23);
}

TEST(WheelPicture, EightBitBrightnessesEqualThePlainAlgorithm) { // bytes of the largest channel on the edge
    for (int size : {101, 128}) {
        WheelPicture picture;
        for (int byte = 0; byte < 256; ++byte)
            for (float brightness :
                 {byte / 255.0f, std::nextafter(byte / 255.0f, 0.0f), std::nextafter(byte / 255.0f, 1.0f)}) {
                picture.render(size, brightness);
                ASSERT_TRUE(equalsPlain(picture, size, brightness)) << size << " at " << brightness;
            }
    }
}

TEST(WheelPicture, BrightnessesOutsideTheUnitAreClamped) {
    WheelPicture picture;
    for (float brightness : {2.0f, 1.0001f, -0.5f, 1e-20f, 0.003f, std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()}) {
        picture.render(64, brightness);
        EXPECT_TRUE(equalsPlain(picture, 64, brightness)) << brightness;
    }
    picture.render(64, 2.0f);
    EXPECT_EQ(picture.bitmap().pixels, plainWheelPicture(64, 1.0f).pixels);
}

TEST(WheelPicture, ANewSizeStartsAfresh) {
    WheelPicture picture;
    for (int size : {64, 100, 0, 33, 64}) {
        picture.render(size, 0.7f);
        EXPECT_EQ(picture.bitmap().width, size);
        EXPECT_EQ(picture.bitmap().height, size);
        EXPECT_TRUE(equalsPlain(picture, size, 0.7f)) << size;
    }
    picture.render(-3, 0.7f);
    EXPECT_TRUE(picture.bitmap().empty());
}

TEST(WheelPicture, PixelsOutsideTheDiscAreLightGreyWhateverTheBrightness) {
    for (float brightness : {0.0f, 0.5f, 1.0f, 2.0f})
        for (auto [x, y] : {std::pair{0, 0}, {63, 0}, {0, 63}, {63, 63}, {0, 32}, {32, 0}})
            EXPECT_EQ(wheelPixel(x, y, 32, brightness), lightGrey);
}

TEST(WheelPicture, BrightnessZeroMakesTheDiscBlack) {
    WheelPicture picture;
    picture.render(64, 0.0f);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const bool inside = std::hypot(x - 32.0, y - 32.0) < 32;
            const std::uint32_t pixel = picture.bitmap().pixels[y * 64 + x];
            EXPECT_EQ(pixel & 0xFFFFFF, inside ? 0u : lightGrey & 0xFFFFFF) << x << ' ' << y;
        }
}

TEST(WheelPicture, TheCentreIsTheGreyOfTheBrightness) {
    float hue, saturation;
    getColorWheelValue(32, 32, &hue, &saturation, 32);
    EXPECT_TRUE(std::isnan(hue));
    EXPECT_EQ(saturation, 0.0f);
    EXPECT_EQ(wheelPixel(32, 32, 32, 0.5f), 0xFF7F7F7Fu);
    EXPECT_EQ(wheelPixel(32, 32, 32, 1.0f), 0xFFFFFFFFu);
}

TEST(WheelPicture, HueZeroIsAtTheRightAndGrowsDownTheRows) {
    struct Row {
        int x, y;
        float hue, saturation;
    };
    for (const Row& row : {Row{48, 32, 0, 0.5f}, Row{32, 48, 0.25f, 0.5f}, Row{16, 32, 0.5f, 0.5f},
                           Row{32, 16, 0.75f, 0.5f}, Row{32, 64, 0.25f, 1.0f}}) {
        float hue, saturation;
        getColorWheelValue(row.x, row.y, &hue, &saturation, 32);
        EXPECT_EQ(hue, row.hue);
        EXPECT_EQ(saturation, row.saturation);
    }
    EXPECT_EQ(wheelPixel(48, 32, 32, 1), 0xFFFF7F7Fu);
}

TEST(WheelPicture, TheRimFadesOutInItsLastTenThousandth) {
    int soft = 0;
    const int size = 1000;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            float hue, saturation;
            getColorWheelValue(x, y, &hue, &saturation, size / 2.0f);
            if (saturation >= 1) continue;
            const std::uint32_t alpha = wheelPixel(x, y, size / 2.0f, 1) >> 24;
            if (saturation <= 0.9999f) {
                ASSERT_EQ(alpha, 255u);
                continue;
            }
            ++soft;
            ASSERT_EQ(alpha, static_cast<std::uint32_t>((1 - saturation) * 100 * 255));
            ASSERT_LE(alpha, 2u); // a hundredth at most
        }
    EXPECT_GT(soft, 0);
}

TEST(WheelPicture, Golden) {
    for (auto [size, brightness, name] :
         {std::tuple{64, 1.0f, "wheel_64_full"}, {63, 0.5f, "wheel_63_half"}}) {
        WheelPicture picture;
        picture.render(size, brightness);
        EXPECT_TRUE(equalsGolden(picture.bitmap(), name)) << name;
    }
}

} // namespace
} // namespace chromalog
