#include "spaces/contrast.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

TEST(Contrast, BlackOnWhiteIsTwentyOne) {
    EXPECT_NEAR(contrastRatio({0, 0, 0}, {1, 1, 1}), 21, 1e-12);
    EXPECT_EQ(contrastRatio({0.3, 0.6, 0.9}, {0.3, 0.6, 0.9}), 1);
    EXPECT_EQ(contrastRatio({2, 2, 2}, {-1, -1, -1}), contrastRatio({1, 1, 1}, {0, 0, 0}));
}

TEST(Contrast, ThePrimariesHaveTheLuminanceOfTheGuidelines) {
    // WCAG 2.2, definition of relative luminance.
    EXPECT_NEAR(relativeLuminance({1, 0, 0}), 0.2126, 1e-12);
    EXPECT_NEAR(relativeLuminance({0, 1, 0}), 0.7152, 1e-12);
    EXPECT_NEAR(relativeLuminance({0, 0, 1}), 0.0722, 1e-12);
    EXPECT_NEAR(relativeLuminance({1, 1, 1}), 1, 1e-12);
}

struct OnWhite {
    std::uint32_t colour;
    double ratio;
};

TEST(Contrast, AgreesWithPublishedRatios) {
    // On white, as WebAIM's contrast checker prints them; #767676 and #777777 are the greys on both sides
    // of 4.5 that guides name.
    const OnWhite table[] = {
        {0x767676, 4.54}, {0x777777, 4.48}, {0x949494, 3.03}, {0x595959, 7.00},
        {0xFF0000, 4.00}, {0x0000FF, 8.59}, {0x008000, 5.14}, {0xFFFF00, 1.07},
    };
    for (const auto& [colour, ratio] : table) {
        EXPECT_NEAR(contrastRatio(rgbOfBytes(colour), {1, 1, 1}), ratio, 0.005) << std::hex << colour;
        EXPECT_EQ(contrastRatio(rgbOfBytes(colour), {1, 1, 1}), contrastRatio({1, 1, 1}, rgbOfBytes(colour)));
    }
}

TEST(Contrast, LevelsAreReachedNotRounded) {
    EXPECT_EQ(contrastLevel(7, TextSize::normal), ContrastLevel::aaa);
    EXPECT_EQ(contrastLevel(6.999, TextSize::normal), ContrastLevel::aa);
    EXPECT_EQ(contrastLevel(4.5, TextSize::normal), ContrastLevel::aa);
    EXPECT_EQ(contrastLevel(4.499, TextSize::normal), ContrastLevel::fails);
    EXPECT_EQ(contrastLevel(4.5, TextSize::large), ContrastLevel::aaa);
    EXPECT_EQ(contrastLevel(4.499, TextSize::large), ContrastLevel::aa);
    EXPECT_EQ(contrastLevel(3, TextSize::large), ContrastLevel::aa);
    EXPECT_EQ(contrastLevel(2.999, TextSize::large), ContrastLevel::fails);
    EXPECT_EQ(contrastLevel(1, TextSize::large), ContrastLevel::fails);
}

TEST(Contrast, TheOlderBendGivesEveryByteTheSame) {
    for (std::uint32_t byte = 0; byte < 256; ++byte)
        EXPECT_EQ(byte / 255.0 <= 0.04045, byte / 255.0 <= 0.03928) << byte;
}

} // namespace
} // namespace chromalog
