#include "judge/contrast_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace chromalog {
namespace {

TEST(ContrastText, IsRoundedDown) {
    EXPECT_EQ(ratioText(4.499), "4.49:1");
    EXPECT_EQ(ratioText(4.4999999), "4.49:1");
    EXPECT_EQ(ratioText(std::nextafter(4.5, 0)), "4.49:1") << "a hundred times it is 450 in doubles";
    EXPECT_EQ(ratioText(std::nextafter(7.0, 0)), "6.99:1");
    EXPECT_EQ(ratioText(4.5), "4.50:1");
    EXPECT_EQ(ratioText(1), "1.00:1");
    EXPECT_EQ(ratioText(contrastRatio({0, 0, 0}, {1, 1, 1})), "21.00:1");
    EXPECT_EQ(ratioText(contrastRatio(rgbOfBytes(0x777777), {1, 1, 1})), "4.47:1");
}

TEST(ContrastText, NeverSaysMoreThanTheRatio) {
    for (int hundredths = 101; hundredths <= 2100; ++hundredths) {
        const double below = std::nextafter(hundredths / 100.0, 0);
        EXPECT_LE(std::stod(ratioText(below)), below);
        EXPECT_EQ(std::stod(ratioText(hundredths / 100.0)), hundredths / 100.0);
    }
}

TEST(ContrastText, NeverSaysMoreThanItsLevel) {
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; b += 5) {
            const double ratio = contrastRatio({a / 255.0, a / 255.0, a / 255.0}, {b / 255.0, 1, b / 255.0});
            const double shown = std::stod(ratioText(ratio));
            ASSERT_EQ(shown >= 4.5, levelText(ratio, TextSize::normal) != "below AA") << a << ' ' << b;
            ASSERT_EQ(shown >= 3, levelText(ratio, TextSize::large) != "below AA") << a << ' ' << b;
            ASSERT_EQ(shown >= 7, levelText(ratio, TextSize::normal) == "AAA") << a << ' ' << b;
        }
}

} // namespace
} // namespace chromalog
