// The program and the real plug-in together, as a person starts them from a shell.
#include "support/run_program.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <unistd.h>

namespace chromalog {
namespace {

namespace fs = std::filesystem;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

struct ProgramWithPlugIn : ::testing::Test {
    ProgramWithPlugIn() { fs::create_directories(folder); }
    ~ProgramWithPlugIn() override { fs::remove_all(folder); }

    ProgramResult run(std::vector<std::string> words, const std::string& platform = "offscreen",
                      const std::string& theme = "", const std::string& forms = "") {
        words.insert(words.begin(), {CHROMALOG_PROGRAM, "--data-dir", (folder / "data").string()});
        return runProgram(words, {{"QT_QPA_PLATFORM", platform},
                                  {"QT_QPA_PLATFORMTHEME", theme},
                                  {"CHROMALOG_FORMS", forms},
                                  {"DISPLAY", ""},
                                  {"WAYLAND_DISPLAY", ""},
                                  {"XDG_CONFIG_HOME", (folder / "config").string()},
                                  {"CHROMALOG_STRICT", "1"}});
    }
    const fs::path folder = fs::path(::testing::TempDir()) / ("with_plugin_" + std::to_string(getpid()));
};

TEST_F(ProgramWithPlugIn, AcceptPrintsTheFirstColour) {
    const ProgramResult result = run({"--color", "#3366cc", "--accept", "--format", "rgb16"});
    EXPECT_EQ(result.out, "58981 19660 6553\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

TEST_F(ProgramWithPlugIn, CancelPrintsTheOfferedColour) {
    const ProgramResult result = run({"--color", "#3366cc", "--cancel"});
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_EQ(result.exitCode, 1) << result.err;
}

TEST_F(ProgramWithPlugIn, AcceptingTheColourThatWasOfferedIsNoChange) {
    EXPECT_EQ(run({"--color", "rgb:58981,19660,6553", "--accept"}).exitCode, 1);
}

TEST_F(ProgramWithPlugIn, TwoPicksPrintTwoColours) {
    const ProgramResult result = run({"--color", "red", "--accept", "--picks", "2", "--format", "rgb16"});
    EXPECT_EQ(result.out, "58981 19660 6553\n58981 19660 6553\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

// Reading its own icon as any picture would load a library for each kind of picture, before the window.
TEST_F(ProgramWithPlugIn, NoReaderOfPicturesIsLoadedForTheWindow) {
    ::setenv("QT_DEBUG_PLUGINS", "1", 1);
    const ProgramResult result = run({"--cancel"});
    ::unsetenv("QT_DEBUG_PLUGINS");
    EXPECT_THAT(result.err, HasSubstr("libqoffscreen.so\" loaded library")); // the way it is told
    EXPECT_THAT(result.err, Not(ContainsRegex("imageformats/[a-z]*.so\" loaded library")));
}

/// The titles in the state of a dialog that is opened and closed.
std::string titlesWith(ProgramWithPlugIn& program, std::vector<std::string> words) {
    const fs::path script = program.folder / "script", state = program.folder / "state.json";
    std::ofstream(script) << "state '" << state.string() << "'\n";
    words.insert(words.end(), {"--drive", script.string()});
    EXPECT_EQ(program.run(words).err, "");
    std::ifstream in(state);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST_F(ProgramWithPlugIn, AScriptIsInTheLanguageThatIsAskedForAndElseInEnglish) {
    ::setenv("CHROMALOG_LANGUAGE", "fr", 1); // for persons
    EXPECT_THAT(titlesWith(*this, {}), HasSubstr("Use 1st color"));
    ::unsetenv("CHROMALOG_LANGUAGE");
    EXPECT_THAT(titlesWith(*this, {"--language", "de"}), HasSubstr("1. Farbe verwenden"));
    EXPECT_THAT(titlesWith(*this, {"--language", "fr"}), HasSubstr("Utiliser la 1re couleur"));
    EXPECT_THAT(titlesWith(*this, {"--language", "ar-XB"}), HasSubstr("[Use 1st colorssss]"));
}

TEST_F(ProgramWithPlugIn, RefusedMemoryIsExit3) {
    EXPECT_EQ(run({"--fail", "new", "--accept"}).exitCode, 3);
    EXPECT_EQ(run({"--fail", "lock", "--accept"}).exitCode, 3);
}

TEST_F(ProgramWithPlugIn, TheAboutCallEndsQuietly) {
    const ProgramResult result = run({"--about"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
}

TEST_F(ProgramWithPlugIn, WithoutItsPlayerAPlugInSaysSoAndThePickEnds) {
    const fs::path alone = folder / "Chromalog.so";
    fs::copy_file(CHROMALOG_MODULE, alone);
    std::ofstream(folder / "script") << "ok\n";
    const std::vector<std::vector<std::string>> options{{"--accept"},
                                                        {"--cancel"},
                                                        {"--screenshot", (folder / "shot.png").string()},
                                                        {"--drive", (folder / "script").string()}};
    for (const std::vector<std::string>& asked : options) {
        std::vector<std::string> words{"--plugin", alone.string(), "--color", "#3366cc"};
        words.insert(words.end(), asked.begin(), asked.end());
        const ProgramResult result = run(words);
        EXPECT_EQ(result.exitCode, 2) << asked.front() << result.err;
        EXPECT_THAT(result.err, HasSubstr("Chromalog: the pick ended: scripts cannot be played: " +
                                          (folder / "ChromalogDrive.so").string()))
            << asked.front();
    }
}

TEST_F(ProgramWithPlugIn, WithoutItsPlayerAPlugInReadsNoInterfaceFiles) {
    const fs::path alone = folder / "Chromalog.so";
    fs::copy_file(CHROMALOG_MODULE, alone);
    std::ofstream(folder / "chromalogWindow.ui") << "<ui version=\"4.0\"/>";
    const ProgramResult result =
        run({"--plugin", alone.string(), "--color", "#3366cc"}, "offscreen", "", folder.string());
    EXPECT_EQ(result.out, "#3366cc\n") << "as offered";
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err,
                HasSubstr("interface files cannot be read: " + (folder / "ChromalogDrive.so").string()));
}

TEST_F(ProgramWithPlugIn, WithoutItsPlayerAPlugInShowsItsDialogWhereNoScriptIsAskedFor) {
    const fs::path alone = folder / "Chromalog.so";
    fs::copy_file(CHROMALOG_MODULE, alone);
    const ProgramResult result =
        runProgram({"timeout", "--preserve-status", "-s", "KILL", "1", CHROMALOG_PROGRAM, "--data-dir",
                    (folder / "data").string(), "--plugin", alone.string()},
                   {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(result.exitCode, 137) << "until it is killed: " << result.err;
}

TEST_F(ProgramWithPlugIn, TheScreenshotIsAPicture) {
    const fs::path picture = folder / "dialog.png";
    EXPECT_EQ(run({"--screenshot", picture.string(), "--accept"}).exitCode, 0);
    ASSERT_TRUE(fs::exists(picture));
    EXPECT_GT(fs::file_size(picture), 1000u);
}

TEST_F(ProgramWithPlugIn, ABadScriptEndsWithItsLineAndExit2) {
    const fs::path script = folder / "script.txt";
    fclose(fopen(script.c_str(), "w"));
    FILE* file = fopen(script.c_str(), "w");
    fputs("wait 1\nfly to the moon\n", file);
    fclose(file);
    const ProgramResult result = run({"--drive", script.string()});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("script.txt:2"));
    EXPECT_EQ(result.out, "");
}

void expectNoDisplay(const ProgramResult& result, const std::string& platform) {
    EXPECT_EQ(result.exitCode, 1) << platform;
    EXPECT_EQ(result.out, "#ff0000\n") << platform;
    EXPECT_EQ(result.err, "Chromalog: there is no display to show the dialog on\n") << platform;
}

TEST_F(ProgramWithPlugIn, WithoutADisplayNothingChanges) {
    for (const char* platform : {"", "xcb", "wayland", "no-such-platform", "wayland;xcb:options"})
        expectNoDisplay(run({"--color", "red", "--accept"}, platform), platform);
}

TEST_F(ProgramWithPlugIn, APlatformWithoutItsDeviceIsNoDisplay) {
    for (const char* platform : {"linuxfb:fb=/dev/null", "LinuxFb:fb=/no/such", "vkkhrdisplay"})
        expectNoDisplay(run({"--color", "red", "--accept"}, platform), platform);
    if (fs::exists("/dev/fb0") || fs::exists("/dev/dri")) GTEST_SKIP() << "there are devices to show it on";
    for (const char* platform : {"linuxfb", "eglfs", "minimalegl", "xcb;eglfs"})
        expectNoDisplay(run({"--color", "red", "--accept"}, platform), platform);
}

TEST_F(ProgramWithPlugIn, AThemeThatNeedsADisplayIsNotLoadedWithoutOne) {
    if (!fs::exists(CHROMALOG_QT_PLUGINS "/platformthemes/libqgtk3.so"))
        GTEST_SKIP() << "the theme is not installed (qt6-gtk-platformtheme)";
    for (const char* theme : {"gtk3", "GTK3"})
        expectNoDisplay(run({"--color", "red", "--accept"}, "offscreen", theme), theme);
    EXPECT_EQ(run({"--accept"}, "offscreen", "no-such-theme").exitCode, 0);
}

} // namespace
} // namespace chromalog
