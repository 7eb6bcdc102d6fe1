// Where a file is written: through links, in other people's folders, beside what killed writers left.
#include "files/file_io.h"
#include "files/in_child.h"
#include "files/system_calls.h"
#include "files/temporary_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <numeric>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

namespace fs = std::filesystem;
using test::FailingCall;
using test::inChild;
using Bytes = std::vector<std::uint8_t>;

Bytes bytesFrom(std::uint8_t first, std::size_t length) {
    Bytes bytes(length);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

class WritePlaces : public testing::Test {
  protected:
    bool write(const std::string& name, const Bytes& bytes) {
        return writeDataToFileAtURL(folder / name, bytes);
    }
    Bytes contents(const std::string& name) { return readDataFromFileAtURL(folder / name).value_or(Bytes{}); }
    /// As somebody else, to whom the file is open and the folder is as told.
    int writeAsNobody(mode_t ofFolder, const Bytes& bytes) {
        EXPECT_EQ(::chmod((folder / "file").c_str(), 0666), 0);
        EXPECT_EQ(::chmod(folder.path().c_str(), ofFolder), 0);
        return inChild([&] {
            if (::geteuid() == 0 && ::seteuid(65534) != 0) return 2;
            return write("file", bytes) ? 0 : 1;
        });
    }

    test::TemporaryFolder folder;
};

TEST_F(WritePlaces, AFileInAFolderThatTakesNoOtherIsWrittenOver) {
    for (const mode_t mode : {0555, 01777}) { // nobody may add files; only owners may replace theirs
        ASSERT_TRUE(write("file", bytesFrom(1, 5000)));
        for (const std::size_t length : {9000, 300, 0, 4}) {
            ASSERT_EQ(writeAsNobody(mode, bytesFrom(7, length)), 0) << length;
            EXPECT_EQ(contents("file"), bytesFrom(7, length));
            EXPECT_EQ(folder.entries(), 1);
        }
        ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    }
}

TEST_F(WritePlaces, ANewFileInAFolderThatTakesNoneIsAnError) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(inChild([&] {
                  if (::geteuid() == 0 && ::seteuid(65534) != 0) return 2;
                  return write("new", bytesFrom(1, 10)) ? 1 : errno;
              }),
              EACCES);
}

