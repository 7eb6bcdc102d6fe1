// What is installed beside the program tells of each of its options.
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace chromalog {
namespace {

using testing::HasSubstr;

std::string contents(const std::string& file) {
    std::ifstream in(std::string(CHROMALOG_PACKAGING) + "/" + file);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The long options of a command's help, without dashes.
std::set<std::string> optionsOf(const std::vector<std::string>& words) {
    std::vector<std::string> command{CHROMALOG_PROGRAM};
    command.insert(command.end(), words.begin(), words.end());
    command.push_back("--help");
    const std::string help = runProgram(command, {}).out;
    const std::regex option("\n +--([a-z-]+)");
    std::set<std::string> names;
    for (std::sregex_iterator match(help.begin(), help.end(), option), end; match != end; ++match)
        names.insert((*match)[1]);
    return names;
}

TEST(Packaging, ManualAndCompletionsTellEveryOption) {
    for (const std::string command : {"", "convert", "nearest", "pick", "recover"}) {
        const auto options = optionsOf(command.empty() ? std::vector<std::string>{} : std::vector{command});
        ASSERT_FALSE(options.empty()) << command;
        const std::string page = contents("man/chromalog" + (command.empty() ? "" : "-" + command) + ".1.in");
        for (const std::string& name : options) {
            if (name != "help" || command.empty()) EXPECT_THAT(page, HasSubstr("Fl -" + name)) << command;
            EXPECT_THAT(contents("completions/chromalog.bash"), HasSubstr("--" + name)) << command;
            EXPECT_THAT(contents("completions/_chromalog"), HasSubstr("--" + name)) << command;
            EXPECT_THAT(contents("completions/chromalog.fish"), HasSubstr("-l " + name)) << command;
        }
    }
}

} // namespace
} // namespace chromalog
