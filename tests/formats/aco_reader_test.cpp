#include "formats/aco_reader.h"

#include "support/swatch_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::FileBuilder;
using test::RecordingHost;
using testing::ElementsAre;

class AcoReader : public testing::Test {
  protected:
    AcoReader() { RecordingHost::reset(); }

    /// As a caller does it: the counts that the view is told, in order.
    std::vector<int> read(const FileBuilder& file, std::int16_t start = 0) {
        header = readAcoHeader(file.bytes, start);
        std::vector<int> told{header.viewCount};
        if (const auto next =
                readAcoRecords(file.bytes, header, start, list.records(), RecordingHost::convert, books))
            told.push_back(*next);
        return told;
    }
    std::vector<std::int64_t> channels(int i) { return {list[i].SRed, list[i].SGreen, list[i].SBlue}; }
    std::string name(int i) { return std::string(nameBytes(list[i])); }

    AcoHeader header;
    test::GuardedList list;
    test::BooksInMemory books;
};

TEST_F(AcoReader, CountPlusStartBelowTheLimitLoadsAndAtTheLimitTheOverflowCounts) {
    struct Row {
        int count, start, read;
        std::optional<int> alert;
    };
    for (const Row& row : {Row{4999, 0, 4999, {}}, Row{5000, 0, 0, 5000}, Row{5001, 0, 1, 5001},
                           Row{6000, 0, 1000, 6000}, Row{20, 4990, 10, 5010}, Row{12000, 0, 7000, 12000},
                           Row{32767, 100, 27867, 32867}, Row{-1, 0, -1, {}}, Row{9, 4990, 9, {}}}) {
        const AcoHeader header =
            readAcoHeader(FileBuilder().header(2, row.count).bytes, static_cast<std::int16_t>(row.start));
        EXPECT_EQ(header.count, row.read) << row.count << " at " << row.start;
        EXPECT_EQ(header.overLimit, row.alert) << row.count << " at " << row.start;
        EXPECT_EQ(header.viewCount, row.start + row.read) << row.count << " at " << row.start;
    }
}

TEST_F(AcoReader, AFileOf5001ColoursGivesItsFirstOneRecord) {
    FileBuilder file;
    file.header(2, 5001);
    for (int i = 0; i < 5001; ++i)
        file.colour(0, i + 1, 0, 0).name("");
    EXPECT_THAT(read(file), ElementsAre(1));
    EXPECT_EQ(list[0].SRed, 1);
    EXPECT_TRUE(list.untouched(1));
}

TEST_F(AcoReader, AppendingTwentyColoursTo4990KeepsTheFirstTen) {
    FileBuilder file;
    file.header(2, 20);
    for (int i = 0; i < 20; ++i)
        file.colour(0, i, 0, 0).name("n");
    EXPECT_THAT(read(file, 4990), ElementsAre(5000));
    EXPECT_TRUE(list.untouched(4989));
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(list[4990 + i].SRed, i);
    EXPECT_TRUE(list.guardsWhole());
}

TEST_F(AcoReader, Version1NeedsFiveMoreBytesForASecondSection) {
    FileBuilder file;
    file.header(1, 3).colour(0, 1, 2, 3).colour(0, 4, 5, 6).colour(0, 7, 8, 9);
    EXPECT_THAT(read(file), ElementsAre(3)); // 34 bytes
    file.word(2).word(0);
    EXPECT_THAT(read(file), ElementsAre(3)); // 38 bytes
    file.byte(0);
    EXPECT_THAT(read(file), ElementsAre(3, 0)); // 39 bytes
}

TEST_F(AcoReader, Version1TakesSignedBytesTimes256AndNamesThemInHexadecimal) {
    FileBuilder file;
    // The space code plays no part, and a full 16-bit white is minus one.
    file.header(1, 3)
        .colour(7, 0xAB, 0xCD, 0x0F)
        .colour(0, 0xFFFF, 0xFFFF, 0xFFFF)
        .colour(2, 0x100, 0, 0x7FFF);
    EXPECT_THAT(read(file), ElementsAre(3));
    EXPECT_THAT(channels(0), ElementsAre(171 * 256, 205 * 256, 15 * 256));
    EXPECT_EQ(name(0), "ABCD0F");
    EXPECT_THAT(channels(1), ElementsAre(-256, -256, -256));
    EXPECT_EQ(name(1), "0/0/0/");
    EXPECT_THAT(channels(2), ElementsAre(65536, 0, 32767 * 256));
    EXPECT_EQ(name(2).substr(0, 4), "G000"); // 16 is no digit
    EXPECT_TRUE(RecordingHost::calls.empty());
}

