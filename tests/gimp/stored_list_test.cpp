// The stored lists without the dialog: what is exchanged, and that nothing is lost.
#include "gimp/stored_list.h"
#include "prefs/preferences_layout.h"
#include "prefs/preferences_store.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
int flushes = 0;
}

/// In place of the C library's: counts, and does the same.
extern "C" int fsync(int fd) {
    ++flushes;
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

namespace chromalog {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Palette numbered(const std::string& title, int count) {
    Palette palette{title, {}};
    for (int i = 0; i < count; ++i) {
        PaletteColour colour;
        colour.name = "Größe " + std::to_string(i);
        colour.components = {i % 65536 / 65535.0, 1, (65535 - i) / 65535.0};
        palette.colours.push_back(std::move(colour));
    }
    return palette;
}

class StoredListTest : public testing::Test {
  protected:
    StoredListTest() { ::setenv("CHROMALOG_DATA_DIR", folder_.path().c_str(), 1); }
    ~StoredListTest() override { ::unsetenv("CHROMALOG_DATA_DIR"); }

    std::string file() const {
        return folder_ / (std::string(kPreferencesFolder) + std::string(kPreferencesName));
    }
    std::string contents() const {
        std::ifstream in(file(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    test::TemporaryFolder folder_;
};

TEST_F(StoredListTest, PalettesOfEverySizeComeBackAsTheyAre) {
    for (const int count : {0, 1, 256, 5000})
        for (const int list : {1, 2}) {
            const Palette palette = numbered("Of " + std::to_string(count), count);
            EXPECT_THAT(replaceStoredList(list, palette), IsEmpty()) << count;
            EXPECT_EQ(readStoredList(list), palette) << count;
        }
}

TEST_F(StoredListTest, AListIsOnTheDiskBeforeItIsCalledStored) {
    flushes = 0;
    replaceStoredList(1, numbered("Mine", 3));
    EXPECT_GE(flushes, 2) << "the file, and the folder that holds its name";
}

TEST_F(StoredListTest, WithoutAFileBothListsAreEmpty) {
    EXPECT_EQ(readStoredList(1), (Palette{"Chromalog list 1", {}}));
    EXPECT_EQ(readStoredList(2), (Palette{"Chromalog list 2", {}}));
}

TEST_F(StoredListTest, AListThatBecomesShorterLeavesNothingOfTheLongerOne) {
    replaceStoredList(1, numbered("Long", 100));
    replaceStoredList(2, numbered("Other", 3));
    replaceStoredList(1, {});
    EXPECT_EQ(readStoredList(2), numbered("Other", 3));
    EXPECT_EQ(contents().size(), kPreferencesSize);
    EXPECT_EQ(contents().find("Gr"), kFileLists[1] + 1) << "records of list 1 are empty";
}

TEST_F(StoredListTest, ColoursPastTheLastRowAreTold) {
    EXPECT_THAT(replaceStoredList(1, numbered("Too many", 5002)), ElementsAre(HasSubstr("2 ")));
    EXPECT_EQ(readStoredList(1).colours.size(), 5000u);
}

TEST_F(StoredListTest, LettersThatAListCannotKeepAreTold) {
    Palette palette = numbered("Ünïted 色", 1);
    palette.colours[0].name = "色";
    EXPECT_EQ(replaceStoredList(1, palette).size(), 2u);
    EXPECT_EQ(readStoredList(1).title, "United ?");
}

TEST_F(StoredListTest, TheListsFromBeforeAreKept) {
    replaceStoredList(1, numbered("First", 2));
    replaceStoredList(1, numbered("Second", 4));
    fs::copy_file(file() + ".before", file(), fs::copy_options::overwrite_existing);
    EXPECT_EQ(readStoredList(1), numbered("First", 2));
}

TEST_F(StoredListTest, AnOpenPickIsTold) {
    replaceStoredList(1, {});
    const int mark = ::open((file() + ".open").c_str(), O_RDWR);
    ASSERT_GE(mark, 0);
    ASSERT_EQ(::flock(mark, LOCK_SH), 0);
    EXPECT_THAT(replaceStoredList(1, {}), Contains(HasSubstr("A pick is open on the same lists")));
    ::close(mark);
}

TEST_F(StoredListTest, AFileThatCannotBeReadIsNotReplaced) {
    fs::create_directories(file());
    EXPECT_THROW(readStoredList(1), std::runtime_error);
    EXPECT_THROW(replaceStoredList(1, {}), std::runtime_error);
    EXPECT_TRUE(fs::is_directory(file()));
}

TEST_F(StoredListTest, AFileWithWildCountsIsReadAsFarAsThereAreRecords) {
    replaceStoredList(1, numbered("Wild", 3));
    std::fstream(file(), std::ios::in | std::ios::out | std::ios::binary).seekp(kFileCounts[0])
        << "\xff\x7f\x80\xff";
    EXPECT_EQ(readStoredList(1).colours.size(), 5000u);
    EXPECT_EQ(readStoredList(2).colours.size(), 0u);
}

} // namespace
} // namespace chromalog
