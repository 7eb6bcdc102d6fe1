// The host of docs/hosts.md, as another program's developer would build it.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <fstream>

namespace chromalog {
namespace {

using testing::HasSubstr;

std::string textOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class SmallHost : public testing::Test {
  protected:
    ProgramResult pick(const std::string& script, const std::string& platform = "offscreen") const {
        std::ofstream(folder_ / "script") << script;
        return runProgram({SMALL_HOST, CHROMALOG_MODULE, "#3366cc", folder_ / "script"},
                          {{"CHROMALOG_DATA_DIR", folder_.path()},
                           {"CHROMALOG_STRICT", "1"},
                           {"QT_QPA_PLATFORM", platform},
                           {"DISPLAY", ""},
                           {"WAYLAND_DISPLAY", ""}});
    }

    test::TemporaryFolder folder_;
};

TEST_F(SmallHost, PrintsWhatWasPicked) {
    const ProgramResult result = pick("type firstR 7\ntype firstG 8\ntype firstB 9\nok\n");
    EXPECT_EQ(result.out, "#070809\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(SmallHost, CancelLeavesTheColourAsOffered) {
    EXPECT_EQ(pick("type firstR 7\ncancel\n").out, "as offered\n");
}

TEST_F(SmallHost, WithoutADisplayThereIsNoDialog) {
    const ProgramResult result = pick("ok\n", "xcb");
    EXPECT_THAT(result.err, HasSubstr("there is no display to show the dialog on\n"));
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(SmallHost, AScriptThatCannotBePlayedEndsTheRun) {
    EXPECT_EQ(pick("no such command\n").exitCode, 2);
}

TEST_F(SmallHost, AModuleThatIsNoneIsOneLine) {
    const ProgramResult result = runProgram({SMALL_HOST, "/dev/null", "#3366cc"});
    EXPECT_THAT(result.err, HasSubstr("cannot load the plug-in: "));
    EXPECT_EQ(result.exitCode, 1);
}

TEST(HostsPage, ShowsTheExampleAsItIsBuilt) {
    const std::string source = textOf(CHROMALOG_SOURCE_DIR "/tests/standalone/small_host.cpp");
    const auto begin = source.find("#include");
    ASSERT_NE(begin, source.npos);
    EXPECT_THAT(textOf(CHROMALOG_SOURCE_DIR "/docs/hosts.md"),
                HasSubstr("```cpp\n" + source.substr(begin) + "```\n"));
}

} // namespace
} // namespace chromalog
