// The list of deliberate faults, and what dev/mutate makes of outcomes: nothing is built or tested here.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <fstream>

namespace chromalog::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

ProgramResult python(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "python3");
    return runProgram(arguments, {{"PYTHONIOENCODING", "utf-8"}, {"PYTHONDONTWRITEBYTECODE", "1"}});
}

class Mutants : public testing::Test {
  protected:
    /// A list of one fault of this room, with the lines that are given beside its kind and file.
    void list(const std::string& lines) const {
        std::ofstream(listed() + "/base.txt")
            << "== A fault\nkind: arithmetic\nfile: src/base/file_name.h\n" + lines;
    }
    std::string listed() const { return folder_.path(); }

    ProgramResult mutate(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {CHROMALOG_SOURCE_DIR "/dev/mutate", "--list", listed()});
        return python(arguments);
    }

    /// The table, from an outcome of the one fault.
    ProgramResult told(const char* outcome) const {
        const auto key = python({"-c",
                                 "import sys; sys.path.insert(0, sys.argv[1]); from mutants import faults; "
                                 "print(faults.read(sys.argv[2])[0].key(), end='')",
                                 CHROMALOG_SOURCE_DIR "/dev", listed() + "/base.txt"});
        const std::string results = folder_ / "results.jsonl";
        std::ofstream(results) << json{{"key", key.out},
                                       {"outcome", outcome},
                                       {"by", "A.Test"},
                                       {"ran", "all tests"},
                                       {"seconds", 1.5}}
                               << '\n';
        return mutate({"--from", results});
    }

    const TemporaryFolder folder_;
};

constexpr const char* kGood = "- path.rfind('/') + 1\n+ path.rfind('/') + 0\n";

TEST(MutantsOfTheTree, AllApplyAndEveryRoomAndKindHasEnough) {
    const auto checked = python({CHROMALOG_SOURCE_DIR "/dev/mutate", "--check"});
    EXPECT_EQ(checked.exitCode, 0) << checked.err;
    EXPECT_THAT(checked.out, HasSubstr("all apply"));
}

TEST_F(Mutants, AFaultThatNoLongerAppliesFailsTheCommand) {
    list("- path.rfind('?')\n+ path.rfind('/')\n");
    const auto ran = mutate({"--from", "nothing"});
    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_THAT(ran.err, HasSubstr("base: A fault: its text stands no longer in src/base/file_name.h"));
}

TEST_F(Mutants, AFaultStandsOnceInItsFileAndChangesIt) {
    list("- path\n+ name\n");
    EXPECT_THAT(mutate({"--from", "nothing"}).err, HasSubstr("times in src/base/file_name.h"));
    list("- path.rfind('/')\n+ path.rfind('/')\n");
    EXPECT_THAT(mutate({"--from", "nothing"}).err, HasSubstr("changes nothing"));
}

TEST_F(Mutants, AShortListFailsTheCheck) {
    list(kGood);
    const auto checked = mutate({"--check"});
    EXPECT_EQ(checked.exitCode, 2);
    EXPECT_THAT(checked.err, AllOf(HasSubstr("base: 1 faults, fewer than 8"), HasSubstr("1 kinds, fewer"),
                                   HasSubstr("1 faults, fewer than 150")));
}

TEST_F(Mutants, WhatSurvivesIsNamedAndFails) {
    list(kGood);
    const auto survived = told("survived");
    EXPECT_EQ(survived.exitCode, 1) << survived.err;
    EXPECT_THAT(survived.out,
                AllOf(HasSubstr("survived all tests: base: A fault"), HasSubstr("0.0 % noticed")));
    const auto noticed = told("noticed");
    EXPECT_EQ(noticed.exitCode, 0) << noticed.err;
    EXPECT_THAT(noticed.out, AllOf(Not(HasSubstr("survived all")), HasSubstr("100.0 % noticed")));
}

TEST_F(Mutants, AnEquivalentThatATestNoticesIsNamed) {
    list(std::string(kGood) + "none: nobody could notice\n");
    EXPECT_THAT(told("survived").out, HasSubstr("base: A fault (equivalent: nobody could notice)"));
    EXPECT_THAT(told("noticed").out,
                HasSubstr("noticed, though it is called equivalent: base: A fault: A.Test"));
}

TEST_F(Mutants, ATestProgramThatHangsIsEndedWithWhatItStarted) {
    const auto ran =
        python({"-c",
                "import sys, time; sys.path.insert(0, sys.argv[1]); from mutants import trials; "
                "began = time.monotonic(); "
                "code, said = trials.run(['sh', '-c', 'echo begun; sleep 60 & wait'], None, 0.3, None); "
                "print(code, said.strip(), time.monotonic() - began < 30, end='')",
                CHROMALOG_SOURCE_DIR "/dev"});
    EXPECT_EQ(ran.out, "None begun True") << ran.err;
}

} // namespace
} // namespace chromalog::test
