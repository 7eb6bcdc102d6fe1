// The program: what it says of plug-ins that do nothing wrong, and of files that are none.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace chromalog {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kSound = FAULTY_PLUGINS "/sound.so";

ProgramResult check(std::vector<std::string> words) {
    words.insert(words.begin(), PLUGIN_CHECK);
    return runProgram(words);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// A check that needs what a build with sanitizers has not.
const auto kMemoryIsNotKnown = StartsWith("skipped memory: what is allocated is not known");

void expectSound(const std::string& plugin) {
    const ProgramResult result = check({plugin, "--limit", "50"}); // on a busy machine
    EXPECT_EQ(result.exitCode, 0) << result.out << result.err;
    auto lines = linesOf(result.out);
    ASSERT_GT(lines.size(), 20u) << result.out;
    lines.pop_back(); // how many of each
    EXPECT_THAT(lines, Each(AnyOf(StartsWith("ok "), kMemoryIsNotKnown)));
}

TEST(PluginCheck, OurOwnPlugInPassesEveryCheck) {
    expectSound(CHROMALOG_MODULE);
}

TEST(PluginCheck, ASmallPlugInWithoutADialogPassesEveryCheck) {
    expectSound(kSound);
}

TEST(PluginCheck, MakesTheChecksThatAreNamed) {
    const ProgramResult result = check({kSound, "--only", "pick", "--only", "slot"});
    EXPECT_EQ(result.out, "ok pick\nok slot\n2 ok\n");
    EXPECT_EQ(result.exitCode, 0);
    const ProgramResult none = check({kSound, "--only", "no-such"});
    EXPECT_THAT(none.err, HasSubstr("no check is called no-such; --list names them"));
    EXPECT_EQ(none.exitCode, 2);
}

TEST(PluginCheck, ListsEachCheckWithWhatItProves) {
    const ProgramResult result = check({"--list"});
    EXPECT_THAT(result.out, HasSubstr("\nabout-call: the about call ends well\n"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_GT(linesOf(result.out).size(), 20u);
}

TEST(PluginCheck, TellsTheSameAsJson) {
    const auto all = nlohmann::json::parse(check({kSound, "--json", "--only", "two-picks"}).out);
    EXPECT_EQ(all.at("plugin"), kSound);
    ASSERT_EQ(all.at("checks").size(), 1u);
    const auto& one = all.at("checks")[0];
    EXPECT_EQ(one.at("name"), "two-picks");
    EXPECT_EQ(one.at("result"), "ok");
    EXPECT_EQ(one.at("proves"), "a second pick in a host run ends like the first");
    EXPECT_GT(one.at("seconds"), 0.0);
    EXPECT_FALSE(one.contains("faults"));
}

TEST(PluginCheck, TheListTellsTheSameAsJson) {
    const ProgramResult result = check({"--list", "--json"});
    EXPECT_EQ(result.exitCode, 0);
    const auto all = nlohmann::json::parse(result.out);
    std::string text;
    for (const auto& one : all.at("checks"))
        text += one.at("name").get<std::string>() + ": " + one.at("proves").get<std::string>() + "\n";
    EXPECT_EQ(text, check({"--list"}).out);
}

TEST(PluginCheck, WhatCannotBeCheckedIsToldAsJsonToo) {
    const std::pair<std::string, std::string> files[]{
        {"/none.so", "/none.so: no such file"},
        {FAULTY_PLUGINS "/needs_symbol.so", "cannot load the plug-in: "}};
    for (const auto& [file, says] : files) {
        const ProgramResult result = check({file, "--json", "--only", "pick"});
        EXPECT_EQ(result.exitCode, 2) << file;
        EXPECT_THAT(result.err, StartsWith("plugin_check: " + says));
        const auto all = nlohmann::json::parse(result.out);
        EXPECT_EQ(all.at("plugin"), file);
        EXPECT_THAT(all.at("error").get<std::string>(), StartsWith(says));
        EXPECT_TRUE(all.at("checks").empty());
    }
}

TEST(PluginCheck, EndsWhatHangs) {
    const ProgramResult result =
        check({FAULTY_PLUGINS "/about_hangs.so", "--only", "about-call", "--limit", "1"});
    EXPECT_EQ(result.out, "FAILED about-call: did not end within 1 s\n1 FAILED\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST(PluginCheck, TellsOfAFaultThatIsMadeAgainAndAgainInFourLines) {
    const ProgramResult result =
        check({FAULTY_PLUGINS "/leaks_handle.so", "--only", "handles", "--only", "descriptors"});
    EXPECT_THAT(result.out, HasSubstr("FAILED handles: newProc: handle 4 was not disposed of\n"
                                      "FAILED handles: and 2 more\n"));
    EXPECT_EQ(linesOf(result.out).size(), 6u) << "descriptors, four lines, the sum";
}

TEST(PluginCheck, WithoutPicksNoPickIsMade) {
    const ProgramResult result = check({FAULTY_PLUGINS "/fails_always.so", "--no-pick"});
    EXPECT_EQ(result.out, "ok exports\nok about-call\n2 ok\n");
}

TEST(PluginCheck, ForADebuggerItStaysInItsProcess) {
    const ProgramResult result = check({FAULTY_PLUGINS "/null_names.so", "--here", "pick"});
    EXPECT_THAT(result.out, HasSubstr("FAILED arguments: AcquireSuite: null name\n"));
    EXPECT_EQ(result.exitCode, 1);
}

TEST(PluginCheck, FilesThatAreNoPlugInAreOneLine) {
    const test::TemporaryFolder folder;
    std::ofstream(folder / "text.so") << std::string(1000, 'a');
    std::ofstream(folder / "short.so") << "\x7F"
                                          "ELF";
    const std::pair<std::string, std::string> files[]{
        {folder / "none.so", ": no such file"},
        {folder.path(), " is no file"},
        {"/dev/zero", " is no file"},
        {folder / "text.so", " is no library: no ELF file"},
        {folder / "short.so", " is no library: the file is cut short"},
    };
    for (const auto& [file, says] : files) {
        const ProgramResult result = check({file});
        EXPECT_EQ(result.err, "plugin_check: " + file + says + "\n");
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.exitCode, 2) << file;
    }
    EXPECT_EQ(check({}).err, "plugin_check: which plug-in? plugin_check FILE.so\n");
}

TEST(PluginCheck, WithoutWhatPressesOkNothingIsChecked) {
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(CHROMALOG_MODULE, folder / "Chromalog.so"); // without its player
    const ProgramResult result = check({folder / "Chromalog.so", "--only", "pick"});
    EXPECT_EQ(result.err, "plugin_check: the plug-in asked the host to end, with exit code 2\n");
    EXPECT_EQ(result.exitCode, 2);
}

TEST(PluginCheck, AModuleThatCannotBeLoadedIsOneLine) {
    const ProgramResult result = check({FAULTY_PLUGINS "/needs_symbol.so"});
    EXPECT_THAT(result.err, StartsWith("plugin_check: cannot load the plug-in: "));
    EXPECT_EQ(linesOf(result.err).size(), 1u) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.exitCode, 2);
}

TEST(PluginCheck, AProgramHasNoEntry) {
    const ProgramResult result = check({CHROMALOG_PROGRAM});
    EXPECT_EQ(result.out, "FAILED exports: no PluginMain is exported\n1 FAILED\n");
    EXPECT_EQ(result.exitCode, 1);
}

} // namespace
} // namespace chromalog
