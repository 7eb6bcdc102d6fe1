// The copies beside the preferences file: which there are, what becomes of older ones, what a kill leaves.
#include "files/in_child.h"
#include "files/system_calls.h"
#include "prefs/store_fixture.h"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>

namespace chromalog {
namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::FailingCall;
using test::inChild;
using test::listsOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class KeptCopiesTest : public test::StoreTest {
  protected:
    /// A pick that skipped what is there.
    bool skipAndWrite(const Bytes& lists) {
        PreferencesStore pick(path);
        pick.skip();
        return writtenBy(pick, lists);
    }
};

TEST_F(KeptCopiesTest, ASkippedFileIsKeptUnderItsName) {
    ASSERT_TRUE(skipAndWrite(listsOf(0)));
    EXPECT_THAT(copies(), IsEmpty()) << "no file, no copy";
    writeForeign(listsOf(1));
    ASSERT_TRUE(skipAndWrite(listsOf(0)));
    EXPECT_THAT(copies(), ElementsAre("before", "skipped"));
    EXPECT_EQ(file(".skipped"), listsOf(1));
}

/// PREFERENCES.before alone would not: the next pick of the same run replaces it.
TEST_F(KeptCopiesTest, WhatThisProcessWroteItselfIsKeptWhenItIsSkipped) {
    PreferencesStore first(path);
    ASSERT_TRUE(writtenBy(first, listsOf(1)));
    ASSERT_TRUE(skipAndWrite(listsOf(2)));
    PreferencesStore third(path);
    test::readBy(third);
    ASSERT_TRUE(writtenBy(third, listsOf(3)));
    EXPECT_EQ(file(".skipped"), listsOf(1));
    EXPECT_EQ(file(".before"), listsOf(2));
    EXPECT_THAT(dated(), IsEmpty());
}

TEST_F(KeptCopiesTest, AnOlderSkippedFileIsDatedFirst) {
    makeCopy("skipped", listsOf(1));
    writeForeign(listsOf(2));
    ASSERT_TRUE(skipAndWrite(listsOf(0)));
    EXPECT_EQ(file(".skipped"), listsOf(2));
    EXPECT_THAT(dated(), ElementsAre(listsOf(1)));
}

TEST_F(KeptCopiesTest, ASkippedFileWithoutColoursReplacesNoneWith) {
    makeCopy("skipped", listsOf(1));
    writeForeign(listsOf(0));
    ASSERT_TRUE(skipAndWrite(listsOf(3)));
    EXPECT_EQ(file(".skipped"), listsOf(1));
    EXPECT_THAT(dated(), IsEmpty());
    EXPECT_EQ(file(), listsOf(3));
}

TEST_F(KeptCopiesTest, AFileThatEndsInsideItsListsMayHoldColours) {
    makeCopy("skipped", listsOf(1));
    writeForeign(Bytes(1'000'000, 7));
    ASSERT_TRUE(skipAndWrite(listsOf(3)));
    EXPECT_EQ(file(".skipped"), Bytes(1'000'000, 7));
    EXPECT_THAT(dated(), ElementsAre(listsOf(1)));
}

TEST_F(KeptCopiesTest, WhatCannotBeReadMayHoldColours) {
    makeCopy("skipped", listsOf(1));
    writeForeign(listsOf(0));
    {
        const FailingCall unreadable("open", EIO, 0, "lists.prf");
        ASSERT_TRUE(skipAndWrite(listsOf(3)));
    }
    EXPECT_EQ(file(".skipped"), listsOf(0)) << "for all that one knew";
    EXPECT_THAT(dated(), ElementsAre(listsOf(1)));
}

TEST_F(KeptCopiesTest, WhereTheNameIsTakenByAFolderNothingIsWritten) {
    fs::create_directory(path + ".skipped");
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    pick.skip();
    const StoreOutcome outcome = pick.write(listsOf(2), 0, Flush::later);
    EXPECT_EQ(outcome.error, EISDIR);
    EXPECT_TRUE(outcome.notKept);
    EXPECT_EQ(file(), listsOf(1));
    EXPECT_EQ(folder.entries(), 4) << "the file, the folder, two files for locks";
}

TEST_F(KeptCopiesTest, OnAFullDiskNothingIsWrittenOverWhatWasSkipped) {
    writeForeign(listsOf(1));
    const FailingCall noLinks("link", EPERM);
    const FailingCall full("pwrite", ENOSPC);
    EXPECT_FALSE(skipAndWrite(listsOf(2)));
    EXPECT_EQ(file(), listsOf(1));
}

TEST_F(KeptCopiesTest, TheFirstWriteOfAPickKeepsTheFileAsItWas) {
    for (std::uint8_t i = 1; i < 4; ++i) {
        PreferencesStore pick(path);
        test::readBy(pick);
        ASSERT_TRUE(writtenBy(pick, listsOf(i)));
        ASSERT_TRUE(writtenBy(pick, listsOf(i + 10)));
        EXPECT_EQ(file(".before"), i == 1 ? Bytes{} : listsOf(i + 9));
    }
    PreferencesStore empties(path);
    ASSERT_TRUE(writtenBy(empties, listsOf(0)));
    PreferencesStore after(path);
    ASSERT_TRUE(writtenBy(after, listsOf(0)));
    EXPECT_EQ(file(".before"), listsOf(13)) << "one without colours replaces none with";
}

TEST_F(KeptCopiesTest, WhereTheFileBeforeCannotBeKeptTheListsAreStoredAllTheSame) {
    fs::create_directory(path + ".before");
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    test::readBy(pick);
    ASSERT_TRUE(writtenBy(pick, listsOf(2)));
    EXPECT_EQ(file(), listsOf(2));
    EXPECT_EQ(folder.entries(), 4) << "the file, the folder, two files for locks";
}

TEST_F(KeptCopiesTest, FiveDatedCopiesStayAndAnyYoungerThanADay) {
    for (int i = 1; i <= 6; ++i)
        makeCopy(nameOf(24 * i + 1), listsOf(static_cast<std::uint8_t>(i)));
    makeCopy(nameOf(23), listsOf(20));
    makeCopy(nameOf(-5), listsOf(21)); // a clock that went wrong
    makeCopy("kept-by-me", listsOf(22));
    writeForeign(listsOf(30));
    PreferencesStore pick(path);
    ASSERT_TRUE(writtenBy(pick, listsOf(31)));
    EXPECT_THAT(dated(),
                testing::UnorderedElementsAre(listsOf(30), listsOf(21), listsOf(20), listsOf(1), listsOf(2)));
    EXPECT_EQ(file(".kept-by-me"), listsOf(22)) << "no name of ours";
    for (int i = 1; i <= 6; ++i)
        makeCopy(nameOf(i), listsOf(40));
    writeForeign(listsOf(50));
    PreferencesStore next(path);
    ASSERT_TRUE(writtenBy(next, listsOf(51)));
    EXPECT_EQ(dated().size(), 3u + 6u + 1u) << "all of today's";
}

TEST_F(KeptCopiesTest, CopiesWithoutColoursGoFirstAndPushNoneWithOut) {
    for (int i = 1; i <= 5; ++i)
        makeCopy(nameOf(24 * i + 1), listsOf(static_cast<std::uint8_t>(i == 1 ? 0 : i)));
    writeForeign(listsOf(9));
    PreferencesStore pick(path);
    ASSERT_TRUE(writtenBy(pick, listsOf(10)));
    EXPECT_EQ(dated().size(), 5u);
    EXPECT_THAT(dated(), testing::Not(testing::Contains(listsOf(0))));
    writeForeign(listsOf(0));
    PreferencesStore next(path);
    ASSERT_TRUE(writtenBy(next, listsOf(10)));
    EXPECT_EQ(dated().size(), 6u);
}

TEST_F(KeptCopiesTest, WhatAKilledPickHadKeptIsNotKeptTwice) {
    writeForeign(listsOf(1));
    fs::create_hard_link(path, path + "." + nameOf(30));
    PreferencesStore pick(path);
    ASSERT_TRUE(writtenBy(pick, listsOf(2)));
    EXPECT_THAT(dated(), ElementsAre(listsOf(1)));
}

struct KillCase {
    const char* name;
    bool skip, older, links, seen;
    friend void PrintTo(const KillCase& way, std::ostream* out) { *out << way.name; }
};

class KilledPick : public KeptCopiesTest, public testing::WithParamInterface<KillCase> {};

TEST_P(KilledPick, LeavesTheListsWholeUnderOneOfTheNames) {
    const KillCase& way = GetParam();
    int calls = 0;
    for (bool ended = false; !ended; ++calls) {
        fs::remove_all(folder.path());
        fs::create_directory(folder.path());
        writeForeign(listsOf(1));
        if (way.older) makeCopy("skipped", listsOf(2)), makeCopy("before", listsOf(3));
        const int code = inChild([&] {
            PreferencesStore pick(path);
            if (way.skip) pick.skip();
            if (way.seen) test::readBy(pick);
            std::optional<FailingCall> noLinks;
            if (!way.links) noLinks.emplace("link", EPERM);
            test::killAtCall(calls);
            return writtenBy(pick, listsOf(9), Flush::toDisk) ? 0 : 1;
        });
        ended = code != -SIGKILL;
        EXPECT_LE(code, 0);
        ASSERT_TRUE(isAnywhere(listsOf(1))) << "call " << calls;
        ASSERT_TRUE(file() == listsOf(1) || file() == listsOf(9)) << "call " << calls;
        ASSERT_TRUE(!way.older || isAnywhere(listsOf(2))) << "call " << calls;
        ASSERT_TRUE(!way.older || file(".before") == listsOf(3) || file(".before") == listsOf(1));
        ASSERT_TRUE(way.skip || way.seen || file() == listsOf(1) || dated().size() == 1) << "call " << calls;
        PreferencesStore next(path);
        ASSERT_TRUE(writtenBy(next, listsOf(10))) << "what is left is in nobody's way";
        ASSERT_TRUE(way.seen || isAnywhere(listsOf(1))) << "call " << calls;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            ASSERT_FALSE(entry.path().filename().string().starts_with(".chromalog-")) << "call " << calls;
    }
    EXPECT_GT(calls, 15);
}

INSTANTIATE_TEST_SUITE_P(Ways, KilledPick,
                         testing::Values(KillCase{"Linked", false, false, true, false},
                                         KillCase{"Copied", false, false, false, false},
                                         KillCase{"Skipped", true, false, true, false},
                                         KillCase{"SkippedTwice", true, true, true, false},
                                         KillCase{"SkippedTwiceAndCopied", true, true, false, false},
                                         KillCase{"Known", false, true, true, true}),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_F(KeptCopiesTest, EachCopyTellsWhatItHolds) {
    Bytes lists = listsOf(1);
    lists[kFileCounts[1]] = 0xFF;
    lists[kFileCounts[1] + 1] = 0x7F; // 32767
    const char name[] = "Flat\x8e\x1b[31m.aco";
    lists[kFileNames[0]] = sizeof name - 1;
    std::memcpy(&lists[kFileNames[0] + 1], name, sizeof name - 1);
    makeCopy("before", lists);
    makeCopy("skipped", Bytes(100, 1));
    const std::vector<KeptCopy> all = keptCopies(path);
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].name, "before");
    EXPECT_EQ(all[0].lists->lists[0].count, 1);
    EXPECT_EQ(all[0].lists->lists[1].count, 5000) << "no list has more";
    EXPECT_THAT(describe(*all[0].lists),
                HasSubstr(", list 1: 1 color (Flat??[31m.aco), list 2: 5000 colors"));
    EXPECT_FALSE(all[1].lists) << "too short";
}

} // namespace
} // namespace chromalog
