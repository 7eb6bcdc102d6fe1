#include "files/file_io.h"
#include "formats/aco_reader.h"
#include "support/swatch_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

using test::FileBuilder;
using test::RecordingHost;

/// Reads the bytes into a fresh guarded list; the bytes are in a block of their own, so that a sanitizer sees
/// a read past them.
struct Reading {
    test::GuardedList list;
    AcoHeader header;
    std::optional<std::int16_t> second;

    Reading(std::vector<std::uint8_t> bytes, int start) {
        const auto first = static_cast<std::int16_t>(start);
        header = readAcoHeader(bytes, first);
        second = readAcoRecords(bytes, header, first, list.records(), RecordingHost::convert,
                                test::BooksInMemory());
    }
    int changed() const {
        int count = 0;
        for (int i = 0; i < kListCapacity; ++i)
            count += !list.untouched(i);
        return count;
    }
};

TEST(HostileSwatchFile, ZeroThreeAndFourBytes) {
    struct Row {
        std::vector<std::uint8_t> bytes;
        int version, viewCount;
    };
    for (const Row& row : {Row{{}, 0, 7}, Row{{0, 2, 0}, 2, 7}, Row{{0, 2, 1}, 2, 7 + 256},
                           Row{{0, 1, 0, 0}, 1, 7}, Row{{0, 2, 0, 0}, 2, 7}}) {
        const Reading reading(row.bytes, 7);
        EXPECT_EQ(reading.header.version, row.version);
        EXPECT_EQ(reading.header.viewCount, row.viewCount);
        EXPECT_FALSE(reading.second);
        EXPECT_TRUE(reading.list.guardsWhole());
    }
}

TEST(HostileSwatchFile, CountsThatAreNoneReplacingAndAppending) {
    for (const int version : {1, 2})
        for (const int count : {-1, -32768, 5000, 5001, 12000, 32767})
            for (const int start : {0, 1, 4990, 4999, 5000, 30000, 32767, -1, -3, -32768}) {
                SCOPED_TRACE(testing::Message()
                             << "version " << version << " count " << count << " start " << start);
                FileBuilder file;
                file.header(version, count);
                for (int i = 0; i < 50; ++i)
                    file.colour(0, 1, 2, 3).name("x");
                const Reading reading(file.bytes, start);
                EXPECT_TRUE(reading.list.guardsWhole());
                EXPECT_EQ(reading.header.overLimit.has_value(), count + start >= 5000);
                EXPECT_EQ(reading.header.viewCount, static_cast<std::int16_t>(start + reading.header.count));
                for (int i = 0; i < std::min(start, 5000); ++i)
                    ASSERT_TRUE(reading.list.untouched(i));
            }
}

TEST(HostileSwatchFile, AppendingFromANegativeCountDropsWhatFallsBeforeTheArray) {
    FileBuilder file;
    file.header(2, 5);
    for (int i = 0; i < 5; ++i)
        file.colour(0, 10 + i, 0, 0).name("x");
    Reading reading(file.bytes, -3);
    EXPECT_EQ(reading.header.viewCount, 2);
    EXPECT_EQ(reading.list[0].SRed, 13);
    EXPECT_EQ(reading.list[1].SRed, 14);
    EXPECT_EQ(reading.changed(), 2);
}

TEST(HostileSwatchFile, ASecondCountIsNotClampedToTheLimitButToTheArray) {
    FileBuilder file;
    file.header(1, 0).header(2, 32767);
    for (int i = 0; i < 5010; ++i)
        file.colour(0, i, 0, 0).name("");
    Reading reading(file.bytes, 10);
    EXPECT_EQ(reading.second, static_cast<std::int16_t>(32777)); // told as it is, cut to 16 bits
    EXPECT_EQ(reading.list[4999].SRed, 4989);
    EXPECT_TRUE(reading.list.guardsWhole());
    EXPECT_TRUE(reading.list.untouched(9));
}

TEST(HostileSwatchFile, NameLengthsOfZeroAnd2To31) {
    for (const std::uint32_t length : {0u, 0x80000000u, 0xFFFFFF00u}) {
        FileBuilder file;
        file.header(2, 1).colour(0, 1, 2, 3).longWord(length).word('x');
        Reading reading(file.bytes, 0);
        EXPECT_EQ(reading.list[0].Namen[0], 255) << length;
        EXPECT_EQ(reading.list[0].SRed, 1) << length;
        EXPECT_EQ(reading.changed(), 1) << length;
    }
}

TEST(HostileSwatchFile, ATruncationAtEveryByteReadsTheWholeRecordsBefore) {
    FileBuilder whole;
    whole.header(1, 2).colour(0, 1, 2, 3).colour(0, 4, 5, 6);
    whole.header(2, 3)
        .colour(0, 7, 8, 9)
        .name("one")
        .colour(3000, 1, 2, 3)
        .name("")
        .colour(7, 1, 2, 3)
        .name("third");
    for (std::size_t length = 0; length <= whole.bytes.size(); ++length) {
        const auto end = whole.bytes.begin() + static_cast<std::ptrdiff_t>(length);
        Reading reading(std::vector<std::uint8_t>(whole.bytes.begin(), end), 0);
        EXPECT_TRUE(reading.list.guardsWhole()) << length;
        EXPECT_LE(reading.changed(), 3 + 768) << length; // a cut count may announce up to 0x0300
        if (length >= 14 && length < 29) {
            EXPECT_EQ(reading.list[0].SRed, 256) << length;
        }
        if (length >= 50) {
            EXPECT_EQ(reading.list[0].SRed, 7) << length;
        }
    }
}

TEST(HostileSwatchFile, AFileOfOnesInEveryByte) {
    Reading reading(std::vector<std::uint8_t>(100'000, 0xFF), 0);
    EXPECT_EQ(reading.changed(), 0);
    std::vector<std::uint8_t> second(100'000, 0xFF);
    second[1] = 1, second[2] = 0, second[3] = 1; // one record of version 1, then a section of count -1
    EXPECT_EQ(Reading(second, 0).second, -1);
}

TEST(HostilePath, AFolderAPipeAndAnUnreadableFileGiveNoDataAtOnce) {
    test::TemporaryFolder folder;
    ::mkdir((folder / "folder.aco").c_str(), 0755);
    ::mkfifo((folder / "pipe.aco").c_str(), 0644);
    std::ofstream(folder / "closed.aco") << "data";
    ::chmod((folder / "closed.aco").c_str(), 0);
    EXPECT_FALSE(readDataFromFileAtURL(folder / "folder.aco"));
    EXPECT_FALSE(readDataFromFileAtURL(folder / "pipe.aco"));
    EXPECT_FALSE(readDataFromFileAtURL(folder / "absent.aco"));
    EXPECT_FALSE(readDataFromFileAtURL(folder / "folder.aco" + "/inside"));
    if (::geteuid() != 0) { // root reads everything
        EXPECT_FALSE(readDataFromFileAtURL(folder / "closed.aco"));
    }
}

} // namespace
} // namespace chromalog
