// What dev/documents runs of a page, with a made-up program: none of the tree's own lines.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace chromalog::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class Documents : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(folder_ / "bin");
        const std::string program = folder_ / "bin/chromalog";
        std::ofstream(program) << "#!/bin/sh\necho told: \"$@\"\n[ \"$1\" != broken ]\n";
        fs::permissions(program, fs::perms::owner_all);
    }

    ProgramResult documents(const std::string& page, std::vector<std::string> more = {}) const {
        std::ofstream(folder_ / "page.md") << page;
        std::vector<std::string> words{"python3", CHROMALOG_SOURCE_DIR "/dev/documents", "--build",
                                       folder_.path()};
        words.insert(words.end(), more.begin(), more.end());
        words.push_back(folder_ / "page.md");
        return runProgram(words, {{"PYTHONIOENCODING", "utf-8"}});
    }

    const TemporaryFolder folder_;
};

TEST_F(Documents, ALineThatFailsIsNamedWithWhatItSaid) {
    const auto ran = documents("Text\n\n    chromalog convert a b   # a comment\n    chromalog broken\n");
    EXPECT_EQ(ran.exitCode, 0) << "a pick may end with 1";
    const auto failed = documents("Text\n\n    chromalog convert a b\n    false\n");
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.out, AllOf(HasSubstr("ok"), HasSubstr("page.md:3: chromalog convert a b"),
                                  HasSubstr("failed"), HasSubstr("page.md:4: false")));
}

TEST_F(Documents, ALineThatShowsAFaultMustEndSo) {
    const char* page = "<!-- ends with 3: shows a fault -->\n\n    exit 3\n\nText\n\n    true\n";
    EXPECT_EQ(documents(page).exitCode, 0);
    const auto other = documents("<!-- ends with 3: shows a fault -->\n\n    true\n");
    EXPECT_EQ(other.exitCode, 1);
    EXPECT_THAT(other.out, HasSubstr("failed"));
    EXPECT_EQ(documents("<!-- ends with 3: but not the next -->\n\nText\n\n    exit 3\n").exitCode, 1);
}

TEST_F(Documents, WhatOpensThePickerAnswersIt) {
    const auto ran = documents("Text\n\n    chromalog --color red  # opens\n    chromalog --help\n");
    EXPECT_THAT(ran.out, AllOf(HasSubstr("chromalog --color red --accept"), HasSubstr("chromalog --help"),
                               Not(HasSubstr("--help --accept"))));
}

TEST_F(Documents, MarkedLinesAreListedWithTheirReason) {
    const char* page = "<!-- not run 'fal': always fails -->\n<!-- not run 'exit': ends -->\n\n"
                       "    false\n    true\n    exit 3\n\n<!-- not run: no commands -->\n\n    3 apples\n\n"
                       "Text\n\n    true\n";
    const auto ran = documents(page);
    EXPECT_EQ(ran.exitCode, 0) << ran.out;
    EXPECT_THAT(ran.out, AllOf(HasSubstr("false  (always fails)"), HasSubstr("exit 3  (ends)"),
                               HasSubstr("3 apples  (no commands)"), HasSubstr("page.md:14: true")));
}

TEST_F(Documents, FencedBlocksAreCommandsWhereTheySaySo) {
    const auto ran = documents("```sh\n$ true\n```\n\n```cpp\nfalse\n```\n");
    EXPECT_EQ(ran.exitCode, 0) << ran.out;
    EXPECT_THAT(ran.out, AllOf(HasSubstr("page.md:2: true"), Not(HasSubstr("false"))));
}

TEST_F(Documents, AScriptThatAPageShowsIsThereForItsLines) {
    const auto ran =
        documents("Text\n\n    grep shot night.drive\n\n    # night.drive\n    shot night.png\n");
    EXPECT_EQ(ran.exitCode, 0) << ran.out;
    EXPECT_THAT(ran.out, Not(HasSubstr("shot night.png")));
}

} // namespace
} // namespace chromalog::test
