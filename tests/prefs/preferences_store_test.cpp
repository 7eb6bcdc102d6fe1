// What is replaced is what this process read or wrote last; everything else is kept first.
#include "files/in_child.h"
#include "files/system_calls.h"
#include "prefs/store_fixture.h"

#include <gmock/gmock.h>

#include <thread>

#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::FailingCall;
using test::inChild;
using test::listsOf;
using test::readBy;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class PreferencesStoreTest : public test::StoreTest {};

TEST_F(PreferencesStoreTest, WhatWasReadIsReplacedWithoutACopy) {
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    EXPECT_EQ(readBy(pick), listsOf(1));
    const StoreOutcome outcome = pick.write(listsOf(2), 0, Flush::later);
    EXPECT_EQ(outcome.error, 0);
    EXPECT_EQ(outcome.kept, "");
    EXPECT_EQ(file(), listsOf(2));
    EXPECT_THAT(copies(), ElementsAre("before"));
}

TEST_F(PreferencesStoreTest, WhatWasWrittenIsReplacedWithoutACopyInALaterPickToo) {
    for (std::uint8_t i = 1; i < 4; ++i) {
        PreferencesStore pick(path);
        ASSERT_TRUE(writtenBy(pick, listsOf(i)));
        ASSERT_TRUE(writtenBy(pick, listsOf(i)));
    }
    EXPECT_THAT(copies(), ElementsAre("before"));
}

TEST_F(PreferencesStoreTest, WhatAnotherProgramWroteMeanwhileIsKept) {
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    readBy(pick);
    writeForeign(listsOf(2));
    const StoreOutcome outcome = pick.write(listsOf(3), 0, Flush::later);
    EXPECT_EQ(outcome.error, 0);
    EXPECT_THAT(outcome.kept, StartsWith("kept-2"));
    EXPECT_EQ(file(), listsOf(3));
    EXPECT_EQ(file("." + outcome.kept), listsOf(2));
    EXPECT_THAT(copies(), ElementsAre(outcome.kept))
        << "the file as the pick began is no longer there to keep";
}

TEST_F(PreferencesStoreTest, AChangeInPlaceIsNoticedToo) {
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    readBy(pick);
    const int fd = ::open(path.c_str(), O_WRONLY);
    ASSERT_EQ(::pwrite(fd, "\2", 1, 6), 1);
    ::close(fd);
    Bytes changed = listsOf(1);
    changed[6] = 2;
    ASSERT_TRUE(writtenBy(pick, listsOf(3)));
    EXPECT_THAT(dated(), ElementsAre(changed));
}

TEST_F(PreferencesStoreTest, AFileThatAppearsMeanwhileIsKept) {
    PreferencesStore pick(path);
    EXPECT_FALSE(readBy(pick));
    writeForeign(listsOf(2));
    ASSERT_TRUE(writtenBy(pick, listsOf(3)));
    EXPECT_THAT(dated(), ElementsAre(listsOf(2)));
}

TEST_F(PreferencesStoreTest, AFileThatCannotBeReadIsKept) {
    struct Way {
        const char* call;
        int error;
    };
    for (const Way& way : {Way{"read", EIO}, Way{"open", EACCES}, Way{"open", EMFILE}, Way{"open", EIO}}) {
        writeForeign(listsOf(1));
        PreferencesStore pick(path);
        {
            const FailingCall failing(way.call, way.error);
            EXPECT_FALSE(readBy(pick));
            EXPECT_EQ(errno, way.error);
        }
        const StoreOutcome outcome = pick.write(listsOf(0), 0, Flush::toDisk);
        EXPECT_EQ(outcome.error, 0);
        EXPECT_EQ(file("." + outcome.kept), listsOf(1)) << way.call << way.error;
        fs::remove(path + "." + outcome.kept);
    }
}

TEST_F(PreferencesStoreTest, APickKeepsOneDatedCopyTheLatest) {
    PreferencesStore pick(path);
    for (std::uint8_t i = 1; i < 5; ++i) {
        writeForeign(listsOf(i));
        ASSERT_TRUE(writtenBy(pick, listsOf(100)));
    }
    EXPECT_THAT(dated(), ElementsAre(listsOf(4)));
    writeForeign(listsOf(0));
    ASSERT_TRUE(writtenBy(pick, listsOf(100)));
    EXPECT_THAT(dated(), ElementsAre(listsOf(4))) << "one without colours replaces none with";
    PreferencesStore next(path);
    writeForeign(listsOf(5));
    ASSERT_TRUE(writtenBy(next, listsOf(100)));
    EXPECT_EQ(dated().size(), 2u);
}

