// The program as a person or a script runs it, with a picker that has no dialog.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <unistd.h>

namespace chromalog {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using Words = std::vector<std::string>;

ProgramResult run(const Words& words, const std::string& behaviour = {}, const std::string& strict = "1") {
    Words command{CHROMALOG_PROGRAM, "--plugin", TEST_PICKER_MODULE};
    command.insert(command.end(), words.begin(), words.end());
    return runProgram(command, {{"TEST_PICKER", behaviour}, {"CHROMALOG_STRICT", strict}});
}

TEST(Program, PrintsThePickedColourInTheAskedFormat) {
    const std::pair<const char*, const char*> cases[]{
        {"hex", "#cc9933\n"},
        {"rgb8", "204 153 51\n"},
        {"rgb16", "52428 39321 13107\n"},
        {"css", "rgb(204, 153, 51)\n"},
        {"json", "{\"hex\": \"#cc9933\", \"rgb8\": [204, 153, 51], \"rgb16\": [52428, 39321, 13107]}\n"}};
    for (const auto& [format, printed] : cases) {
        const ProgramResult result = run({"--color", "#3366cc", "--accept", "--format", format});
        EXPECT_EQ(result.out, printed);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
    }
}

TEST(Program, PrintsTheOfferedColourAndExits1WhereTheComponentsAreAsOffered) {
    const std::pair<const char*, const char*> cases[]{{"#3366cc", "#3366cc\n"},
                                                      {"#36c", "#3366cc\n"},
                                                      {"RebeccaPurple", "#663399\n"},
                                                      {"rgb:13107,26214,52428", "#3366cc\n"},
                                                      {"hsb:0,65535,65535", "#ff0000\n"},
                                                      {"hsb:32768,65535,65535", "#00ff22\n"},
                                                      {"cmyk:65535,65535,65535,65535", "#ffffff\n"},
                                                      {"lab:65535,32768,32768", "#ffffff\n"},
                                                      {"gray:32896,0,0", "#808080\n"},
                                                      {"gray:65535", "#ffffff\n"}};
    for (const auto& [offered, printed] : cases) {
        const ProgramResult result = run({"--color", offered, "--color-services", "closed"});
        EXPECT_EQ(result.out, printed) << offered;
        EXPECT_EQ(result.exitCode, 1) << offered;
    }
}

TEST(Program, AnAnswerToAnotherSpaceIsRgb) {
    const ProgramResult result =
        run({"--color", "cmyk:1000,2000,3000,4000", "--accept", "--format", "rgb16"});
    EXPECT_EQ(result.out, "64535 63535 62535\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(Program, OffersABlueWhereNoColourIsGiven) {
    EXPECT_EQ(run({}).out, "#3366cc\n");
}

TEST(Program, ABadArgumentIsOneLineAndExit2) {
    const std::pair<Words, const char*> cases[]{
        {{"--color", "bleu"}, "not a colour: bleu"},
        {{"nowhere.gpl"}, "FILE: File does not exist: nowhere.gpl\n"},
        {{"--color", "#12345"}, "not a colour"},
        {{"--color", "#12345g"}, "not a colour"},
        {{"--color", "rgb:1,2"}, "not a colour: rgb:1,2; missing: blue\n"},
        {{"--color", "cmyk:1,2,3"}, "missing: black\n"},
        {{"--color", "gray:"}, "missing: gray\n"},
        {{"--color", "rgb:1,2,65536"}, "not a colour"},
        {{"--color", "rgb:1,2,-3"}, "not a colour"},
        {{"--color", "rgb:1,2,3,4,5"}, "not a colour"},
        {{"--color", "rgb:1,2,3,"}, "not a colour"},
        {{"--color", "xyz:1,2,3"}, "not a colour"},
        {{"--color", ""}, ""},
        {{"--color"}, "--color lacks its value: COLOUR\n"},
        {{"--color="}, "--color lacks its value: COLOUR\n"},
        {{"--color=", "--accept"}, "--color lacks its value: COLOUR\n"},
        {{"--color", "--accept"}, "--color lacks its value: COLOUR\n"},
        {{"--color", "--format=css"}, "--color lacks its value: COLOUR\n"},
        {{"--color=#123456", "--data-dir="}, "--data-dir lacks its value: DIR\n"},
        {{"--format"}, "--format lacks its value: hex|rgb8|rgb16|css|json\n"},
        {{"--accept", "--format"}, "--format lacks its value: hex|rgb8|rgb16|css|json\n"},
        {{"--accept="}, "--accept lacks its value: true|false\n"},
        {{"--accept=maybe"}, "--accept"},
        {{"--format", "bmp"}, "--format"},
        {{"--zork"}, "--zork"},
        {{"word"}, "word"},
        {{"--accept", "--cancel"}, "--accept excludes --cancel\n"},
        {{TEST_PICKER_MODULE, "--accept"}, "chromalog: --accept excludes FILE\n"},
        {{"--cancel", TEST_PICKER_MODULE}, "chromalog: --cancel excludes FILE\n"},
        {{"--picks", "0"}, "--picks"},
        {{"--picks", "many"}, "--picks"},
        {{"--host-version", "0"}, "--host-version"},
        {{"--fail", "often"}, "--fail"},
        {{"--component-scale", "12"}, "--component-scale"},
        {{"--color-services", "some"}, "--color-services"},
        {{"--drive", "/nowhere/script"}, "/nowhere/script"},
        {{"--books", "/nowhere/books"}, "/nowhere/books"},
        {{"--data-dir", TEST_PICKER_MODULE}, "is no directory"},
        {{"--data-dir", ""}, "empty"},
        {{"--data-dir", "/proc/nowhere"}, "cannot be made"},
        {{"--data-dir", TEST_PICKER_MODULE "/below"}, "cannot be made"},
        {{"recover"}, "NAME"},
        {{"recover", "--list", "before"}, "excludes"},
        {{"recover", "--list", "--data-dir", ""}, "empty"},
        {{"recover", "nothing", "--data-dir", "/nowhere"}, "nothing"},
        {{"recover", "../../etc/passwd", "--data-dir", "/nowhere"}, "no copy is named '../../etc/passwd'\n"},
        {{"recover", "a\x1b[31m", "--data-dir", "/nowhere"}, "no copy is named 'a\\x1b[31m'\n"},
        {{"recover", "--list", "--data-dir", TEST_PICKER_MODULE},
         "chromalog: cannot read " TEST_PICKER_MODULE "/Quorvex: Not a directory\n"},
        {{"recover", "before", "--data-dir", TEST_PICKER_MODULE}, "/Quorvex: Not a directory\n"},
        {{"--screenshot", "/nowhere/shot.png"}, "/nowhere"},
        {{"--screenshot", "/tmp"}, "/tmp"},
        {{"--screenshot", "shot.jpg"}, "no .png file: shot.jpg"},
        {{"--screenshot", "png"}, "no .png file: png"},
        {{"--cmyk-profile", "/nowhere/profile.icc"}, "/nowhere/profile.icc"},
        {{"--language", "it"}, "no language it is known; these are: en, de, fr"},
        {{"--language", "DE"}, "no language DE is known; these are: en, de, fr"},
        {{"--language", ""}, "no language '' is known; these are: en, de, fr"},
        {{"--language"}, "--language lacks its value: en|de|fr"},
        {{"--cmyk-profile", TEST_PICKER_MODULE},
         "cannot read a colour profile from " TEST_PICKER_MODULE ": "},
        {{"--plugin", "/nowhere/plugin.so"}, "--plugin"}};
    for (const auto& [words, message] : cases) {
        const ProgramResult result = run(words);
        EXPECT_EQ(result.exitCode, 2) << words.front();
        EXPECT_EQ(result.out, "") << words.front();
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
}

TEST(Program, AFlagThatIsTakenBackIsNotGiven) {
    for (const char* word : {"--accept=false", "--accept=0", "--accept=no"}) {
        const ProgramResult result = run({word, "--color", "#3366cc"});
        EXPECT_EQ(result.out, "#3366cc\n") << word;
        EXPECT_EQ(result.exitCode, 1) << word;
    }
    EXPECT_EQ(run({"--accept=true", "--color", "#3366cc"}).out, "#cc9933\n");
    EXPECT_EQ(run({"--accept", "--cancel=false", "--color", "#3366cc"}).out, "#cc9933\n");
    EXPECT_EQ(run({"--about=false", "--color", "#3366cc"}).out, "#3366cc\n");
}

TEST(Program, AValueMayLookLikeAnythingButAnOption) {
    EXPECT_EQ(run({"--color=red", "--data-dir", "--nowhere"}).out, "#ff0000\n");
    EXPECT_EQ(run({"--data-dir=--accept", "--color", "red"}).out, "#ff0000\n");
    EXPECT_EQ(run({"--data-dir", "a=b", "--color", "red"}).out, "#ff0000\n");
    const test::TemporaryFolder folder;
    const ProgramResult ending = run({"--data-dir=" + std::string(folder / "a="), "--color", "red"});
    EXPECT_EQ(ending.out, "#ff0000\n") << ending.err;
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a="));
}

/// The program behind a shell's redirection.
ProgramResult runTo(const std::string& where, const std::string& options) {
    const std::string command =
        "exec '" CHROMALOG_PROGRAM "' --plugin '" TEST_PICKER_MODULE "' " + options + where;
    return runProgram({"sh", "-c", command}, {{"CHROMALOG_STRICT", "1"}});
}

TEST(Program, WhereTheColourCannotBePrintedItIsSaidAndTheExitCodeIs2) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    ::close(pipe[0]); // nobody reads
    const std::pair<std::string, const char*> cases[]{{" >/dev/full", "No space left on device"},
                                                      {" >&-", "Bad file descriptor"},
                                                      {" >&" + std::to_string(pipe[1]), "Broken pipe"}};
    for (const auto& [where, cause] : cases) {
        const ProgramResult result = runTo(where, "--color '#3366cc' --accept --picks 2");
        EXPECT_EQ(result.err, std::string("chromalog: cannot write to standard output: ") + cause +
                                  "; the colour is #cc9933\n");
        EXPECT_EQ(result.exitCode, 2) << where;
        const ProgramResult help = runTo(where, "--help");
        EXPECT_EQ(help.err, std::string("chromalog: cannot write to standard output: ") + cause + "\n");
        EXPECT_EQ(help.exitCode, 2) << where;
    }
    ::close(pipe[1]);
}

TEST(Program, ClosedStreamsDoNotPassToOtherFiles) {
    // The module is the first file that is opened: what is printed must not go where it lies.
    const ProgramResult result = runTo(" <&- >&- 2>&-", "--color '#3366cc' --accept");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out + result.err, "");
}

TEST(Program, AModuleWithoutAnEntryOrNoModuleAtAllIsABadFile) {
    for (const char* file : {NO_ENTRY_MODULE, CHROMALOG_PROGRAM "_missing", __FILE__}) {
        const ProgramResult result = runProgram({CHROMALOG_PROGRAM, "--plugin", file});
        EXPECT_EQ(result.exitCode, 2) << file;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
}

TEST(Program, FindsThePlugInBesideItself) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(::testing::TempDir()) / ("beside" + std::to_string(getpid()));
    fs::create_directories(folder / "bin");
    fs::create_directories(folder / "lib/chromalog");
    fs::copy_file(CHROMALOG_PROGRAM, folder / "bin/chromalog");
    const std::string program = folder / "bin/chromalog";
    EXPECT_EQ(runProgram({program}).exitCode, 2);
    fs::copy_file(TEST_PICKER_MODULE, folder / "lib/chromalog/Chromalog.so");
    EXPECT_EQ(runProgram({program, "--color", "red"}).out, "#ff0000\n") << "installed";
    fs::rename(folder / "lib/chromalog/Chromalog.so", folder / "bin/Chromalog.so");
    EXPECT_EQ(runProgram({program, "--color", "red"}).out, "#ff0000\n") << "build tree";
    fs::remove_all(folder);
}

TEST(Program, RunsSeveralPicksOnTheColourThatItThenHolds) {
    const ProgramResult result = run({"--color", "#3366cc", "--accept", "--picks", "3"});
    EXPECT_EQ(result.out, "#cc9933\n#3366cc\n#cc9933\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(Program, RefusedMemoryIsExit3) {
    for (const char* when : {"new", "lock"}) {
        const ProgramResult result = run({"--fail", when, "--accept"});
        EXPECT_EQ(result.exitCode, 3) << when;
        EXPECT_EQ(result.out, "") << when;
        EXPECT_EQ(result.err, "chromalog: the plug-in could not get its memory\n") << when;
    }
}

TEST(Program, TheAboutCallShowsAndPrintsNothing) {
    const ProgramResult result = run({"--about"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out + result.err, "");
}

TEST(Program, MisuseIsNamedAndFatalInStrictRuns) {
    const std::string line =
        "chromalog: misuse of the host: lockProc: handle 1 is still locked at the end of the call\n";
    const ProgramResult lenient = run({"--accept"}, "leave locked", "");
    EXPECT_EQ(lenient.err, line);
    EXPECT_EQ(lenient.exitCode, 0);
    const ProgramResult strict = run({"--accept"}, "leave locked");
    EXPECT_EQ(strict.err, line);
    EXPECT_EQ(strict.exitCode, 4);
}

TEST(Program, WhatThePlugInWritesWhileItIsUnloadedIsSeen) {
    const ProgramResult result = run({"--accept", "--picks", "2"}, "write late");
    EXPECT_EQ(result.err, "chromalog: misuse of the host: PluginMain: the record was written after the call: "
                          "2 bytes from offset 194\n");
    EXPECT_EQ(result.exitCode, 4);
}

TEST(Program, WhatThePlugInCallsWhileItIsUnloadedIsSeen) {
    const ProgramResult result = run({"--accept", "--color", "#3366cc"}, "call late");
    EXPECT_EQ(result.err,
              "chromalog: misuse of the host: IsEqual: called while no call of the plug-in runs\n");
    EXPECT_EQ(result.out, "#cc9933\n");
    EXPECT_EQ(result.exitCode, 4);
}

TEST(Program, EndsAsThePlugInAsksAndStartsNoFurtherPick) {
    const ProgramResult result = run({"--accept", "--picks", "3"}, "end with 7");
    EXPECT_EQ(result.exitCode, 7);
    EXPECT_EQ(result.out, "");
}

TEST(Program, AnErrorOfThePlugInIsShownAndNoColourPrinted) {
    const ProgramResult reported = run({"--accept"}, "report");
    EXPECT_EQ(reported.exitCode, 5);
    EXPECT_EQ(reported.err, "chromalog: the picker has no colours left\n");
    const ProgramResult failed = run({"--accept"}, "fail");
    EXPECT_EQ(failed.exitCode, 5);
    EXPECT_EQ(failed.err, "chromalog: the plug-in ended with error 12\n");
    EXPECT_EQ(failed.out, "");
}

TEST(Program, ControlCharactersInWhatIsSaidDoNotReachTheTerminal) {
    EXPECT_EQ(run({"--accept"}, "report controls").err,
              "chromalog: red \\x1b[31m\\x0d\\x0a\\x7f, \\x9b31m, \xc3\xa9\xc2\xa0\n");
    const std::string wrongColour = run({"--color", "\x1b[31mred\xc2\n"}).err;
    EXPECT_EQ(wrongColour, "chromalog: not a colour: \\x1b[31mred\xc2\\x0a\n");
}

TEST(Program, VerboseTellsWhatIsUsed) {
    const std::string plain = run({"--verbose"}).err;
    EXPECT_THAT(plain, HasSubstr("chromalog: plug-in " TEST_PICKER_MODULE "\n"));
    EXPECT_THAT(plain, HasSubstr("chromalog: host version 16, components of 16 bits\n"));
    EXPECT_THAT(plain, HasSubstr("chromalog: colour conversions by Little CMS, CMYK "));
    EXPECT_THAT(plain, HasSubstr("chromalog: misuse of the host is fatal\n"));
    EXPECT_THAT(plain, Not(HasSubstr("data-dir")));
    EXPECT_THAT(run({"--verbose", "--color-services", "closed"}).err,
                HasSubstr("chromalog: colour conversions by the closed form\n"));
    EXPECT_THAT(run({"--verbose", "--color-services", "none"}).err,
                HasSubstr("; the plug-in is offered none\n"));
    EXPECT_THAT(run({"--verbose", "--color-services", "error"}).err,
                HasSubstr("; those that the plug-in asks for fail\n"));
    const std::string other = run({"--verbose", "--host-version", "13", "--component-scale", "8",
                                   "--data-dir", "/d", "--books", "/"},
                                  {}, "")
                                  .err;
    EXPECT_THAT(other, HasSubstr("chromalog: host version 13, components of 8 bits\n"));
    EXPECT_THAT(other, HasSubstr("chromalog: data-dir /d\n"));
    EXPECT_THAT(other, HasSubstr("chromalog: books /\n"));
    EXPECT_THAT(other, Not(HasSubstr("fatal")));
    EXPECT_EQ(run({}).err, "");
}

TEST(Program, EightBitComponentsAreOfferedAndReadAsBytes) {
    const ProgramResult offered = run({"--component-scale", "8", "--color", "#3366cc"});
    EXPECT_EQ(offered.out, "#3366cc\n");
    // The picker answers 65535 - 51 and so on: more than a byte holds.
    EXPECT_EQ(run({"--component-scale", "8", "--color", "#3366cc", "--accept"}).out, "#ffffff\n");
}

TEST(Program, AMissingDataFolderIsMadeWithItsParents) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(::testing::TempDir()) / ("data" + std::to_string(getpid()));
    EXPECT_EQ(run({"--data-dir", folder / "a/b/c"}).err, "");
    EXPECT_TRUE(fs::is_directory(folder / "a/b/c"));
    EXPECT_EQ(run({"--data-dir", folder / "a/b/c"}).err, "");
    if (getuid() == 0 && othersReach(CHROMALOG_PROGRAM)) { // a folder that somebody else cannot read
        fs::permissions(folder / "a", fs::perms(0700));
        fs::permissions(folder, fs::perms(0755));
        const ProgramResult other =
            runProgram({"setpriv", "--reuid", "65534", "--clear-groups", CHROMALOG_PROGRAM, "--plugin",
                        TEST_PICKER_MODULE, "--data-dir", folder / "a"});
        EXPECT_EQ(other.exitCode, 2);
        EXPECT_THAT(other.err, HasSubstr("cannot be read: Permission denied"));
    }
    fs::remove_all(folder);
}

TEST(Program, WithoutCopiesThereIsNothingToRecover) {
    const ProgramResult result = run({"recover", "--list", "--data-dir", "/nowhere"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("no earlier lists"));
    EXPECT_FALSE(std::filesystem::exists("/nowhere"));
}

TEST(Program, AFolderThatMayNotBeReadIsNotOneWithoutCopies) {
    if (getuid() != 0 || !othersReach(CHROMALOG_PROGRAM)) GTEST_SKIP() << "nobody else can be played";
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder / "Quorvex");
    std::filesystem::permissions(folder / "Quorvex", std::filesystem::perms(0700));
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    const ProgramResult other =
        runProgram({"setpriv", "--reuid", "65534", "--clear-groups", CHROMALOG_PROGRAM, "recover", "--list",
                    "--data-dir", folder.path()});
    EXPECT_THAT(other.err, HasSubstr("/Quorvex: Permission denied\n"));
    EXPECT_EQ(other.exitCode, 2);
}

TEST(Program, ACopyThatIsDamagedIsListedAsThat) {
    const test::TemporaryFolder folder;
    const std::filesystem::path lists = folder / "Quorvex";
    std::filesystem::create_directories(lists);
    std::ofstream(lists / "com_Quorvex_Chromalog_64_3-50.prf.before") << "short";
    const ProgramResult result = run({"recover", "--list", "--data-dir", folder.path()});
    EXPECT_EQ(result.out, "before  damaged\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

TEST(Program, HelpAndVersionGoToStandardOutput) {
    const ProgramResult help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* option :
         {"--color",          "--format",          "--accept",  "--cancel",       "--option",
          "--screenshot",     "--drive",           "--books",   "--host-version", "--cmyk-profile",
          "--color-services", "--data-dir",        "--plugin",  "--picks",        "--about",
          "--fail",           "--component-scale", "--verbose", "--help",         "--version"})
        EXPECT_THAT(help.out, HasSubstr(option));
    for (const char* code : {"0 the", "1 it", "2 a bad", "3 the", "4 it", "5 it"})
        EXPECT_THAT(help.out, HasSubstr(code));
    EXPECT_EQ(run({"--version"}).out, "chromalog " CHROMALOG_VERSION "\n");
}

TEST(Program, HelpOfASubcommandTellsItsOwnExitCodes) {
    const std::string recover = run({"recover", "--help"}).out, pick = run({"pick", "--help"}).out;
    EXPECT_THAT(recover, HasSubstr("Exit code: 0 done; 2 there is no such copy"));
    for (const std::string& help : {recover, pick})
        EXPECT_EQ(help.find("as offered"), std::string::npos) << help;
    EXPECT_THAT(pick, HasSubstr("--format"));
}

} // namespace
} // namespace chromalog
