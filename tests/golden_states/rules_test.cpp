// What the comparison of stored states lets pass, and what it does not.
#include "golden_states/capture.h"
#include "golden_states/compare.h"
#include "golden_states/digests.h"
#include "golden_states/run_recorder.h"
#include "golden_states/script_file.h"
#include "golden_states/store.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <fstream>

namespace chromalog::golden {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const json kState = {
    {"outlets", {{"okButton", {{"title", "OK"}, {"frame", {1, 2, 3, 4}}}}}},
    {"firstColor", {0.25, 0.5, 0.75, 1}},
    {"undoNames", {"!Load Swatch!"}},
    {"log", {"one", "two"}},
    {"lists", json::array()},
};

Record recordOf(const json& state) {
    return {{Part::Kind::run, "run 1", "", {{"exitCode", 0}, {"out", "#3366cc\n"}}},
            {Part::Kind::state, "run 1", "a.json", state},
            {Part::Kind::file, "run 1", "a.aco", {{"size", 2}}}};
}

std::vector<std::string> afterChange(const std::string& at, const json& value,
                                     Extent extent = Extent::everything) {
    json state = kState;
    state[json::json_pointer(at)] = value;
    return differences(recordOf(kState), recordOf(state), extent);
}

TEST(GoldenRules, AddedKeysOutletsAndLinesOfTheLogAreNoDifference) {
    EXPECT_THAT(afterChange("/status", ""), IsEmpty());
    EXPECT_THAT(afterChange("/outlets/newButton", {{"title", "New"}}), IsEmpty());
    EXPECT_THAT(afterChange("/outlets/okButton/toolTip", "Ends the pick"), IsEmpty());
    EXPECT_THAT(afterChange("/log", {"zero", "one", "between", "two"}), IsEmpty());
}

TEST(GoldenRules, AnyOtherChangeIsToldByItsKey) {
    EXPECT_THAT(afterChange("/outlets/okButton/title", "Okay"),
                ElementsAre(R"(state run 1: a.json, outlets/okButton/title: was "OK", is "Okay")"));
    EXPECT_THAT(afterChange("/firstColor/1", 0.50000001),
                ElementsAre(HasSubstr("firstColor: was [0.25,0.5,0.75,1], is [0.25,0.50000001,0.75,1]")));
    EXPECT_THAT(afterChange("/undoNames/1", "!More!"),
                ElementsAre(HasSubstr("undoNames: had 1 entries, has 2; entry 1 was none, is \"!More!\"")));
    EXPECT_THAT(afterChange("/log", {"two", "one"}), ElementsAre(HasSubstr("log: had \"two\"")));
    EXPECT_THAT(
        afterChange("/outlets", json::object()),
        ElementsAre(
            R"(state run 1: a.json, outlets/okButton: was {"frame":[1,2,3,4],"title":"OK"}, is gone)"));
}

TEST(GoldenRules, TheProcessorsLastBitsAreNoDifference) {
    EXPECT_THAT(afterChange("/firstColor/1", 0.5 + 1e-15), IsEmpty());
    EXPECT_THAT(afterChange("/firstColor/1", 0.5 + 1e-11), testing::SizeIs(1));
    EXPECT_THAT(afterChange("/firstColor/1", nullptr), testing::SizeIs(1));
}

TEST(GoldenRules, AFileARunOrAStateThatIsGoneIsADifference) {
    for (std::size_t i = 0; i < 3; ++i) {
        Record now = recordOf(kState);
        now.erase(now.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_THAT(differences(recordOf(kState), now, Extent::everything),
                    testing::Contains(HasSubstr("run 1")))
            << i;
    }
}

TEST(GoldenRules, OutputAndFilesGainNothing) {
    Record now = recordOf(kState);
    now[0].value["out"] = "#3366cc\nmore\n";
    now[2].value["rows"] = json::object();
    now.push_back({Part::Kind::file, "run 1", "data/left.tmp", {{"size", 0}}});
    EXPECT_THAT(differences(recordOf(kState), now, Extent::everything),
                ElementsAre(HasSubstr("run run 1, out: was"), "file run 1: a.aco, rows: is new: {}",
                            "file run 1: data/left.tmp: is new: {\"size\":0}"));
}

TEST(GoldenRules, AScriptMayGrowByStatesAndRuns) {
    Record now = recordOf(kState);
    now.push_back({Part::Kind::state, "run 1", "b.json", kState});
    now.push_back({Part::Kind::run, "run 2", "", {{"exitCode", 0}}});
    now.push_back({Part::Kind::file, "run 2", "a.aco", {{"size", 2}}});
    EXPECT_THAT(differences(recordOf(kState), now, Extent::everything), IsEmpty());
}

TEST(GoldenRules, WithAnotherLayoutFramesAndTheWheelsSizeAreNotCompared) {
    EXPECT_THAT(afterChange("/outlets/okButton/frame", {9, 9, 9, 9}), testing::SizeIs(1));
    EXPECT_THAT(afterChange("/outlets/okButton/frame", {9, 9, 9, 9}, Extent::withoutLayout), IsEmpty());
    EXPECT_THAT(afterChange("/firstColor/0", 0.25 + 1e-10, Extent::withoutLayout), IsEmpty());
    EXPECT_THAT(afterChange("/firstColor/0", 0.25 + 1e-8, Extent::withoutLayout), testing::SizeIs(1));
}

TEST(GoldenStore, WhatIsWrittenIsRead) {
    const test::TemporaryFolder folder;
    Record record = recordOf(kState);
    json later = kState;
    later.erase("undoNames");
    later["outlets"]["a/b~c"] = {{"text", " = gone\n"}, {"value", nullptr}, {"empty", json::object()}};
    later["lists"] = {{{"records", {"1 'a' 1 2 3"}}}};
    record.push_back({Part::Kind::state, "run 1", "b.json", later});
    record.push_back({Part::Kind::file, "run 2", "a.aco", "removed"});
    const Store store(folder / "states");
    store.writeAll({{"anywhere/fresh", recordOf(kState)}, {"some", record}});
    const Record read = store.read("some");
    ASSERT_EQ(read.size(), record.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(read[i].title(), record[i].title());
        EXPECT_EQ(read[i].value, record[i].value) << read[i].title();
    }
    EXPECT_EQ(store.readAll().size(), 2u);
    EXPECT_THAT(store.read("none"), IsEmpty());
}

TEST(GoldenDigests, NoByteOfAFileIsWithoutWeight) {
    const test::TemporaryFolder folder;
    for (const std::size_t size : {1u, 40u, 5000u}) {
        const auto digest = [&](const std::string& bytes) {
            std::ofstream(folder / "file", std::ios::binary) << bytes;
            return fileDigest(folder / "file");
        };
        const std::string bytes(size, 'x');
        const json whole = digest(bytes);
        for (std::size_t at = 0; at < size; at += 1 + size / 50) {
            std::string other = bytes;
            other[at] = '\0';
            EXPECT_NE(digest(other), whole) << at << " of " << size;
        }
        EXPECT_NE(digest(bytes + '\0'), whole);
    }
}

TEST(GoldenDigests, LongListsAreShortAndEveryEntryCounts) {
    std::vector<std::string> entries(5000, "6 'Colour' 1 2 3");
    const json digest = shortened(entries);
    EXPECT_EQ(digest.size(), 20u);
    entries[4321] = "6 'Colour' 1 2 4";
    EXPECT_NE(shortened(entries), digest);
    EXPECT_EQ(swatchText(255, std::string(255, '\0'), 1, 2, 3), "255 '<00>{255}' 1 2 3");
    EXPECT_EQ(swatchText(4, "a\xe9zz", 1, 2, -3), "4 'a<e9>zz' 1 2 -3");
}

TEST(GoldenCapture, FoldersAndMomentsAreNotKept) {
    const test::TemporaryFolder folder;
    std::ofstream(folder / "old") << "old";
    const Capture capture(folder.path());
    std::filesystem::create_directories(folder / "data");
    for (const char* name : {"data/a.kept-20240501T134500Z", "data/a.kept-20240501T134500Z-2"})
        std::ofstream(folder / name) << name;
    const Record record = capture.after("run 1", {"--drive", folder / "script"}, "",
                                        {0, "", "kept 2024-05-01 13:45 in " + folder.path()});
    ASSERT_EQ(record.size(), 3u);
    EXPECT_EQ(record[0].value["options"], "--drive $/script");
    EXPECT_EQ(record[0].value["err"], "kept DATE in $");
    EXPECT_EQ(record[1].name, "data/a.kept-DATEZ");
    EXPECT_EQ(record[2].name, "data/a.kept-DATEZ+");
}

TEST(GoldenRecorder, RunsAtTheSameTimeAreNotKept) {
    const test::TemporaryFolder folder, records;
    ::setenv("CHROMALOG_RECORD", records.path().c_str(), 1);
    {
        const RunRecorder first(folder.path()), second(folder.path());
        second.keep({}, {0, "", ""});
        first.keep({}, {0, "", ""});
    }
    EXPECT_EQ(records.entries(), 0);
    const RunRecorder alone(folder.path());
    alone.keep({}, {0, "", ""});
    EXPECT_EQ(records.entries(), 1);
    ::unsetenv("CHROMALOG_RECORD");
}

TEST(GoldenScripts, RunsHaveOptionsAndCommandsOfTheShellStandBetweenThem) {
    const auto steps =
        stepsOf("# what it is\nok\n#> --color '#3366cc' --picks 2\nok\n\ncancel\n#! cp a b\nok\n");
    ASSERT_EQ(steps.size(), 4u);
    EXPECT_EQ(steps[0].text, "ok\n");
    EXPECT_THAT(steps[1].options, ElementsAre("--color", "#3366cc", "--picks", "2"));
    EXPECT_EQ(steps[1].text, "ok\ncancel\n");
    EXPECT_EQ(steps[2].text, " cp a b");
    EXPECT_EQ(steps[3].text, "ok\n");
}

} // namespace
} // namespace chromalog::golden
