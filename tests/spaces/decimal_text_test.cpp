#include "spaces/decimal_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace chromalog {
namespace {

struct Taken {
    std::string_view text;
    double value;
    std::string_view rest;
};

TEST(DecimalText, TakesTheLongestNumber) {
    const Taken table[] = {
        {"12", 12, ""},
        {"12.5%", 12.5, "%"},
        {"-.5deg", -0.5, "deg"},
        {"+7 8", 7, " 8"},
        {"12.", 12, "."},
        {"1.2.3", 1.2, ".3"},
        {"1e3x", 1000, "x"},
        {"1E-2", 0.01, ""},
        {"1e+2", 100, ""},
        {"1e", 1, "e"},
        {"1e-", 1, "e-"},
        {"0x10", 0, "x10"},
        {"-0", 0, ""},
        {"007", 7, ""},
        {"0.1", 0.1, ""},
        {"0.3333333333333333", 0.3333333333333333, ""},
        {"123456789012345678901234567890", 1e15, ""},
        {"-1e999999999999", -1e15, ""},
        {"1e-999999999999", 0, ""},
        {"0e999", 0, ""},
        {"0.0000000000000000000000000000001", 1e-31, ""},
    };
    for (const auto& [text, value, rest] : table) {
        std::string_view left = text;
        const auto taken = takeDecimal(left);
        ASSERT_TRUE(taken) << text;
        EXPECT_DOUBLE_EQ(*taken, value) << text;
        EXPECT_EQ(left, rest) << text;
    }
}

TEST(DecimalText, LeavesATextWithoutNumberAlone) {
    for (const std::string_view text :
         {"", "-", "+", ".", "-.", "e5", "inf", "nan", "%", " 1", ",5", "--1"}) {
        std::string_view left = text;
        EXPECT_FALSE(takeDecimal(left)) << text;
        EXPECT_EQ(left, text);
    }
}

TEST(DecimalText, WritesWithoutTrailingZeros) {
    EXPECT_EQ(decimalText(0.5, 3), "0.5");
    EXPECT_EQ(decimalText(12, 3), "12");
    EXPECT_EQ(decimalText(100, 0), "100");
    EXPECT_EQ(decimalText(0.125, 2), "0.13");
    EXPECT_EQ(decimalText(-0.125, 2), "-0.13");
    EXPECT_EQ(decimalText(-0.001, 2), "0");
    EXPECT_EQ(decimalText(-0.05, 2), "-0.05");
    EXPECT_EQ(decimalText(359.99999, 2), "360");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::quiet_NaN(), 2), "0");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::infinity(), 9), "1000000000");
}

TEST(DecimalText, WritesExactlySoManyDecimals) {
    EXPECT_EQ(fixedDecimalText(0.5, 3), "0.500");
    EXPECT_EQ(fixedDecimalText(1, 3), "1.000");
    EXPECT_EQ(fixedDecimalText(0.0004, 3), "0.000");
    EXPECT_EQ(fixedDecimalText(0.0625, 4), "0.0625");
    EXPECT_EQ(fixedDecimalText(7, 0), "7");
}

} // namespace
} // namespace chromalog
