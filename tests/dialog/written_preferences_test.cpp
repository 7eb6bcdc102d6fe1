// What is written to the preferences file, seen from outside: at which moments, and what is left of what was
// there before.
#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

#include <set>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// What the disk was waited for: the number of each file, and its size at that moment.
std::set<std::pair<ino_t, off_t>> flushed;

int flush(long call, int fd) {
    struct stat status;
    if (::fstat(fd, &status) == 0) flushed.emplace(status.st_ino, status.st_size);
    return static_cast<int>(::syscall(call, fd));
}

} // namespace

/// These stand before the library's own.
extern "C" int fsync(int fd) {
    return flush(SYS_fsync, fd);
}
extern "C" int fdatasync(int fd) {
    return flush(SYS_fdatasync, fd);
}

namespace chromalog::test {
namespace {

using testing::Contains;

constexpr std::size_t kFileSize = 3'040'536, kCount1At = 3'040'006, kNamesAt = 3'040'010;

class WrittenPreferences : public PickTest {
  protected:
    using Bytes = std::vector<std::uint8_t>;

    static Bytes read(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static Bytes fileOf(std::uint8_t count1, std::uint8_t count2) {
        Bytes file(kFileSize);
        file[kCount1At] = count1;
        file[kCount1At + 2] = count2;
        return file;
    }
    void stepWithCount(ChromalogControler& dialog, HeadlessDesktop& desktop, std::int16_t count) {
        dialog.panels().one.view.setNumberOfColors(count);
        desktop.forms.at("chromalogWindow")->send("sortAlpha1:");
        EXPECT_EQ(read(preferences())[kCount1At], count) << "written before the change";
    }
    /// The file as it stands now was waited for, whole.
    void expectOnDisk() {
        struct stat status {};
        ASSERT_EQ(::stat(preferences().c_str(), &status), 0);
        EXPECT_THAT(flushed, Contains(std::pair(status.st_ino, status.st_size)));
    }
};

TEST_F(WrittenPreferences, WhatOptionSkippedIsKeptOnceHoweverOftenTheFileIsWritten) {
    const Bytes skipped = fileOf(7, 3);
    const auto kept = preferences().string() + ".skipped";
    writePreferences(skipped);
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick([&](ChromalogControler& dialog, HeadlessDesktop& desktop) {
        desktop.optionHeld = false;
        for (const std::int16_t count : {1, 2, 4}) {
            stepWithCount(dialog, desktop, count);
            EXPECT_EQ(read(kept), skipped) << count;
        }
        dialog.okPressed();
    });
    EXPECT_EQ(read(kept), skipped);
    prepare = nullptr;
    pick();
    EXPECT_EQ(read(kept), skipped) << "a pick that read the file keeps nothing";
}

TEST_F(WrittenPreferences, AnUnconnectedListsCountStaysAsItWasStored) {
    writePreferences(fileOf(5, 2));
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"chromalogWindow"}; };
    onReady = [](ChromalogControler& dialog, HeadlessDesktop&) {
        dialog.panels().one.view.setNumberOfColors(1);
        dialog.panels().two.view.setNumberOfColors(0);
        dialog.cancelPressed();
        EXPECT_EQ(dialog.record().numColors1, 5);
        EXPECT_EQ(dialog.record().numColors2, 2);
    };
    pick();
    Bytes written = read(preferences());
    ASSERT_EQ(written.size(), kFileSize);
    written.resize(kNamesAt);
    Bytes before = fileOf(5, 2);
    before.resize(kNamesAt);
    EXPECT_EQ(written, before);
}

TEST_F(WrittenPreferences, OkAndCancelWaitForTheDisk) {
    for (const bool ok : {true, false}) {
        writePreferences(fileOf(5, 2));
        pick([&](ChromalogControler& dialog, HeadlessDesktop&) {
            flushed.clear();
            dialog.panels().one.view.setNumberOfColors(4);
            ok ? dialog.okPressed() : dialog.cancelPressed();
            expectOnDisk();
        });
        EXPECT_EQ(read(preferences())[kCount1At], 4);
    }
}

} // namespace
} // namespace chromalog::test
