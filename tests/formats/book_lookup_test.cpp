#include "formats/book_lookup.h"

#include "formats/books_on_disk.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

using test::FileBuilder;
using test::keyOf;
using test::RecordingHost;
using testing::ElementsAre;

class Lookup : public testing::Test {
  protected:
    Lookup() { RecordingHost::reset(); }
    std::vector<int> look(int space, std::string_view key) {
        const auto& result = lookup.getValueFromAse(static_cast<std::int16_t>(space), keyOf(key));
        return {result[0], result[1], result[2]};
    }
    test::BooksInMemory inMemory;
    BookLookup lookup{inMemory, RecordingHost::convert};
};

TEST_F(Lookup, AKeyPresentTwiceYieldsTheFirst) {
    FileBuilder book;
    book.bookHeader(3, 7).bookColour("a", "other ", {9, 9, 9});
    book.bookColour("b", " 71-1D", {247, 1, 2}).bookColour("c", " 71-1D", {3, 4, 5});
    inMemory.books["ANPA Color.acb"] = book.bytes;
    look(3000, " 71-1D");
    EXPECT_THAT(RecordingHost::calls, ElementsAre(RecordingHost::Call{3, {247, 1, 2, 0}}));
}

TEST_F(Lookup, EachSpaceOfABookHasItsResult) {
    inMemory.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("", "rgb   ", {1, 128, 255}).bytes;
    inMemory.books["TRUMATCH.acb"] =
        FileBuilder().bookHeader(1, 2).bookColour("", "cmyk  ", {10, 20, 30, 40}).bytes;
    inMemory.books["FOCOLTONE.acb"] =
        FileBuilder().bookHeader(1, 7).bookColour("", "lab   ", {10, 20, 30}).bytes;
    inMemory.books["DIC Color Guide.acb"] =
        FileBuilder().bookHeader(1, 4).bookColour("", "other ", {10, 20, 30}).bytes;
    EXPECT_THAT(look(3000, "rgb   "), ElementsAre(256, -32768, -256));
    EXPECT_THAT(look(5, "cmyk  "), ElementsAre(20, 30, 40));
    EXPECT_THAT(look(4, "lab   "), ElementsAre(20, 30, 0));
    EXPECT_THAT(look(11, "other "), ElementsAre(20, 30, 0)); // writes nothing
}

TEST_F(Lookup, AMissingBookOrKeyLeavesTheResultAsItWas) {
    inMemory.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("", "rgb   ", {1, 2, 3}).bytes;
    EXPECT_THAT(look(4, "rgb   "), ElementsAre(0, 0, 0));
    EXPECT_THAT(look(3000, "rgb   "), ElementsAre(256, 512, 768));
    EXPECT_THAT(look(3000, "RGB   "), ElementsAre(256, 512, 768));
    EXPECT_THAT(look(4, "rgb   "), ElementsAre(256, 512, 768));
}

TEST_F(Lookup, ABookIsReadOncePerLoadMissingOrNot) {
    inMemory.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("", "rgb   ", {1, 2, 3}).bytes;
    for (int i = 0; i < 5; ++i)
        look(3000, "rgb   "), look(4, "absent");
    EXPECT_EQ(inMemory.reads["ANPA Color.acb"], 1);
    EXPECT_EQ(inMemory.reads["FOCOLTONE.acb"], 1);
}

TEST_F(Lookup, AnHksKeyWithoutALetterStaysWithTheBookInForce) {
    inMemory.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("", "   1 X", {1, 2, 3}).bytes;
    EXPECT_THAT(look(10, "   1 X"), ElementsAre(0, 0, 0)); // no book is in force at the start of a file
    look(3000, "absent");
    EXPECT_THAT(look(10, "   1 X"), ElementsAre(256, 512, 768));
    lookup.meetUnknownSpace(3001);
    look(10, "   2 X");
    EXPECT_EQ(inMemory.reads["farbe.Ctype =3001"], 1);
    lookup.meetUnknownSpace(-5);
    look(10, "   2 X");
    EXPECT_EQ(inMemory.reads["farbe.Ctype =-5"], 1);
}

