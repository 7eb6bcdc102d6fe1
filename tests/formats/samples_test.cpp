#include "formats/aco_reader.h"
#include "formats/aco_writer.h"
#include "formats/books_on_disk.h"
#include "record/name_text.h"
#include "support/swatch_files.h"

#include "files/file_io.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace chromalog {
namespace {

using nlohmann::json;
using test::RecordingHost;

/// The folder of sample files; empty where there is none.
std::filesystem::path samplesFolder() {
    const char* named = std::getenv("CHROMALOG_SAMPLES");
    const std::filesystem::path folder = named && *named ? named : CHROMALOG_DEFAULT_SAMPLES;
    return std::filesystem::exists(folder / "EXPECTED.jsonl") ? folder : std::filesystem::path();
}

/// The expected names hold a character for each byte.
std::string bytesOf(const std::string& utf8) {
    std::string bytes;
    for (std::string_view rest = utf8; !rest.empty();)
        bytes.push_back(static_cast<char>(takeCodePoint(rest)));
    return bytes;
}

class Samples : public testing::Test {
  protected:
    void SetUp() override {
        if (folder.empty()) GTEST_SKIP() << "no sample files: set CHROMALOG_SAMPLES";
        std::ifstream lines(folder / "EXPECTED.jsonl");
        for (std::string line; std::getline(lines, line);)
            if (!line.empty()) expected.push_back(json::parse(line));
        ASSERT_GT(expected.size(), 60u);
        RecordingHost::reset();
    }

    std::vector<std::uint8_t> load(const json& line) const {
        const auto bytes = readDataFromFileAtURL(folder / line["path"].get<std::string>());
        EXPECT_TRUE(bytes) << line["path"];
        return bytes.value_or(std::vector<std::uint8_t>());
    }

    /// What the host double answers for these slots.
    static std::array<std::int64_t, 3> answer(const json& slots, std::int64_t times) {
        return {slots[1].get<int>() * times, slots[2].get<int>() * times, slots[3].get<int>() * times};
    }

    /// The stored colour for a reference, worked out from the expected contents of the books.
    void followReference(const json& record);

