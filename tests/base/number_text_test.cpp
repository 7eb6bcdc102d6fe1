#include "base/number_text.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <utility>

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

TEST(NumberText, ReadsWhatIsLongerThanAnyBuffer) {
    const std::string zeros(400, '0');
    EXPECT_EQ(floatValue("0." + zeros + "1"), 0) << "too small, without an exponent";
    EXPECT_EQ(floatValue("1" + zeros), std::numeric_limits<float>::max());
    EXPECT_EQ(floatValue("25" + zeros + "e-401"), 2.5f);
    EXPECT_EQ(floatValue(zeros + "7"), 7);
    EXPECT_EQ(floatValue("1e99999999999999999999"), std::numeric_limits<float>::max());
    EXPECT_EQ(floatValue("1e-99999999999999999999"), 0);
}

TEST(NumberText, AMinusCountsOnlyBeforeANumber) {
    EXPECT_FALSE(std::signbit(floatValue("-")));
    EXPECT_FALSE(std::signbit(floatValue("-x")));
    EXPECT_TRUE(std::signbit(floatValue("-0")));
}

TEST(NumberText, FiniteNumbersAreWholeTexts) {
    const std::pair<const char*, double> numbers[] = {
        {"0", 0},      {"12", 12},     {"-3.25", -3.25}, {".5", 0.5},  {"5.", 5},         {"1e2", 100},
        {"1E+2", 100}, {"25e-1", 2.5}, {"007", 7},       {"0e999", 0}, {"1e-310", 1e-310}};
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(finiteNumber(text), value) << text;
    // Halfway between two doubles and a digit further out: no rounding on the way.
    EXPECT_EQ(finiteNumber("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(finiteNumber("9007199254740993.000000000000000000001"), 9007199254740994.0);
    for (const char* text : {"", "-", ".", "e1", "1e", "1e+", "+1", " 1", "1 ", "1,5", "--1", "0x10", "inf",
                             "-inf", "nan", "1e999", "1e-400", "1.5.2"})
        EXPECT_FALSE(finiteNumber(text)) << text;
}

TEST(NumberText, FixedTextHasSixDecimals) {
    EXPECT_EQ(fixedText(0.5), "0.500000");
    EXPECT_EQ(fixedText(-12.3456786), "-12.345679");
    EXPECT_EQ(fixedText(0.0000005), "0.000000") << "the double lies below the half";
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max()).size(), 309u + 7u);
    EXPECT_EQ(fixedText(std::numeric_limits<double>::infinity()), "inf");
}

/// Makes a locale whose numbers have a comma, as much of the world writes them, and uses it.
class CommaLocale {
  public:
    CommaLocale() {
        std::ofstream(folder_ / "source") << "LC_NUMERIC\ndecimal_point \",\"\nEND LC_NUMERIC\n";
        std::ofstream(folder_ / "charmap")
            << "<code_set_name> UTF-8\n<mb_cur_min> 1\n<mb_cur_max> 1\nCHARMAP\n"
               "<U002C> /x2c COMMA\nEND CHARMAP\n";
        // It complains of all that the locale lacks, and makes what there is.
        [[maybe_unused]] const int complained = std::system(
            ("cd '" + folder_.path() + "' && localedef -c -i source -f ./charmap ./comma >/dev/null 2>&1")
                .c_str());
        ::setenv("LOCPATH", folder_.path().c_str(), 1);
        std::setlocale(LC_NUMERIC, "comma") || std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    }
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, "C");
        ::unsetenv("LOCPATH");
    }

  private:
    test::TemporaryFolder folder_;
};

TEST(NumberText, TheLocaleOfTheProcessPlaysNoPart) {
    const CommaLocale comma;
    char text[8];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    ASSERT_STREQ(text, "1,5");
    EXPECT_EQ(floatValue("99.5"), 99.5f);
    EXPECT_EQ(floatValue("99,5"), 99);
    EXPECT_EQ(finiteNumber("0.25"), 0.25);
    EXPECT_EQ(fixedText(0.25), "0.250000");
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    EXPECT_STREQ(text, "1,5") << "and it stays as it was";
}

TEST(NumberText, SaturatesOnItsWayTo16Bits) {
    EXPECT_EQ(saturated16(1e30), 32767);
    EXPECT_EQ(saturated16(-1e30), -32768);
    EXPECT_EQ(saturated16(1.9), 1);
    EXPECT_EQ(saturated16(-1.9), -1);
    EXPECT_EQ(saturated16(std::numeric_limits<double>::quiet_NaN()), 0);
}

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
    EXPECT_EQ(fixedText(0.5, 3), "0.500");
    EXPECT_EQ(fixedText(1, 3), "1.000");
    EXPECT_EQ(fixedText(0.0004, 3), "0.000");
    EXPECT_EQ(fixedText(0.0625, 4), "0.0625");
    EXPECT_EQ(fixedText(7, 0), "7");
}

} // namespace
} // namespace chromalog