TEST_F(AcoReader, TheSecondSectionHasItsOwnCountAndVersionWordIsNotChecked) {
    FileBuilder file;
    file.header(1, 1)
        .colour(0, 1, 1, 1)
        .header(77, 2)
        .colour(0, 1, 2, 3)
        .name("one")
        .colour(0, 4, 5, 6)
        .name("two");
    EXPECT_THAT(read(file, 10), ElementsAre(11, 12));
    EXPECT_THAT(channels(11), ElementsAre(4, 5, 6));
    EXPECT_EQ(name(10), "one");
    EXPECT_TRUE(list.untouched(9));
    EXPECT_TRUE(list.untouched(12));
}

TEST_F(AcoReader, SpacesInAVersion2FileAreScaledForTheHostAndTimes255) {
    struct Row {
        int space, w, x, y, z;
        RecordingHost::Call call;
    };
    for (const Row& row :
         {Row{1, 0, 0xFFFF, 0xFFFF, 9, {1, {0, 0, 0, 9}}},
          Row{1, 0x8000, 0x8000, 0x8000, 0, {1, {-179, -127, -127, 0}}},
          Row{2, 0xFFFF, 0, 0x8000, 0x0101, {2, {255, 0, 127, 1}}},
          Row{7, 10000, 0, 0, 0, {3, {255, 128, 128, 0}}},
          Row{7, 1500, -1200, -1200, 0, {3, {38, 116, 116, 0}}}, Row{8, 5000, 1, 2, 3, {4, {127, 1, 2, 3}}},
          Row{8, 40000, 0, 0, 0, {4, {-651, 0, 0, 0}}},
          Row{10, 0x2020, 0x2031, 0x4550, 0, {10, {0x2020, 0x2031, 0x4550, 0}}},
          Row{9, 1, 2, 3, 4, {9, {1, 2, 3, 4}}}}) {
        RecordingHost::reset();
        read(FileBuilder().header(2, 1).colour(row.space, row.w, row.x, row.y, row.z).name("n"));
        ASSERT_EQ(RecordingHost::calls.size(), 1u) << row.space;
        EXPECT_EQ(RecordingHost::calls[0], row.call) << row.space << " " << row.w;
        const auto& slots = row.call.slots; // the double answers with slots 1, 2, 3
        EXPECT_THAT(channels(0), ElementsAre(slots[1] * 255, slots[2] * 255, slots[3] * 255));
    }
}

TEST_F(AcoReader, SpacesAfterVersion1AreUnsignedAndTimes256) {
    struct Row {
        int space, w, x, y, z;
        RecordingHost::Call call;
    };
    for (const Row& row : {Row{1, 0, 0xFFFF, 0xFFFF, 0, {1, {0, 255, 255, 0}}},
                           Row{1, 0xFFFF, 0x8000, 0, 7, {1, {359, 127, 0, 7}}},
                           Row{2, 0xFFFF, 0, 0x8000, 0x0101, {2, {255, 0, 127, 1}}},
                           Row{7, 10000, -12800, 12700, 0, {3, {255, 0, 255, 0}}},
                           Row{8, 40000, 0, 0, 0, {4, {1020, 0, 0, 0}}}}) {
        RecordingHost::reset();
        read(FileBuilder().header(1, 0).header(2, 1).colour(row.space, row.w, row.x, row.y, row.z).name("n"));
        ASSERT_EQ(RecordingHost::calls.size(), 1u) << row.space;
        EXPECT_EQ(RecordingHost::calls[0], row.call) << row.space << " " << row.w;
        const auto& slots = row.call.slots;
        EXPECT_THAT(channels(0), ElementsAre(slots[1] * 256, slots[2] * 256, slots[3] * 256));
    }
}

TEST_F(AcoReader, RgbIsUnsignedUnscaledAndAsksNobody) {
    read(FileBuilder().header(2, 1).colour(0, 0xFFFF, 0x8000, 1, 5).name("n"));
    EXPECT_THAT(channels(0), ElementsAre(65535, 32768, 1));
    EXPECT_TRUE(RecordingHost::calls.empty());
}

TEST_F(AcoReader, WithoutHostServicesTheScaledValuesAreStored) {
    const FileBuilder file = FileBuilder().header(2, 1).colour(2, 0xFFFF, 0, 0xFFFF, 0).name("n");
    header = readAcoHeader(file.bytes, 0);
    readAcoRecords(file.bytes, header, 0, list.records(), nullptr, books);
    EXPECT_THAT(channels(0), ElementsAre(255 * 255, 0, 255 * 255));
    RecordingHost::reset(-50);
    read(file);
    EXPECT_THAT(channels(0), ElementsAre(255 * 255, 0, 255 * 255));
}

