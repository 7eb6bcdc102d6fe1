// What run and test say where they cannot set up.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace chromalog::test {
namespace {

class SetUp : public testing::Test {
  protected:
    /// Runs `commands` with the functions of the set-up, in a project of its own.
    ProgramResult with(const std::string& commands) const {
        const std::string script =
            "root='" + folder_.path() + "'; me=run\n. '" CHROMALOG_SOURCE_DIR "/dev/set_up.sh'\n" + commands;
        return runProgram({"bash", "-c", script}, {{"LC_ALL", "C"}});
    }

    /// What is said of a step that failed and left this log.
    std::string saidOf(const std::string& log) const {
        std::filesystem::create_directories(folder_ / "build");
        std::ofstream(folder_ / "build/setup.log") << log;
        const ProgramResult result = with("fail_with_log building");
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.out, "");
        return result.err;
    }

    std::string line(const std::string& cause) const {
        return "run: building failed: " + cause + " (all of it: " + folder_ / "build/setup.log" + ")\n";
    }

    TemporaryFolder folder_;
};

TEST_F(SetUp, AFailedStepShowsItsCauseInOneLine) {
    EXPECT_EQ(saidOf("x\ny.cpp:1:2: error: no such thing\n  1 | z\n"),
              line("y.cpp:1:2: error: no such thing 1 | z"));
    EXPECT_EQ(saidOf("Reading\nE: Could not get lock\n"), line("E: Could not get lock"));
    EXPECT_EQ(saidOf("a.o: undefined reference to `f()'\ncollect2: error: ld returned 1 exit status\n"),
              line("a.o: undefined reference to `f()' collect2: error: ld returned 1 exit status"));
}

TEST_F(SetUp, WordsThatNobodyForesawAreShownAsWell) {
    EXPECT_EQ(saidOf("set_up.sh: line 99: cmake: command not found\n\n"),
              line("set_up.sh: line 99: cmake: command not found"));
    EXPECT_EQ(saidOf("sudo: a terminal is required\nsudo: a password is required\n"),
              line("sudo: a password is required"));
    EXPECT_EQ(saidOf(""), line("no reason given"));
}

TEST_F(SetUp, AServerOutOfReachIsTheCauseOfPackagesThatAreNotFound) {
    EXPECT_EQ(
        saidOf("Err:1 http://packages stable InRelease\n  Could not resolve 'packages'\nW: Some failed\n"
               "E: Unable to locate package cmake\n"),
        line("E: Unable to locate package cmake; Err:1 http://packages stable InRelease Could not resolve "
             "'packages'"));
}

TEST_F(SetUp, ABuildFolderThatCannotBeUsedShowsWhy) {
    std::ofstream(folder_ / "build") << "in the way";
    EXPECT_EQ(with("install_packages").err, "run: cannot make " + folder_ / "build" + ": File exists\n");
    std::filesystem::remove(folder_ / "build");
    std::filesystem::create_directories(folder_ / "build/setup.log");
    EXPECT_EQ(with("install_packages").err,
              "run: cannot write " + folder_ / "build/setup.log" + ": Is a directory\n");
}

} // namespace
} // namespace chromalog::test
