#include "formats/aco_writer.h"

#include "formats/aco_reader.h"
#include "support/swatch_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace chromalog {
namespace {

using testing::ElementsAre;

void setName(FCOStruct& record, std::string_view name) {
    record.Namen[0] = static_cast<std::uint8_t>(name.size());
    std::copy(name.begin(), name.end(), record.Namen + 1);
}

TEST(AcoWriter, AnEmptyListIsFourBytes) {
    std::vector<std::uint8_t> data;
    writeAco(data, {}, 0);
    EXPECT_THAT(data, ElementsAre(0, 2, 0, 0));
}

TEST(AcoWriter, OneSwatchByteForByte) {
    FCOStruct record{};
    record.SRed = 65535, record.SGreen = 0, record.SBlue = 32768;
    setName(record, "A");
    std::vector<std::uint8_t> data{0xEE}; // it appends
    writeAco(data, {&record, 1}, 1);
    EXPECT_THAT(data, ElementsAre(0xEE, 0, 2, 0, 1,                      //
                                  0, 0, 0xFF, 0xFF, 0, 0, 0x80, 0, 0, 0, //
                                  0, 0, 0, 2, 0, 0x41, 0, 0));
}

TEST(AcoWriter, A255CharacterNameWritesLengthZero) {
    FCOStruct record{};
    setName(record, std::string(255, 'x'));
    std::vector<std::uint8_t> data;
    writeAco(data, {&record, 1}, 1);
    ASSERT_EQ(data.size(), 4u + 16 + 510);
    EXPECT_EQ(data[17], 0);
    EXPECT_EQ(data[19], 'x');
}

TEST(AcoWriter, ValuesOutsideAWordKeepTheirLowBits) {
    FCOStruct record{};
    record.SRed = -256, record.SGreen = 65536 + 7, record.SBlue = -1;
    std::vector<std::uint8_t> data;
    writeAco(data, {&record, 1}, 1);
    EXPECT_THAT(std::vector(data.begin() + 6, data.begin() + 12), ElementsAre(0xFF, 0, 0, 7, 0xFF, 0xFF));
}

TEST(AcoWriter, ACountAsToldIsInTheHeaderAndEntriesStopAtTheArray) {
    struct Row {
        int count, high, low;
        std::size_t entries;
    };
    test::GuardedList list;
    for (FCOStruct& record : list.records())
        record = FCOStruct{};
    for (const Row& row : {Row{300, 1, 44, 300}, Row{-3, 0, 0xFD, 0}, Row{-300, 0xFF, 0xD4, 0},
                           Row{30000, 0x75, 0x30, kListCapacity}}) {
        std::vector<std::uint8_t> data;
        writeAco(data, list.records(), static_cast<std::int16_t>(row.count));
        EXPECT_EQ(data[2], row.high) << row.count;
        EXPECT_EQ(data[3], row.low) << row.count;
        EXPECT_EQ(data.size(), 4 + 16 * row.entries) << row.count;
    }
}

/// Writes the list and reads it back into records that held something else.
void expectRoundTrip(ListRecords written, ListRecords scratch) {
    std::vector<std::uint8_t> file;
    const auto count = static_cast<std::int16_t>(written.size());
    writeAco(file, written, count);
    const test::BooksInMemory noBooks;
    const AcoHeader header = readAcoHeader(file, 0);
    ASSERT_EQ(header.viewCount, count);
    ASSERT_FALSE(header.overLimit);
    ASSERT_FALSE(readAcoRecords(file, header, 0, scratch, nullptr, noBooks));
    for (std::size_t i = 0; i < written.size(); ++i) {
        ASSERT_EQ(nameBytes(written[i]), nameBytes(scratch[i])) << i;
        ASSERT_EQ(written[i].SRed, scratch[i].SRed) << i;
        ASSERT_EQ(written[i].SGreen, scratch[i].SGreen) << i;
        ASSERT_EQ(written[i].SBlue, scratch[i].SBlue) << i;
    }
}

void randomise(FCOStruct& record, std::mt19937_64& random) {
    const std::uint64_t bits = random();
    record.SRed = bits & 0xFFFF;
    record.SGreen = bits >> 16 & 0xFFFF;
    record.SBlue = bits >> 32 & 0xFFFF;
    // Every length comes, short ones more often, and the two at the edges most.
    const unsigned choice = bits >> 48 & 0xFF, length = bits >> 56;
    record.Namen[0] = static_cast<std::uint8_t>(choice < 4    ? 255
                                                : choice < 8  ? 0
                                                : choice < 16 ? length
                                                              : length % 24);
    for (int k = 1; k <= record.Namen[0]; k += 8) {
        const std::uint64_t characters = random();
        std::memcpy(record.Namen + k, &characters, std::min(8, 256 - k));
    }
}

TEST(AcoWriter, AnyListSurvivesWritingAndReading) {
    std::mt19937_64 random(20'240'501);
    const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    test::GuardedList scratch;
    for (int list = 0; list < 10'000; ++list) {
        // Most lists are short; one in ten has any length up to the longest, and the longest comes for sure.
        // sure.
        const std::size_t any = random() % 5000;
        const std::size_t count = list == 0 ? 4999 : list % 10 == 0 ? any : any % 60;
        const ListRecords written(records.get(), count);
        for (FCOStruct& record : written)
            randomise(record, random);
        expectRoundTrip(written, scratch.records());
        if (HasFatalFailure()) FAIL() << "list " << list << " of " << count;
    }
    EXPECT_TRUE(scratch.guardsWhole());
}

} // namespace
} // namespace chromalog
