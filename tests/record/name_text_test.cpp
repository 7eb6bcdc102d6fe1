#include "record/name_text.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

TEST(NameText, MacRomanBytesBecomeUtf8) {
    EXPECT_EQ(macRomanToUtf8("Plain"), "Plain");
    EXPECT_EQ(macRomanToUtf8("\x80\x8A\xA7\xDB\xF0\xFF"), "Ääß€\uF8FFˇ");
    EXPECT_EQ(macRomanToUtf8(std::string_view("a\0b", 3)), std::string_view("a\0b", 3));
}

TEST(NameText, LowBytesOfUtf16ShowMacRomanLetters) {
    EXPECT_EQ(macRomanToUtf8("\xE9"), "È"); // the low byte of U+00E9: kept
}

TEST(NameText, LossyAsciiDropsAccentsElseAQuestionMark) {
    struct Row {
        std::string_view text, ascii;
    };
    for (const Row& row : {Row{"plain ~", "plain ~"}, Row{"Zażółć", "Zazo?c"}, Row{"ÀÉÎõüÿ", "AEIouy"},
                           Row{"Ǎǚȳ", "Auy"}, Row{"Ẁạỹ", "Way"}, Row{"e\u0301", "e"}, Row{"ß€Ω", "???"},
                           Row{"😀", "??"}, Row{"", ""}, Row{"\xFF\xC3", "??"}})
        EXPECT_EQ(lossyAscii(row.text), row.ascii) << row.text;
}

TEST(NameText, LengthsAreUtf16Units) {
    EXPECT_EQ(utf16Length("abc"), 3u);
    EXPECT_EQ(utf16Length("é€"), 2u);
    EXPECT_EQ(utf16Length("😀"), 2u);
    EXPECT_EQ(utf16Length(""), 0u);
}

TEST(NameText, BrokenUtf8IsReplacedAByteAtATime) {
    for (const std::string_view broken :
         {"\x80", "\xC0\xAF", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8"}) {
        std::string_view rest = broken;
        EXPECT_EQ(takeCodePoint(rest), U'\uFFFD');
        EXPECT_EQ(rest.size(), broken.size() - 1);
    }
}

TEST(NameText, EveryCodePointSurvivesUtf8) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 97) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::string text;
        appendUtf8(text, c);
        std::string_view rest = text;
        ASSERT_EQ(takeCodePoint(rest), c);
        ASSERT_TRUE(rest.empty());
    }
}

} // namespace
} // namespace chromalog
