#include "colour/number_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace chromalog {
namespace {

struct NumberRow {
    const char* text;
    float asFloat;
    std::int64_t asInteger;
};

class NumberText : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberText, ReadsTheLongestDecimalPrefix) {
    EXPECT_EQ(floatValue(GetParam().text), GetParam().asFloat) << GetParam().text;
    EXPECT_EQ(integerValue(GetParam().text), GetParam().asInteger) << GetParam().text;
}

constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
INSTANTIATE_TEST_SUITE_P(
    Texts, NumberText,
    testing::Values(NumberRow{"", 0, 0}, NumberRow{"12", 12, 12}, NumberRow{"12abc", 12, 12},
                    NumberRow{"99.5", 99.5f, 99}, NumberRow{"1e2", 100, 1}, NumberRow{"  +7", 7, 7},
                    NumberRow{"\t-3", -3, -3}, NumberRow{"abc", 0, 0}, NumberRow{"-", 0, 0},
                    NumberRow{"+-5", 0, 0}, NumberRow{"0x10", 0, 0}, NumberRow{"inf", 0, 0},
                    NumberRow{"nan", 0, 0}, NumberRow{".5", 0.5f, 0}, NumberRow{".", 0, 0},
                    NumberRow{"5.", 5, 5}, NumberRow{"1,5", 1, 1}, NumberRow{"1e", 1, 1},
                    NumberRow{"-1e-400", 0, -1}, NumberRow{"1e999", std::numeric_limits<float>::max(), 1},
                    NumberRow{"99999999999999999999", 1e20f, kLargest},
                    NumberRow{"-99999999999999999999", -1e20f, -kLargest}));

TEST(NumberText, SaturatesOnItsWayTo16Bits) {
    EXPECT_EQ(saturated16(1e30), 32767);
    EXPECT_EQ(saturated16(-1e30), -32768);
    EXPECT_EQ(saturated16(1.9), 1);
    EXPECT_EQ(saturated16(-1.9), -1);
    EXPECT_EQ(saturated16(std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace
} // namespace chromalog