TEST_F(WritePlaces, WritingOverOnAFullDiskLeavesTheOldContents) {
    const int code = inChild([&] {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", folder.path().c_str(), "tmpfs", 0, "size=64k") != 0)
            return 77;
        if (!write("file", bytesFrom(1, 20'000))) return 3;
        if (writeAsNobody(0555, bytesFrom(2, 90'000)) != 1) return 4;
        return contents("file") == bytesFrom(1, 20'000) ? 0 : 5;
    });
    if (code == 77) GTEST_SKIP() << "may not mount a file system here";
    EXPECT_EQ(code, 0);
}

TEST_F(WritePlaces, WritingOverWaitsForTheDisk) {
    ASSERT_TRUE(write("file", bytesFrom(1, 5000)));
    const FailingCall broken("fsync", EIO);
    EXPECT_EQ(writeAsNobody(0555, bytesFrom(7, 300)), 1);
}

TEST_F(WritePlaces, OnlyTheFoldersRefusalLeadsToWritingOver) {
    ASSERT_TRUE(write("file", bytesFrom(1, 5000)));
    for (const int error : {ENOSPC, EIO, EDQUOT, EROFS}) {
        const FailingCall noRename("rename", error);
        EXPECT_FALSE(write("file", bytesFrom(2, 5000)));
        EXPECT_EQ(contents("file"), bytesFrom(1, 5000));
    }
    const FailingCall noRename("rename", EBUSY); // a file that is mounted over another
    EXPECT_TRUE(write("file", bytesFrom(2, 5000)));
    EXPECT_EQ(contents("file"), bytesFrom(2, 5000));
}

TEST_F(WritePlaces, ADanglingLinkMakesItsTarget) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/second", folder / "first");
    fs::create_symlink(folder / "elsewhere/file", folder / "elsewhere/second");
    ASSERT_TRUE(write("first", bytesFrom(1, 10)));
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "elsewhere/second"));
    EXPECT_FALSE(fs::is_symlink(folder / "elsewhere/file"));
    EXPECT_EQ(contents("elsewhere/file"), bytesFrom(1, 10));
    fs::create_symlink("missing/file", folder / "lost");
    EXPECT_FALSE(write("lost", bytesFrom(1, 10)));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(fs::is_symlink(folder / "lost"));
}

TEST_F(WritePlaces, LinksInACircleAreAnError) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_FALSE(write("a", bytesFrom(1, 10)));
    EXPECT_EQ(errno, ELOOP);
    EXPECT_EQ(folder.entries(), 2);
    EXPECT_TRUE(fs::is_symlink(folder / "a"));
}

TEST_F(WritePlaces, WhatAKilledWriterLeftIsRemovedByTheNextWriteBeside) {
    for (const char* left : {".chromalog-0123456789abcdef.tmp", ".chromalog-x.tmp"})
        std::ofstream(folder / left) << "left";
    std::ofstream(folder / ".chromalog-mine") << "somebody's";
    std::ofstream(folder / "other.tmp") << "somebody's";
    ASSERT_TRUE(write("file", bytesFrom(1, 10)));
    EXPECT_EQ(folder.entries(), 3);
    EXPECT_TRUE(fs::exists(folder / ".chromalog-mine"));
    EXPECT_TRUE(fs::exists(folder / "other.tmp"));
}

TEST_F(WritePlaces, TheTemporaryFileOfAProgramThatLivesStays) {
    TemporaryFile other(folder / "other", TemporaryFile::Kind::named);
    ASSERT_TRUE(other.isOpen());
    ASSERT_EQ(folder.entries(), 1);
    ASSERT_EQ(inChild([&] { return write("file", bytesFrom(1, 10)) ? 0 : 1; }), 0);
    EXPECT_EQ(folder.entries(), 2);
    EXPECT_TRUE(other.takePlace(Flush::later));
    EXPECT_TRUE(fs::exists(folder / "other"));
}

TEST_F(WritePlaces, WhoLosesTheirTemporaryFileBeforeItIsLockedTakesAnother) {
    const FailingCall taken("flock", EWOULDBLOCK, 0); // as where somebody else holds it already
    TemporaryFile all(folder / "other", TemporaryFile::Kind::named);
    EXPECT_FALSE(all.isOpen()) << "not for ever";
}

TEST_F(WritePlaces, OnlyFilesAreTakenForLeftovers) {
    ASSERT_EQ(::mkfifo((folder / ".chromalog-pipe.tmp").c_str(), 0600), 0);
    fs::create_directory(folder / ".chromalog-folder.tmp");
    std::ofstream(folder / "precious") << "kept";
    fs::create_symlink("precious", folder / ".chromalog-link.tmp");
    ASSERT_TRUE(write("file", bytesFrom(1, 10)));
    EXPECT_EQ(folder.entries(), 5);
}

TEST_F(WritePlaces, WithoutLocksOnlyOldFilesAreLeftovers) {
    std::ofstream(folder / ".chromalog-old.tmp") << "left";
    std::ofstream(folder / ".chromalog-new.tmp") << "perhaps alive";
    fs::last_write_time(folder / ".chromalog-old.tmp",
                        fs::file_time_type::clock::now() - std::chrono::hours(25));
    const FailingCall noLocks("flock", ENOLCK);
    ASSERT_TRUE(write("file", bytesFrom(1, 10)));
    EXPECT_FALSE(fs::exists(folder / ".chromalog-old.tmp"));
    EXPECT_TRUE(fs::exists(folder / ".chromalog-new.tmp"));
}

TEST_F(WritePlaces, ManyWritersBesideEachOtherAllSucceed) {
    const auto writeMany = [&](int which) {
        const FailingCall named("linkat", ENOENT); // named temporary files: each sees those of the others
        for (int i = 0; i < 200; ++i)
            if (!writeDataToFileAtURL(folder / ("file" + std::to_string(which)), bytesFrom(1, 100), 0,
                                      Flush::later))
                return 1;
        return 0;
    };
    std::vector<pid_t> children;
    for (int which = 0; which < 4; ++which) {
        children.push_back(::fork());
        if (children.back() == 0) ::_exit(writeMany(which));
    }
    for (const pid_t child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(folder.entries(), 4);
}

} // namespace
} // namespace chromalog