TEST_F(AcoReader, ALengthOfOneIsAnEmptyNameAndZeroMakes255) {
    FileBuilder file;
    file.header(2, 2).colour(0, 1, 2, 3).name("").colour(0, 4, 5, 6).longWord(0).word('x');
    read(file);
    EXPECT_EQ(list[0].Namen[0], 0);
    EXPECT_EQ(list[1].Namen[0], 255);
    EXPECT_EQ(list[1].Namen[1], 'x');
    EXPECT_EQ(list[1].SRed, 4);
}

TEST_F(AcoReader, A255CharacterNameLeavesTheColourAlone) {
    const std::string longest(255, 'n');
    FileBuilder file;
    file.header(2, 2).colour(0, 0x1234, 2, 3).name(longest).colour(0, 4, 5, 6).name("next");
    read(file);
    EXPECT_EQ(name(0), longest);
    EXPECT_EQ(list[0].SRed, 0x1234);
    EXPECT_EQ(name(1), "next");
}

TEST_F(AcoReader, NamesKeepTheLowByteOfEachUnitAndOfTheirLength) {
    FileBuilder file;
    file.header(2, 1).colour(0, 1, 2, 3).longWord(0x12340003).word(0x0141).word(0x0107).word(0);
    read(file);
    EXPECT_EQ(name(0), "A\x07");
}

TEST_F(AcoReader, AFileWithoutTerminatorsLosesTheLastCharacterAndStaysInStep) {
    FileBuilder file;
    file.header(2, 2).colour(0, 1, 2, 3).units("Void").colour(0, 4, 5, 6).name("next");
    read(file);
    EXPECT_EQ(name(0), "Voi");
    EXPECT_EQ(name(1), "next");
}

TEST_F(AcoReader, FieldsThatAFileDoesNotHoldAreKept) {
    list[0].PRed = 1, list[0].Ordre = 2, list[0].MinRGB = 3;
    read(FileBuilder().header(2, 1).colour(0, 1, 2, 3).name("n"));
    EXPECT_EQ(list[0].PRed, 1);
    EXPECT_EQ(list[0].Ordre, 2);
    EXPECT_EQ(list[0].MinRGB, 3);
    EXPECT_TRUE(list.untouched(1)); // a shorter list leaves the records past its end
}

TEST_F(AcoReader, ANameThatTheFileCutsOffEndsInZeros) {
    FileBuilder file;
    file.header(2, 1).colour(0, 1, 2, 3).name("abcdef");
    file.bytes.resize(file.bytes.size() - 2 - 2 * 4); // without the last four letters and the terminator
    read(file);
    EXPECT_EQ(name(0), std::string("ab\0\0\0\0", 6));
}

TEST_F(AcoReader, OtherVersionsTellTheirCountAndWriteNothing) {
    for (const int version : {0, 3, 128, 255}) {
        EXPECT_THAT(read(FileBuilder().header(version, 7).colour(0, 1, 2, 3)), ElementsAre(7));
        EXPECT_TRUE(list.untouched(0));
    }
}

TEST_F(AcoReader, BookReferencesAreLookedUpAndAMissKeepsTheLastResult) {
    books.books["ANPA Color.acb"] =
        FileBuilder().bookHeader(1, 0).bookColour("name", " 71-1D", {1, 2, 200}).bytes;
    FileBuilder file;
    file.header(1, 0).header(2, 4);
    file.reference(3000, "absent").name("first miss").reference(3000, " 71-1D").name("hit");
    file.colour(0, 9, 9, 9).name("rgb").reference(3000, "absent").name("miss");
    EXPECT_THAT(read(file), ElementsAre(0, 4));
    EXPECT_THAT(channels(0), ElementsAre(0, 0, 0));
    // Scaled twice: 200 * 256 is negative as a signed word.
    EXPECT_THAT(channels(1), ElementsAre(1 * 65536, 2 * 65536, (200 - 256) * 65536));
    EXPECT_THAT(channels(2), ElementsAre(9, 9, 9));
    EXPECT_EQ(channels(3), channels(1));
    EXPECT_EQ(name(3), "miss");
    EXPECT_TRUE(RecordingHost::calls.empty());
    EXPECT_EQ(books.reads["ANPA Color.acb"], 1);
}

TEST_F(AcoReader, AnUnknownSpaceNamesTheBookInForce) {
    books.books["HKS E.acb"] = FileBuilder().bookHeader(1, 0).bookColour("", "   1 E", {1, 2, 3}).bytes;
    FileBuilder file;
    file.header(1, 0).header(2, 3);
    file.reference(10, "   1 E")
        .name("E")
        .colour(3001, 0, 0, 0)
        .name("unknown")
        .reference(10, "   1 X")
        .name("X");
    read(file);
    EXPECT_EQ(books.reads["farbe.Ctype =3001"], 1);
}

} // namespace
} // namespace chromalog