    std::filesystem::path folder = samplesFolder();
    std::string booksFolder = folder / "generated__npm-atesgoral-acb-0.4.0" / "Color Books";
    std::vector<json> expected;
    std::array<std::int64_t, 3> lastFound{};
    std::string bookInForce;
};

void Samples::followReference(const json& record) {
    const std::string keyText = record["key"];
    const auto choice = bookForSpace(record["book"].get<std::int16_t>(), test::keyOf(keyText));
    if (choice) bookInForce = choice->file;
    if (choice && !choice->opens) return;
    for (const json& line : expected) {
        if (!line["path"].get<std::string>().ends_with("/Color Books/" + bookInForce)) continue;
        for (const json& colour : line["file"]["colors"]) {
            if (colour["key"] != keyText) continue;
            const json& c = colour["c"];
            if (line["file"]["space"] == 0)
                for (std::size_t i = 0; i < 3; ++i)
                    lastFound[i] = static_cast<std::int16_t>(c[i].get<int>() * 256) * 256;
            else
                lastFound = answer({c[0], c[1], c[2], c.size() > 3 ? c[3].get<int>() : 0}, 256);
            return;
        }
    }
}

TEST_F(Samples, EverySwatchFileReadsAsExpectedRecordByRecord) {
    int files = 0;
    for (const json& line : expected) {
        const std::string path = line["path"];
        if (!path.ends_with(".aco") || line.value("reader", json()).empty()) continue;
        SCOPED_TRACE(path);
        ++files;
        const std::vector<std::uint8_t> file = load(line);
        const json& reader = line["reader"];
        test::GuardedList list;
        const AcoHeader header = readAcoHeader(file, 0);
        std::vector<int> told{header.viewCount};
        if (const auto next = readAcoRecords(file, header, 0, list.records(), RecordingHost::convert,
                                             BooksOnDisk(booksFolder)))
            told.push_back(*next);
        EXPECT_EQ(header.version, reader["version"]);
        EXPECT_EQ(header.overLimit.has_value(), reader["alert"].get<bool>());
        EXPECT_EQ(json(told), reader["view"]);
        lastFound = {}, bookInForce.clear();
        std::map<int, json> inOrder;
        for (const auto& [index, record] : reader["records"].items())
            inOrder[std::stoi(index)] = record;
        for (const auto& [index, record] : inOrder) {
            SCOPED_TRACE(index);
            const FCOStruct& stored = list[index];
            EXPECT_EQ(stored.Namen[0], record["n0"]);
            EXPECT_EQ(nameBytes(stored), bytesOf(record["name"]));
            std::array<std::int64_t, 3> channels{};
            if (record.contains("final"))
                channels = record["final"].get<std::array<std::int64_t, 3>>();
            else if (record.contains("host"))
                channels = answer(record["slots"], record["times"]);
            else
                followReference(record), channels = lastFound;
            if (record.contains("bookname")) bookInForce = record["bookname"];
            EXPECT_EQ((std::array{stored.SRed, stored.SGreen, stored.SBlue}), channels);
        }
        EXPECT_TRUE(list.guardsWhole());
    }
    EXPECT_GT(files, 40);
}

TEST_F(Samples, TheHostIsAskedForWhatTheFilesHold) {
    for (const json& line : expected) {
        if (line.value("reader", json()).empty()) continue;
        SCOPED_TRACE(line["path"].get<std::string>());
        const std::vector<std::uint8_t> file = load(line);
        const json& records = line["reader"]["records"];
        test::GuardedList list;
        RecordingHost::reset();
        const test::BooksInMemory noBooks; // so that only the records' own conversions are asked for
        readAcoRecords(file, readAcoHeader(file, 0), 0, list.records(), RecordingHost::convert, noBooks);
        std::size_t call = 0;
        if (static_cast<int>(records.size()) != line["reader"]["view"].back()) continue; // the list was cut
        for (std::size_t i = 0; i < records.size(); ++i) {
            const json& record = records[std::to_string(i)];
            if (!record.contains("host")) continue;
            ASSERT_LT(call, RecordingHost::calls.size());
            EXPECT_EQ(RecordingHost::calls[call].space, record["host"]) << i;
            EXPECT_EQ(json(RecordingHost::calls[call].slots), record["slots"]) << i;
            ++call;
        }
        EXPECT_EQ(call, RecordingHost::calls.size());
    }
}

TEST_F(Samples, EveryColourBookReadsAsExpected) {
    int books = 0;
    for (const json& line : expected) {
        if (!line["path"].get<std::string>().ends_with(".acb")) continue;
        SCOPED_TRACE(line["path"].get<std::string>());
        ++books;
        const std::vector<std::uint8_t> file = load(line);
        const json& book = line["file"];
        BookCursor cursor(file);
        EXPECT_EQ(cursor.count(), book["count"]);
        EXPECT_EQ(cursor.space(), book["space"]);
        std::vector<BookColour> colours(static_cast<std::size_t>(cursor.count()));
        for (BookColour& colour : colours)
            ASSERT_TRUE(cursor.next(colour));
        // Of a big book the first and the last that were looked at are listed: all of it, or 600 of a cut
        // one.
        const json& listed = book["colors"];
        const std::size_t lookedAt = book.contains("cut") ? 600 : colours.size();
        for (std::size_t i = 0; i < listed.size(); ++i) {
            const BookColour& colour = colours[i < listed.size() / 2 ? i : lookedAt - listed.size() + i];
            EXPECT_EQ(std::string(colour.key.begin(), colour.key.end()), listed[i]["key"]) << i;
            for (std::size_t c = 0; c < listed[i]["c"].size(); ++c)
                EXPECT_EQ(colour.components[c], listed[i]["c"][c]) << i;
        }
        test::GuardedList list;
        EXPECT_EQ(loadBook(file, list.records(), RecordingHost::convert), book["count"]);
        for (std::size_t i = 0; i < colours.size(); ++i)
            ASSERT_EQ(nameBytes(list[static_cast<int>(i)]),
                      std::string(colours[i].key.begin(), colours[i].key.end()));
    }
    EXPECT_GT(books, 30);
}

TEST_F(Samples, AFileOfNoBytesTellsTheStartIndex) {
    EXPECT_EQ(readAcoHeader({}, 0).viewCount, 0);
    EXPECT_EQ(readAcoHeader({}, 17).viewCount, 17);
}

TEST_F(Samples, WhatWasReadIsWrittenAndReadAgain) {
    for (const json& line : expected) {
        const std::string path = line["path"];
        if (!path.ends_with("many-4999.aco") && !path.ends_with("rgb.aco") && !path.ends_with("nord.aco"))
            continue;
        SCOPED_TRACE(path);
        const std::vector<std::uint8_t> file = load(line);
        test::GuardedList first, second;
        const AcoHeader header = readAcoHeader(file, 0);
        const auto count = readAcoRecords(file, header, 0, first.records(), nullptr, test::BooksInMemory())
                               .value_or(header.viewCount);
        std::vector<std::uint8_t> written;
        writeAco(written, first.records(), count);
        readAcoRecords(written, readAcoHeader(written, 0), 0, second.records(), nullptr,
                       test::BooksInMemory());
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(nameBytes(first[i]), nameBytes(second[i])) << i;
            ASSERT_EQ(first[i].SRed & 0xFFFF, second[i].SRed) << i;
        }
    }
}

} // namespace
} // namespace chromalog