TEST_F(PreferencesStoreTest, ACopyIsAnotherNameOfTheRealFile) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/real", path);
    ASSERT_TRUE(writeDataToFileAtURL(path, listsOf(1)));
    const auto before = identityOf(folder / "elsewhere/real");
    PreferencesStore pick(path);
    test::forgetCalls();
    const StoreOutcome outcome = pick.write(listsOf(2), 0, Flush::later);
    EXPECT_EQ(test::callsOf("fsync"), 0) << "and nothing is copied";
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(at(folder / "elsewhere/real"), listsOf(2));
    EXPECT_FALSE(fs::is_symlink(path + "." + outcome.kept));
    EXPECT_EQ(identityOf(path + "." + outcome.kept), before);
    EXPECT_EQ(identityOf(path + ".before"), before);
}

TEST_F(PreferencesStoreTest, WhereLinksAreRefusedACopyIsMadeAndFlushed) {
    for (const int error : {EPERM, EXDEV, EOPNOTSUPP, EMLINK}) {
        writeForeign(listsOf(1));
        fs::permissions(path, fs::perms(0640));
        fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(48));
        const auto original = identityOf(path);
        PreferencesStore pick(path);
        test::forgetCalls();
        const FailingCall noLinks("link", error);
        const StoreOutcome outcome = pick.write(listsOf(2), 0, Flush::later);
        const std::string copy = path + "." + outcome.kept;
        EXPECT_EQ(at(copy), listsOf(1)) << error;
        EXPECT_GE(test::callsOf("fsync"), 2) << "the copy and its folder";
        EXPECT_EQ(fs::status(copy).permissions(), fs::perms(0640));
        const auto kept = identityOf(copy);
        EXPECT_FALSE(kept->sameFile(*original));
        EXPECT_EQ(kept->seconds, original->seconds) << "still says when the lists were stored";
        EXPECT_EQ(file(".before"), listsOf(1));
        fs::remove(copy);
        fs::remove(path + ".before");
    }
}

TEST_F(PreferencesStoreTest, WhereNothingCanBeKeptNothingIsWritten) {
    struct Way {
        const char* call;
        int error;
    };
    writeForeign(listsOf(1));
    const FailingCall noLinks("link", EPERM);
    for (const Way& way : {Way{"pwrite", ENOSPC}, Way{"ftruncate", ENOSPC}, Way{"fsync", EIO},
                           Way{"pread", EIO}, Way{"rename", EIO}, Way{"futimens", EIO}, Way{"fchmod", EIO}}) {
        PreferencesStore pick(path);
        const FailingCall failing(way.call, way.error);
        const StoreOutcome outcome = pick.write(listsOf(2), 0, Flush::later);
        EXPECT_EQ(outcome.error, way.error) << way.call;
        EXPECT_TRUE(outcome.notKept) << way.call;
        EXPECT_EQ(file(), listsOf(1)) << way.call;
        EXPECT_THAT(copies(), IsEmpty()) << way.call;
    }
    PreferencesStore pick(path);
    const FailingCall locked("open", EACCES, 0, "lists.prf");
    EXPECT_EQ(pick.write(listsOf(2), 0, Flush::later).error, EACCES);
    EXPECT_TRUE(writtenBy(pick, listsOf(2)) == false);
}

TEST_F(PreferencesStoreTest, AWriteThatFailsIsMadeUpForByTheNext) {
    writeForeign(listsOf(1));
    PreferencesStore pick(path);
    readBy(pick);
    {
        const FailingCall full("pwrite", ENOSPC);
        EXPECT_EQ(pick.write(listsOf(2), 0, Flush::later).error, ENOSPC);
    }
    EXPECT_EQ(file(), listsOf(1));
    ASSERT_TRUE(writtenBy(pick, listsOf(3)));
    EXPECT_EQ(file(), listsOf(3));
    EXPECT_EQ(file(".before"), listsOf(1));
    EXPECT_THAT(dated(), IsEmpty());
}

TEST_F(PreferencesStoreTest, OnlyAFileThatMayBeWrittenIsReplaced) {
    fs::create_directory(path);
    PreferencesStore pick(path);
    EXPECT_EQ(pick.write(listsOf(1), 0, Flush::later).error, EISDIR);
    fs::remove(path);
    writeForeign(listsOf(1));
    const FailingCall readOnly("faccessat", EACCES);
    EXPECT_EQ(pick.write(listsOf(2), 0, Flush::later).error, EACCES);
    EXPECT_EQ(file(), listsOf(1));
    const FailingCall unknown("stat", EIO);
    EXPECT_EQ(pick.write(listsOf(2), 0, Flush::later).error, EIO) << "what is there cannot be told";
}

