// A long session reads and writes many files: none may stay open.
#include "files/file_io.h"
#include "files/system_calls.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

int openDescriptors() {
    int count = 0;
    for (int fd = 0; fd < 1024; ++fd)
        count += ::fcntl(fd, F_GETFD) != -1;
    return count;
}

class OpenFiles : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(writeDataToFileAtURL(folder / "file", std::vector<std::uint8_t>(10'000, 7)));
        ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    }
    test::TemporaryFolder folder;
};

TEST_F(OpenFiles, AreAsManyAfterAHundredReads) {
    const int before = openDescriptors();
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(readDataFromFileAtURL(folder / "file")->size(), 10'000u);
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(OpenFiles, AreAsManyAfterAHundredReadsOfWhatIsNoFile) {
    const int before = openDescriptors();
    for (int i = 0; i < 100; ++i)
        for (const std::string& path : {folder / "pipe", folder.path(), folder / "missing"})
            ASSERT_FALSE(readDataFromFileAtURL(path));
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(OpenFiles, AreAsManyAfterAHundredWrites) {
    const int before = openDescriptors();
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(writeDataToFileAtURL(folder / "file", std::vector<std::uint8_t>(100)));
        ASSERT_FALSE(writeDataToFileAtURL(folder / "pipe", std::vector<std::uint8_t>(100)));
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(OpenFiles, AreClosedInProgramsThatTheHostStarts) {
    test::forgetCalls();
    ASSERT_TRUE(readDataFromFileAtURL(folder / "file"));
    ASSERT_TRUE(writeDataToFileAtURL(folder / "file", std::vector<std::uint8_t>(100)));
    EXPECT_GT(test::callsOf("open"), 1);
    EXPECT_EQ(test::callsOf("open, inherited"), 0);
}

} // namespace
} // namespace chromalog
