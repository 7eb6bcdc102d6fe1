#include "formats/book_format.h"

#include "support/swatch_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::FileBuilder;
using test::RecordingHost;
using testing::ElementsAre;

class BookLoader : public testing::Test {
  protected:
    BookLoader() { RecordingHost::reset(); }
    int load(const FileBuilder& book) { return loadBook(book.bytes, list.records(), RecordingHost::convert); }
    std::vector<std::int64_t> channels(int i) { return {list[i].SRed, list[i].SGreen, list[i].SBlue}; }
    std::string name(int i) { return std::string(nameBytes(list[i])); }
    test::GuardedList list;
};

TEST_F(BookLoader, ThreeRgbColoursAreNamedByTheirKeys) {
    FileBuilder book;
    book.bookHeader(3, 0).bookColour("Red", "RED   ", {255, 0, 0}).bookColour("", "GREEN ", {0, 255, 0});
    book.bookColour("Blue with a longer name", "  BLUE", {0, 1, 2});
    EXPECT_EQ(load(book), 3);
    EXPECT_EQ(name(0), "RED   ");
    EXPECT_EQ(name(1), "GREEN ");
    EXPECT_EQ(name(2), "  BLUE");
    EXPECT_THAT(channels(0), ElementsAre(255 * 256, 0, 0));
    EXPECT_THAT(channels(2), ElementsAre(0, 256, 512));
    EXPECT_TRUE(list.untouched(3));
    EXPECT_TRUE(RecordingHost::calls.empty());
}

TEST_F(BookLoader, CmykPassesFourBytesAndLabThree) {
    load(FileBuilder().bookHeader(1, 2).bookColour("", "cmyk  ", {1, 2, 3, 4}));
    EXPECT_THAT(RecordingHost::calls, ElementsAre(RecordingHost::Call{2, {1, 2, 3, 4}}));
    EXPECT_THAT(channels(0), ElementsAre(2 * 256, 3 * 256, 4 * 256));
    RecordingHost::reset();
    load(FileBuilder()
             .bookHeader(2, 7)
             .bookColour("", "lab   ", {200, 128, 127})
             .bookColour("", "lab2  ", {1, 2, 3}));
    EXPECT_THAT(RecordingHost::calls, ElementsAre(RecordingHost::Call{3, {200, 128, 127, 0}},
                                                  RecordingHost::Call{3, {1, 2, 3, 0}}));
}

TEST_F(BookLoader, AnUnknownSpaceKeepsTheSlotsOfTheColourBefore) {
    EXPECT_EQ(load(FileBuilder().bookHeader(1, 5).bookColour("", "key   ", {1, 2, 3})), 1);
    EXPECT_THAT(channels(0), ElementsAre(0, 0, 0));
    EXPECT_EQ(name(0), "key   ");
}

TEST_F(BookLoader, TheCountIsClampedToTheCapacity) {
    FileBuilder book;
    book.bookHeader(8000, 0);
    for (int i = 0; i < 8000; ++i)
        book.bookColour("", "key   ", {i % 256, 0, 0});
    EXPECT_EQ(load(book), 5000);
    EXPECT_EQ(list[4999].SRed, 4999 % 256 * 256);
    EXPECT_TRUE(list.guardsWhole());
}

TEST_F(BookLoader, ANegativeCountIsToldAndReadsNothing) {
    EXPECT_EQ(load(FileBuilder().bookHeader(-2, 0).bookColour("", "key   ", {1, 2, 3})), -2);
    EXPECT_TRUE(list.untouched(0));
}

TEST_F(BookLoader, OnlyTheLowWordOfAStringLengthCounts) {
    FileBuilder book;
    book.text("8BCB").word(1).word(3000);
    for (int i = 0; i < 4; ++i)
        book.longWord(0xFFFF0001).word('t');
    book.word(1).longWord(0).word(0).longWord(0x80000001).word('n').text("key   ").byte(7).byte(8).byte(9);
    EXPECT_EQ(load(book), 1);
    EXPECT_EQ(name(0), "key   ");
    EXPECT_THAT(channels(0), ElementsAre(7 * 256, 8 * 256, 9 * 256));
}

TEST_F(BookLoader, StringsThatRunPastTheEndFindNothing) {
    FileBuilder header;
    header.text("8BCB").word(1).word(3000).longWord(0xFFFF).text("short");
    EXPECT_EQ(load(header), 0);
    FileBuilder name;
    name.bookHeader(2, 0).bookColour("", "first ", {1, 2, 3}).longWord(0xFFFF).text("abc");
    EXPECT_EQ(load(name), 2);
    EXPECT_FALSE(list.untouched(0));
    EXPECT_TRUE(list.untouched(1));
}

TEST_F(BookLoader, ATruncationAtEveryByteReadsWholeColoursOnly) {
    FileBuilder book;
    book.bookHeader(2, 2).bookColour("one", "first ", {1, 2, 3, 4}).bookColour("two", "second", {5, 6, 7, 8});
    for (std::size_t length = 0; length < book.bytes.size(); ++length) {
        test::GuardedList fresh;
        // An exact copy, so that a sanitizer sees a byte too far.
        const std::vector<std::uint8_t> part(book.bytes.begin(),
                                             book.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        loadBook(part, fresh.records(), RecordingHost::convert);
        EXPECT_TRUE(fresh.untouched(1)) << length;
        EXPECT_TRUE(fresh.guardsWhole()) << length;
    }
}

} // namespace
} // namespace chromalog