TEST_F(PreferencesStoreTest, OkAndCancelFlushTheFileAndItsFolder) {
    PreferencesStore pick(path);
    ASSERT_TRUE(writtenBy(pick, listsOf(1)));
    test::forgetCalls();
    ASSERT_TRUE(writtenBy(pick, listsOf(2)));
    EXPECT_EQ(test::callsOf("fsync"), 0);
    ASSERT_TRUE(writtenBy(pick, listsOf(3), Flush::toDisk));
    EXPECT_GE(test::callsOf("fsync"), 2);
}

TEST_F(PreferencesStoreTest, TwoProgramsLoseNothingOfEachOther) {
    const auto pick = [&](std::uint8_t which) {
        PreferencesStore store(path);
        readBy(store);
        for (int i = 0; i < 40; ++i)
            if (!writtenBy(store, listsOf(which))) return 1;
        return 0;
    };
    std::vector<pid_t> children;
    for (const std::uint8_t which : {1, 2}) {
        children.push_back(::fork());
        if (children.back() == 0) ::_exit(pick(which));
    }
    for (const pid_t child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    for (const std::uint8_t which : {1, 2})
        EXPECT_TRUE(isAnywhere(listsOf(which))) << int(which);
    EXPECT_LE(dated().size(), 2u);
}

TEST_F(PreferencesStoreTest, AWriteWaitsForAnotherProgramsButNotForEver) {
    PreferencesStore pick(path);
    const int other = ::open((path + ".lock").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    std::thread letsGo([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        ::flock(other, LOCK_UN);
    });
    EXPECT_EQ(pick.write(listsOf(1), 0, Flush::later).error, 0);
    letsGo.join();
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_EQ(pick.write(listsOf(2), 0, Flush::later).error, EWOULDBLOCK);
    EXPECT_EQ(file(), listsOf(1));
    ::close(other);
    EXPECT_TRUE(writtenBy(pick, listsOf(2))) << "held for the write alone";
}

TEST_F(PreferencesStoreTest, WithoutLocksListsAreStoredAllTheSame) {
    fs::create_directory(path + ".lock");
    PreferencesStore pick(path);
    EXPECT_TRUE(writtenBy(pick, listsOf(1)));
    const FailingCall noLocks("flock", ENOLCK);
    PreferencesStore next(path);
    EXPECT_FALSE(next.othersOpen());
    EXPECT_TRUE(writtenBy(next, listsOf(2)));
}

TEST_F(PreferencesStoreTest, APickOnTheSameListsIsSeen) {
    const auto othersSeen = [&] {
        return inChild([&] { return PreferencesStore(path).othersOpen() ? 1 : 0; });
    };
    EXPECT_EQ(othersSeen(), 0);
    {
        const PreferencesStore open(path);
        EXPECT_FALSE(open.othersOpen());
        EXPECT_EQ(othersSeen(), 1);
        EXPECT_EQ(othersSeen(), 1);
        EXPECT_EQ(inChild([&] { return PreferencesStore(folder / "other.prf").othersOpen() ? 1 : 0; }), 0);
    }
    EXPECT_EQ(othersSeen(), 0);
    std::optional<PreferencesStore> first(path);
    const PreferencesStore second(path);
    first.reset();
    EXPECT_EQ(othersSeen(), 1) << "the mark that came second stands alone";
}

TEST_F(PreferencesStoreTest, LinksInACircleAreSaid) {
    fs::create_symlink("lists.prf", path);
    PreferencesStore pick(path);
    EXPECT_FALSE(readBy(pick));
    EXPECT_EQ(errno, ELOOP);
    EXPECT_EQ(pick.write(listsOf(1), 0, Flush::later).error, ELOOP);
}

TEST_F(PreferencesStoreTest, WhatAKilledPickLeftIsRemoved) {
    std::ofstream(folder / ".chromalog-0011223344556677.tmp") << "left";
    PreferencesStore pick(path);
    ASSERT_TRUE(writtenBy(pick, listsOf(1)));
    EXPECT_FALSE(fs::exists(folder / ".chromalog-0011223344556677.tmp"));
}

} // namespace
} // namespace chromalog
