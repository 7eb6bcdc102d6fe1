#include "files/system_calls.h"
#include "prefs/preferences_file.h"
#include "prefs/preferences_store.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include <sys/stat.h>

namespace chromalog {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint8_t* bytesOf(GlobalRecord& record) {
    return reinterpret_cast<std::uint8_t*>(&record);
}

Bytes copyOf(GlobalRecord& record) {
    return {bytesOf(record), bytesOf(record) + sizeof record};
}

class PreferencesFile : public testing::Test {
  protected:
    void SetUp() override {
        for (std::size_t i = 0; i < sizeof(GlobalRecord); ++i)
            bytesOf(*record)[i] = static_cast<std::uint8_t>(i * 7);
        record->numColors1 = 12;
        record->numColors2 = -3;
    }
    Bytes file() { return readDataFromFileAtURL(path).value_or(Bytes{}); }
    bool write(const std::string& to) {
        return PreferencesStore(to).write(preferencesImage(*record), kPreferencesZeros, Flush::later).error ==
               0;
    }
    static bool read(const std::string& from, GlobalRecord& into) {
        PreferencesStore store(from);
        return readPreferences(into, store);
    }

    test::TemporaryFolder folder;
    std::string path = folder / "file";
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
};

TEST_F(PreferencesFile, IsReadIntoAnEmptyRecordAndOverAFullOneAlike) {
    ASSERT_TRUE(write(path));
    const auto empty = std::make_unique<GlobalRecord>(), full = std::make_unique<GlobalRecord>();
    std::fill_n(bytesOf(*full), sizeof(GlobalRecord), std::uint8_t{0x5A});
    ASSERT_TRUE(read(path, *empty) && read(path, *full));
    std::fill_n(bytesOf(*full), kPreferencesOffset, std::uint8_t{0});
    EXPECT_EQ(copyOf(*empty), copyOf(*full));
    ASSERT_EQ(::truncate(path.c_str(), 100'000), 0) << "lays its own length over what is there";
    std::fill_n(bytesOf(*empty), sizeof(GlobalRecord), std::uint8_t{0});
    ASSERT_TRUE(read(path, *empty) && read(path, *full));
    EXPECT_EQ(copyOf(*empty)[99'999], copyOf(*full)[99'999]);
    EXPECT_EQ(copyOf(*empty)[200'000], 0);
    EXPECT_NE(copyOf(*full)[200'000], 0);
}

TEST_F(PreferencesFile, ADiskErrorInTheMiddleLeavesTheRecordAsItWas) {
    std::fill_n(bytesOf(*record), sizeof(GlobalRecord), std::uint8_t{0});
    record->swatchList1[0].Namen[0] = record->swatchList2[0].Namen[0] = 1; // two parts with a hole between
    ASSERT_TRUE(write(path));
    for (const std::uint8_t before : {0, 0x5A}) {
        const auto into = std::make_unique<GlobalRecord>();
        std::fill_n(bytesOf(*into), sizeof(GlobalRecord), before);
        const Bytes expected = copyOf(*into);
        const test::FailingCall badDisk("read", EIO, 1);
        EXPECT_FALSE(read(path, *into));
        EXPECT_EQ(errno, EIO);
        EXPECT_TRUE(copyOf(*into) == expected) << int(before);
    }
}

TEST_F(PreferencesFile, ByteFOfTheFileIsByteF18OfTheRecordAndTheLastTwoAreZero) {
    ASSERT_TRUE(write(path));
    const Bytes written = file();
    ASSERT_EQ(written.size(), 3'040'536u);
    for (std::size_t f = 0; f < 3'040'534; ++f)
        ASSERT_EQ(written[f], bytesOf(*record)[f + 18]) << f;
    EXPECT_EQ(written[3'040'534], 0);
    EXPECT_EQ(written[3'040'535], 0);
}

TEST_F(PreferencesFile, FieldsStandAtTheirOffsets) {
    record->swatchList1[0].Namen[0] = 0xA1;
    record->swatchList2[0].Namen[0] = 0xA2;
    record->numColors1 = 0x1234;
    record->numColors2 = 0x5678;
    record->swatchName1[0] = 0xB1;
    record->swatchName2[0] = 0xB2;
    record->useSecondColor = 0x0201;
    record->undoLimit = 0x0403;
    const auto image = preferencesImage(*record);
    EXPECT_EQ(image[6], 0xA1);
    EXPECT_EQ(image[1'520'006], 0xA2);
    EXPECT_EQ(image[3'040'006], 0x34);
    EXPECT_EQ(image[3'040'007], 0x12);
    EXPECT_EQ(image[3'040'008], 0x78);
    EXPECT_EQ(image[3'040'010], 0xB1);
    EXPECT_EQ(image[3'040'266], 0xB2);
    EXPECT_EQ(image[3'040'528], 0x01);
    EXPECT_EQ(image[3'040'530], 0x03);
}

TEST_F(PreferencesFile, AFileOf0xFFNeverTouchesThePointers) {
    const Bytes before = copyOf(*record);
    ASSERT_TRUE(writeDataToFileAtURL(path, Bytes(kPreferencesSize, 0xFF)));
    ASSERT_TRUE(read(path, *record));
    const Bytes after = copyOf(*record);
    EXPECT_TRUE(std::equal(before.begin(), before.begin() + 18, after.begin()));
    EXPECT_EQ(after[17], before[17]);
    EXPECT_EQ(std::count(after.begin() + 18, after.end(), 0xFF), 3'040'534);
    EXPECT_EQ(record->numColors1, -1) << "kept as it stands";
    EXPECT_EQ(record->useSecondColor, 0xFFFF);
}

TEST_F(PreferencesFile, WithoutAFileTheRecordKeepsWhatItHolds) {
    const Bytes before = copyOf(*record);
    EXPECT_FALSE(read(path, *record));
    EXPECT_FALSE(read(folder.path(), *record));
    EXPECT_EQ(copyOf(*record), before);
}

TEST_F(PreferencesFile, AFileOf100BytesOverwritesSixReservedAnd94BytesOfTheFirstSwatch) {
    const Bytes before = copyOf(*record);
    applyPreferences(*record, Bytes(100, 0xEE));
    const Bytes after = copyOf(*record);
    for (std::size_t i = 0; i < after.size(); ++i)
        ASSERT_EQ(after[i], i >= 18 && i < 118 ? 0xEE : before[i]) << i;
    EXPECT_EQ(record->swatchList1[0].Namen[93], 0xEE);
    EXPECT_NE(record->swatchList1[0].Namen[94], 0xEE);
}

TEST_F(PreferencesFile, AFileCutInsideListTwoLeavesCountsAndNames) {
    record->swatchName1[0] = 5;
    const std::size_t cut = 1'520'006 + 304 * 7 + 100;
    applyPreferences(*record, Bytes(cut, 0));
    EXPECT_EQ(record->swatchList1[4999].SRed, 0);
    EXPECT_EQ(record->swatchList2[6].SRed, 0);
    EXPECT_NE(record->swatchList2[7].SRed, 0);
    EXPECT_EQ(record->numColors1, 12);
    EXPECT_EQ(record->numColors2, -3);
    EXPECT_EQ(record->swatchName1[0], 5);
}

TEST_F(PreferencesFile, BytesPastTheRecordAreDropped) {
    Bytes longer(kPreferencesSize + 100'000, 0x55);
    ASSERT_TRUE(writeDataToFileAtURL(path, longer));
    ASSERT_TRUE(read(path, *record));
    EXPECT_EQ(record->undoLimit, 0x5555);
    applyPreferences(*record, longer); // the sanitizers watch the record's end
    EXPECT_EQ(record->reserved3[1], 0x55);
}

TEST_F(PreferencesFile, AFileOfAnyLengthChangesExactlyItsOwnBytes) {
    std::mt19937 random(11);
    for (int round = 0; round < 60; ++round) {
        Bytes bytes(random() % (kPreferencesSize + 1000));
        for (std::size_t i = 0; i < bytes.size(); i += 1 + random() % 64)
            bytes[i] = static_cast<std::uint8_t>(random());
        Bytes expected = copyOf(*record);
        const std::size_t length = std::min<std::size_t>(bytes.size(), sizeof(GlobalRecord) - 18);
        std::copy_n(bytes.begin(), length, expected.begin() + 18);
        applyPreferences(*record, bytes);
        ASSERT_TRUE(copyOf(*record) == expected) << bytes.size();
    }
}

TEST_F(PreferencesFile, AFileWithHolesChangesExactlyItsOwnBytes) {
    std::mt19937 random(12);
    for (int round = 0; round < 40; ++round) {
        const std::size_t size = 1 + random() % (kPreferencesSize + 100'000);
        {
            std::ofstream out(path, std::ios::binary | std::ios::trunc);
            for (std::size_t at = random() % 300'000; at < size; at += 1 + random() % 700'000) {
                out.seekp(static_cast<std::streamoff>(at));
                out << std::string(std::min<std::size_t>(size - at, random() % 9'000),
                                   static_cast<char>(round));
            }
        }
        std::filesystem::resize_file(path, size);
        const auto bytes = readDataFromFileAtURL(path);
        ASSERT_TRUE(bytes && bytes->size() == size);
        Bytes expected = copyOf(*record);
        std::copy_n(bytes->begin(), std::min<std::size_t>(size, sizeof(GlobalRecord) - 18),
                    expected.begin() + 18);
        ASSERT_TRUE(read(path, *record));
        ASSERT_TRUE(copyOf(*record) == expected) << size;
    }
}

TEST_F(PreferencesFile, WhatIsWrittenIsReadBack) {
    ASSERT_TRUE(write(path));
    auto other = std::make_unique<GlobalRecord>();
    ASSERT_TRUE(read(path, *other));
    EXPECT_EQ(std::memcmp(bytesOf(*other) + 18, bytesOf(*record) + 18, sizeof(GlobalRecord) - 18), 0);
    EXPECT_EQ(other->pickerRecord, nullptr);
}

TEST_F(PreferencesFile, TheFolderIsMadeEachTimeThePathIsAsked) {
    const std::string applications = folder / "share/applications";
    const std::string expected = applications + "/Quorvex/com_Quorvex_Chromalog_64_3-50.prf";
    EXPECT_EQ(applicationDataDirectory(applications), expected);
    EXPECT_TRUE(std::filesystem::is_directory(applications + "/Quorvex"));
    std::filesystem::remove_all(folder / "share");
    EXPECT_EQ(applicationDataDirectory(applications), expected);
    EXPECT_TRUE(std::filesystem::is_directory(applications + "/Quorvex"));
}

TEST_F(PreferencesFile, WithoutAnApplicationsDirectoryThereIsNoPath) {
    EXPECT_EQ(applicationDataDirectory(""), "");
}

TEST_F(PreferencesFile, AFolderThatCannotBeMadeIsIgnored) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "applications", Bytes(3)));
    const std::string below = applicationDataDirectory(folder / "applications");
    EXPECT_EQ(below, folder / "applications/Quorvex/com_Quorvex_Chromalog_64_3-50.prf");
    EXPECT_FALSE(write(below));
    EXPECT_EQ(readDataFromFileAtURL(folder / "applications"), Bytes(3));
}

} // namespace
} // namespace chromalog