TEST_F(Lookup, Space3066FindsNothingAlthoughTheBookIsThere) {
    const std::string file = "PANTONE+ Pastels & Neons Coated.acb";
    inMemory.books[file] = FileBuilder().bookHeader(1, 0).bookColour("", "  006 ", {1, 2, 3}).bytes;
    EXPECT_THAT(look(3066, "  006 "), ElementsAre(0, 0, 0));
    EXPECT_EQ(inMemory.reads[file], 0);
    EXPECT_THAT(look(10, "  006 "), ElementsAre(256, 512, 768)); // the name is in force all the same
}

TEST_F(Lookup, TheFullIndexFindsEveryKey) {
    FileBuilder book;
    book.bookHeader(4999, 0);
    for (int i = 0; i < 4999; ++i) {
        char key[7];
        std::snprintf(key, sizeof key, "%6d", i);
        book.bookColour("", key, {i % 256, i / 256, 0});
    }
    const BookIndex index(book.bytes);
    for (int i = 0; i < 4999; ++i) {
        char key[7];
        std::snprintf(key, sizeof key, "%6d", i);
        const BookComponents* found = index.find(keyOf(key));
        ASSERT_TRUE(found) << i;
        EXPECT_EQ((*found)[0] + 256 * (*found)[1], i);
    }
    EXPECT_FALSE(index.find(keyOf("  4999")));
    EXPECT_FALSE(index.find(BookKey{}));
}

TEST_F(Lookup, ABookOf8000ColoursIsLookedThroughToItsEnd) {
    FileBuilder book;
    book.bookHeader(8000, 0);
    for (int i = 0; i < 8000; ++i)
        book.bookColour("", "same  ", {i % 256, 0, 0});
    book.bytes.resize(book.bytes.size() - 13); // the last one has another key
    book.bookColour("", "last  ", {1, 2, 3});
    inMemory.books["ANPA Color.acb"] = book.bytes;
    EXPECT_THAT(look(3000, "same  "), ElementsAre(0, 0, 0));
    EXPECT_THAT(look(3000, "last  "), ElementsAre(256, 512, 768));
}

TEST_F(Lookup, HostileBooksFindNothing) {
    FileBuilder endless;
    endless.bookHeader(32767, 0).longWord(0xFFFF).text("abc");
    for (const FileBuilder& book :
         {FileBuilder(), FileBuilder().text("8BC"), FileBuilder().bookHeader(-1, 0), endless,
          FileBuilder().bookHeader(9, 2).longWord(0).text("key   ").byte(1).byte(2).byte(3)}) {
        const BookIndex index(book.bytes);
        EXPECT_FALSE(index.find(keyOf("key   ")));
        EXPECT_FALSE(index.find(BookKey{})); // nothing past the end counts as a key of zeros
    }
}

TEST(BooksOnDisk, ReadsBooksAndNothingElse) {
    test::TemporaryFolder folder;
    std::ofstream(folder / "TRUMATCH.acb") << "book";
    ::mkdir((folder / "FOCOLTONE.acb").c_str(), 0755);
    ::mkfifo((folder / "ANPA Color.acb").c_str(), 0644); // opening it would wait for a writer
    const BooksOnDisk books(folder.path());
    EXPECT_EQ(books.readBook("TRUMATCH.acb"), (std::vector<std::uint8_t>{'b', 'o', 'o', 'k'}));
    EXPECT_FALSE(books.readBook("FOCOLTONE.acb"));
    EXPECT_FALSE(books.readBook("ANPA Color.acb"));
    EXPECT_FALSE(books.readBook("absent.acb"));
    EXPECT_FALSE(books.readBook(""));
    EXPECT_FALSE(BooksOnDisk("").readBook("TRUMATCH.acb"));
}

TEST_F(Lookup, ABookIsReadOnceForAllItsColours) {
    inMemory.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("", "rgb   ", {1, 128, 255}).bytes;
    for (int i = 0; i < 3; ++i)
        look(3000, "rgb   ");
    EXPECT_EQ(inMemory.reads["ANPA Color.acb"], 1);
}

} // namespace
} // namespace chromalog
