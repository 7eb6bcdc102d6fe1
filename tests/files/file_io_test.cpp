#include "files/descriptor.h"
#include "files/file_io.h"
#include "files/in_child.h"
#include "files/system_calls.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {
namespace {

using test::FailingCall;
using test::inChild;
using Bytes = std::vector<std::uint8_t>;

Bytes pattern(std::size_t length, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(length);
    for (auto& b : bytes)
        b = static_cast<std::uint8_t>(random());
    return bytes;
}

/// How many of a file's pages the system has made.
std::size_t pagesInMemory(const std::string& path, std::size_t length) {
    const Descriptor file(::open(path.c_str(), O_RDONLY));
    void* map = ::mmap(nullptr, length, PROT_READ, MAP_SHARED, file.get(), 0);
    if (map == MAP_FAILED) return length;
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> present((length + page - 1) / page);
    ::mincore(map, length, present.data());
    ::munmap(map, length);
    return static_cast<std::size_t>(std::ranges::count_if(present, [](unsigned char p) { return p & 1; }));
}

class FileIo : public testing::Test {
  protected:
    Bytes contents(const std::string& path) { return readDataFromFileAtURL(path).value_or(Bytes{}); }

    test::TemporaryFolder folder;
};

TEST_F(FileIo, WhatIsWrittenIsReadBack) {
    for (const std::size_t length : {0, 1, 4095, 4096, 4097, 3'040'534}) {
        const Bytes bytes = pattern(length, 1);
        ASSERT_TRUE(writeDataToFileAtURL(folder / "file", bytes));
        EXPECT_EQ(readDataFromFileAtURL(folder / "file"), bytes) << length;
        EXPECT_EQ(folder.entries(), 1);
    }
}

TEST_F(FileIo, BlocksOfZerosBecomeHolesAndReadAsZeros) {
    Bytes bytes(3'000'000);
    for (const std::size_t at : {0, 4096, 8191, 1'500'000, 2'999'999})
        bytes[at] = 1;
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", bytes, 2));
    Bytes expected = bytes;
    expected.resize(bytes.size() + 2);
    EXPECT_EQ(readDataFromFileAtURL(folder / "file"), expected);
    struct stat status;
    ASSERT_EQ(::stat((folder / "file").c_str(), &status), 0);
    EXPECT_LE(status.st_blocks * 512, 64 * 1024) << "holes take no room";
}

TEST_F(FileIo, HolesAreNotReadAndWhatStandsBetweenThemIs) {
    constexpr std::size_t kMega = 1 << 20;
    Bytes bytes(5 * kMega + 3);
    const std::string file = folder / "file";
    for (const std::size_t at : {2 * kMega, 4 * kMega + 4095, 5 * kMega + 2})
        bytes[at] = 0xA5;
    ASSERT_TRUE(writeDataToFileAtURL(file, bytes));
    EXPECT_EQ(readDataFromFileAtURL(file), bytes);
    EXPECT_EQ(readDataFromFileAtURL(file, 3 * kMega), Bytes(bytes.begin(), bytes.begin() + 3 * kMega));
    EXPECT_EQ(readDataFromFileAtURL(file, kMega), Bytes(kMega));
    ASSERT_EQ(::truncate(file.c_str(), 6 * kMega), 0) << "a hole at the end";
    bytes.resize(6 * kMega);
    EXPECT_EQ(readDataFromFileAtURL(file), bytes);
    EXPECT_LT(pagesInMemory(file, 6 * kMega), 200u) << "of 1,536; some are read ahead";
}

TEST_F(FileIo, AnyMixtureOfZerosAndBytesSurvives) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        Bytes bytes(random() % 40'000);
        for (int k = random() % 6; k > 0 && !bytes.empty(); --k)
            bytes[random() % bytes.size()] = 0xFF;
        ASSERT_TRUE(writeDataToFileAtURL(folder / "file", bytes));
        ASSERT_EQ(readDataFromFileAtURL(folder / "file"), bytes);
    }
}

