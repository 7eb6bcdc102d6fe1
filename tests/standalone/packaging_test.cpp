// What is installed beside the program tells of each of its options, and of one version and its day.
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace chromalog {
namespace {

using testing::HasSubstr;

std::string read(const std::string& path) {
    std::ifstream in(path);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string contents(const std::string& file) {
    return read(CHROMALOG_SOURCE_DIR "/packaging/" + file);
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

/// What the pattern's group stands for in the text, where it matches first.
std::string found(const std::string& text, const char* pattern) {
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1].str() : "nothing";
}

TEST(Packaging, TheVersionIsTheNewestOfTheChanges) {
    const std::string newest = found(read(CHROMALOG_SOURCE_DIR "/CHANGELOG.md"), "\n## ([0-9.]+)");
    EXPECT_EQ(newest, CHROMALOG_VERSION);
    EXPECT_EQ(runProgram({CHROMALOG_PROGRAM, "--version"}, {}).out, "chromalog " + newest + "\n");
    EXPECT_EQ(found(read(CHROMALOG_SOURCE_DIR "/src/plugin/Info.plist.in"),
                    "CFBundleShortVersionString</key>\\s*<string>([^<]*)"),
              "@PROJECT_VERSION@");
}

TEST(Packaging, EveryPageTellsTheVersionAndItsDay) {
    const std::string made = CHROMALOG_MADE_PAGES "/";
    const std::string metadata = read(made + "org.chromalog.Chromalog.metainfo.xml");
    EXPECT_EQ(found(metadata, "<release version=\"([^\"]*)\""), CHROMALOG_VERSION);
    EXPECT_EQ(found(metadata, "<release [^>]*date=\"([^\"]*)\""), CHROMALOG_RELEASE_DATE);
    const std::string log = read(made + "changelog");
    EXPECT_EQ(found(log, "chromalog \\(([^)]*)"), CHROMALOG_VERSION);
    const std::string day = runProgram({"date", "-u", "-d", CHROMALOG_RELEASE_DATE " 12:00", "-R"}, {}).out;
    EXPECT_EQ(found(log, "  ([A-Z][a-z]+, .*)") + "\n", day);
    for (const char* page : {"", "-convert", "-nearest", "-pick", "-recover"}) {
        const std::string text = read(made + "chromalog" + page + ".1");
        EXPECT_EQ(found(text, "\n\\.Os Chromalog (.*)"), CHROMALOG_VERSION) << page;
        const std::string date = found(text, "^\\.Dd (.*)");
        EXPECT_EQ(runProgram({"date", "-u", "-d", date, "+%Y-%m-%d"}, {}).out, CHROMALOG_RELEASE_DATE "\n");
    }
    EXPECT_EQ(read(CHROMALOG_PACKAGE_DAY),
              "set(ENV{SOURCE_DATE_EPOCH} " +
                  found(runProgram({"date", "-u", "-d", CHROMALOG_RELEASE_DATE " 12:00", "+%s"}, {}).out,
                        "([0-9]+)") +
                  ")\n");
}

} // namespace
} // namespace chromalog