TEST_F(FileIo, ReadingStopsAtTheLimit) {
    const Bytes bytes = pattern(10'000, 2);
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", bytes));
    EXPECT_EQ(readDataFromFileAtURL(folder / "file", 100), Bytes(bytes.begin(), bytes.begin() + 100));
    ASSERT_EQ(::truncate((folder / "file").c_str(), 1LL << 40), 0) << "a sparse file of a terabyte";
    EXPECT_EQ(contents(folder / "file").size(), kLongestRead);
}

TEST_F(FileIo, AFileIsReadIntoMemoryAsFarAsItGoes) {
    const Bytes bytes = pattern(10'000, 3);
    const std::string file = folder / "file";
    ASSERT_TRUE(writeDataToFileAtURL(file, bytes, 90'000));
    for (const std::size_t room : {0, 1, 9'999, 10'000, 50'000, 100'000, 200'000}) {
        Bytes memory(room), expected = bytes;
        expected.resize(room);
        EXPECT_EQ(readFileInto(file, memory), std::min<std::size_t>(room, 100'000));
        EXPECT_EQ(memory, expected) << room;
    }
    Bytes memory(10);
    EXPECT_FALSE(readFileInto(folder / "missing", memory));
    EXPECT_EQ(errno, ENOENT);
    const FailingCall badDisk("read", EIO);
    EXPECT_FALSE(readFileInto(file, memory));
}

TEST_F(FileIo, NothingButARegularFileIsReadAndNothingHangs) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(readDataFromFileAtURL(folder / "pipe"));
    EXPECT_FALSE(readDataFromFileAtURL(folder.path()));
    EXPECT_FALSE(readDataFromFileAtURL("/dev/zero"));
    EXPECT_FALSE(readDataFromFileAtURL("/dev/tty"));
    EXPECT_FALSE(readDataFromFileAtURL(folder / "missing"));
    EXPECT_FALSE(readDataFromFileAtURL(""));
}

TEST_F(FileIo, AnUnreadableFileIsNoFile) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(10, 1)));
    ASSERT_EQ(::chmod((folder / "file").c_str(), 0), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(inChild([&] {
                  if (::geteuid() == 0 && ::seteuid(65534) != 0) return 2;
                  return readDataFromFileAtURL(folder / "file") ? 1 : 0;
              }),
              0);
}

TEST_F(FileIo, AReadErrorInTheMiddleIsNothing) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(100'000, 1)));
    for (const int good : {0, 1}) {
        const FailingCall badDisk("read", EIO, good);
        EXPECT_FALSE(readDataFromFileAtURL(folder / "file")) << good;
        EXPECT_EQ(errno, EIO);
    }
    const FailingCall interrupted("read", EINTR);
    EXPECT_EQ(inChild([&] {
                  ::alarm(1); // an interrupted read is made again, for ever here
                  readDataFromFileAtURL(folder / "file");
                  return 0;
              }),
              -SIGALRM);
}

TEST_F(FileIo, AFileWhoseSizeSaysNothingIsReadToItsEnd) {
    struct stat status;
    if (::stat("/proc/self/status", &status) != 0) GTEST_SKIP() << "no such file here";
    ASSERT_TRUE(S_ISREG(status.st_mode) && status.st_size == 0);
    for (const char* path : {"/proc/version", "/proc/kallsyms"}) { // less and more than a piece
        std::ifstream in(path, std::ios::binary);
        const Bytes expected(std::istreambuf_iterator<char>(in), {});
        EXPECT_EQ(readDataFromFileAtURL(path), expected) << path;
        EXPECT_EQ(readDataFromFileAtURL(path, 10)->size(), 10u);
    }
}

TEST_F(FileIo, WhatCannotBeReadSaysWhy) {
    const auto why = [](const std::string& path) { return readDataFromFileAtURL(path) ? 0 : errno; };
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(why(folder / "missing"), ENOENT);
    EXPECT_EQ(why(folder.path()), EISDIR);
    EXPECT_EQ(why(folder / "pipe"), EOPNOTSUPP);
    EXPECT_EQ(reasonOf(ENOENT), "No such file or directory");
}

TEST_F(FileIo, AnExistingFileKeepsItsModeAndANewOneFollowsTheMask) {
    const mode_t mask = ::umask(027);
    ASSERT_TRUE(writeDataToFileAtURL(folder / "new", pattern(10, 1)));
    ::umask(mask);
    struct stat status;
    ASSERT_EQ(::stat((folder / "new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    ASSERT_EQ(::chmod((folder / "new").c_str(), 0604), 0);
    ASSERT_TRUE(writeDataToFileAtURL(folder / "new", pattern(10, 2)));
    ASSERT_EQ(::stat((folder / "new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0604u);
}

TEST_F(FileIo, ASymbolicLinkStaysAndItsTargetIsReplaced) {
    std::filesystem::create_directory(folder / "elsewhere");
    ASSERT_TRUE(writeDataToFileAtURL(folder / "elsewhere/target", pattern(10, 1)));
    std::filesystem::create_symlink("elsewhere/target", folder / "link");
    ASSERT_TRUE(writeDataToFileAtURL(folder / "link", pattern(10, 2)));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(contents(folder / "elsewhere/target"), pattern(10, 2));
}

TEST_F(FileIo, AFolderAPipeAndAMissingFolderAreNotReplaced) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder");
    EXPECT_FALSE(writeDataToFileAtURL(folder / "pipe", pattern(10, 1)));
    EXPECT_FALSE(writeDataToFileAtURL(folder / "folder", pattern(10, 1)));
    EXPECT_FALSE(writeDataToFileAtURL(folder / "missing/file", pattern(10, 1)));
    EXPECT_FALSE(writeDataToFileAtURL("", pattern(10, 1)));
    EXPECT_TRUE(std::filesystem::is_fifo(folder / "pipe"));
    EXPECT_EQ(folder.entries(), 2);
}

TEST_F(FileIo, WithoutPermissionTheOldFileStaysAndNothingIsLeft) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(5000, 1)));
    const auto write = [&] {
        if (::geteuid() == 0 && ::seteuid(65534) != 0) return 2;
        return writeDataToFileAtURL(folder / "file", pattern(5000, 2)) ? 1 : 0;
    };
    ASSERT_EQ(::chmod((folder / "file").c_str(), 0444), 0);
    for (const mode_t mode : {0555, 0777}) {
        ASSERT_EQ(::chmod(folder.path().c_str(), mode), 0);
        EXPECT_EQ(inChild(write), 0);
        EXPECT_EQ(contents(folder / "file"), pattern(5000, 1));
        EXPECT_EQ(folder.entries(), 1);
    }
}

TEST_F(FileIo, AWriteThatMeetsALimitHalfWayLeavesTheOldFileWhole) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(9000, 1)));
    EXPECT_EQ(inChild([&] {
                  const rlimit limit{20'000, 20'000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  return writeDataToFileAtURL(folder / "file", pattern(3'040'534, 2)) ? 1 : 0;
              }),
              0);
    EXPECT_EQ(contents(folder / "file"), pattern(9000, 1));
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(FileIo, AFullDiskLeavesTheOldFileWhole) {
    const int code = inChild([&] {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", folder.path().c_str(), "tmpfs", 0, "size=64k") != 0)
            return 77;
        if (!writeDataToFileAtURL(folder / "file", pattern(20'000, 1))) return 1;
        for (const std::size_t length : {60'000, 3'040'534})
            if (writeDataToFileAtURL(folder / "file", pattern(length, 2))) return 2;
        if (contents(folder / "file") != pattern(20'000, 1) || folder.entries() != 1) return 3;
        return writeDataToFileAtURL(folder / "file", pattern(30'000, 2)) ? 0 : 4;
    });
    if (code == 77) GTEST_SKIP() << "may not mount a file system here";
    EXPECT_EQ(code, 0);
}

TEST_F(FileIo, AKillBetweenAnyTwoCallsLeavesOneOfTheTwoFiles) {
    const Bytes before = pattern(9000, 1), after = pattern(9000, 2);
    for (const bool named : {false, true}) {
        bool ended = false;
        for (int call = 0; !ended; ++call) {
            ASSERT_TRUE(writeDataToFileAtURL(folder / "file", before)) << "what is left is in nobody's way";
            ASSERT_EQ(folder.entries(), 1) << "what was left is gone";
            ended = inChild([&] {
                        std::optional<FailingCall> noNames;
                        if (named) noNames.emplace("linkat", ENOENT); // as without /proc
                        test::killAtCall(call);
                        return writeDataToFileAtURL(folder / "file", after) ? 0 : 1;
                    }) == 0;
            const Bytes now = contents(folder / "file");
            ASSERT_TRUE(now == before || now == after) << "call " << call << ", " << now.size() << " bytes";
            if (ended) {
                EXPECT_GT(call, 8);
                EXPECT_EQ(now, after);
            }
        }
    }
}

TEST_F(FileIo, ARenameThatFailsLeavesTheOldFileAndNoLitter) {
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(9000, 1)));
    const FailingCall noRename("rename", EIO);
    EXPECT_FALSE(writeDataToFileAtURL(folder / "file", pattern(9000, 2)));
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(contents(folder / "file"), pattern(9000, 1));
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(FileIo, AWriteWaitsForTheDiskUnlessItIsToldNotTo) {
    test::forgetCalls();
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(9000, 1), 0, Flush::later));
    EXPECT_EQ(test::callsOf("fsync"), 0);
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(9000, 2)));
    EXPECT_GE(test::callsOf("fsync"), 2) << "the file and its folder"; // and the file again without /proc
    const FailingCall noFlush("fsync", EIO);
    EXPECT_FALSE(writeDataToFileAtURL(folder / "file", pattern(9000, 3)));
    EXPECT_EQ(contents(folder / "file"), pattern(9000, 2));
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(FileIo, AVisibleTemporaryFileServesWhereThereIsNoUnnamedOne) {
    const FailingCall noNames("linkat", ENOENT); // as on a system without /proc
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(9000, 1)));
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", pattern(8000, 2)));
    const FailingCall noRename("rename", EIO);
    EXPECT_FALSE(writeDataToFileAtURL(folder / "file", pattern(9000, 3)));
    EXPECT_EQ(contents(folder / "file"), pattern(8000, 2));
    EXPECT_EQ(folder.entries(), 1);
}

TEST_F(FileIo, AWriterKilledAtAnyMomentLeavesOneOfTheTwoFiles) {
    const Bytes a = pattern(300'000, 1), b = pattern(300'000, 2);
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", a));
    std::mt19937 random(3);
    for (int round = 0; round < 40; ++round) {
        const pid_t child = ::fork();
        if (child == 0)
            for (;;)
                writeDataToFileAtURL(folder / "file", b), writeDataToFileAtURL(folder / "file", a);
        std::this_thread::sleep_for(std::chrono::microseconds(200 + random() % 5000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const Bytes now = contents(folder / "file");
        ASSERT_TRUE(now == a || now == b) << "round " << round << ", " << now.size() << " bytes";
    }
}

} // namespace
} // namespace chromalog
