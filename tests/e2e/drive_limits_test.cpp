// Whole picks where the system grants little: file sizes.
#include "e2e/driven_pick.h"
#include "support/swatch_files.h"

namespace chromalog::test {
namespace {

using testing::HasSubstr;

class DriveLimits : public DrivenPick {
  protected:
    /// Under a file-size limit of so many KiB, which holds for what the program prints as well.
    ProgramResult playUnderLimit(int kib, const std::string& script, const std::string& more = "",
                                 const std::string& redirection = "") {
        writeScript(script);
        const std::string limited =
            "ulimit -f " + std::to_string(kib) + " && exec \"$0\" \"$@\"" + redirection;
        std::vector<std::string> words{"bash", "-c", limited};
        for (const std::string& word : command({"--drive", file("script")}))
            words.push_back(word);
        if (!more.empty()) words.push_back(more);
        return runProgram(words, environment_);
    }
};

TEST_F(DriveLimits, APreferencesFileThatIsTooLongIsNotWrittenAndThePickGoesOn) {
    const auto result = playUnderLimit(100, "press okButton alt\nok\n");
    EXPECT_EQ(result.exitCode, 1) << result.err; // the second colour is the offered one
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_FALSE(std::filesystem::exists(file("data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf")));
}

TEST_F(DriveLimits, NothingThatIsWrittenKillsTheHost) {
    FileBuilder builder;
    builder.header(2, 200);
    for (int i = 0; i < 200; ++i)
        builder.colour(0, i, 0, 0).name("a name that makes the file longer than the limit");
    write("long.aco", builder.bytes);
    const std::string scripts[] = {
        "choose $/long.aco\npress loadSwatch1:\nchoose $/saved.aco\npress saveSwatch1:\n",
        "print $/chart.pdf\npress printToneOrDegrade:\n",
        "shot $/shot.png\n",
        "picture chromaView $/picture.png\n",
        "state $/state.json\n",
    };
    for (const std::string& script : scripts)
        for (const int kib : {0, 1, 4}) {
            const auto result = playUnderLimit(kib, script);
            EXPECT_LE(result.exitCode, 2) << "limit " << kib << "\n" << script;
        }
    EXPECT_FALSE(std::filesystem::exists(file("saved.aco")));
    EXPECT_FALSE(std::filesystem::exists(file("chart.pdf")));
}

TEST_F(DriveLimits, APictureOrAStateThatCouldNotBeWrittenEndsTheScriptWithItsLine) {
    for (const char* script : {"shot $/a.png\n", "picture chromaView $/a.png\n", "state $/a.json\n"}) {
        const auto result = playUnderLimit(4, script);
        EXPECT_EQ(result.exitCode, 2) << script;
        EXPECT_THAT(result.err, HasSubstr("script:1: ")) << script;
    }
}

TEST_F(DriveLimits, TheCacheOfTheSystemsFontsIsNoExceptionAndTheHostsOwnWordsNeither) {
    write("fonts.conf", "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
                        "<dir>/usr/share/fonts</dir><cachedir>" +
                            file("fontcache") + "</cachedir></fontconfig>");
    environment_["FONTCONFIG_FILE"] = file("fonts.conf");
    for (const char* more : {"", "--verbose", "--help"}) {
        EXPECT_EQ(playUnderLimit(0, "ok\n", more, " >/dev/null 2>&1").exitCode, 0) << more;
        EXPECT_EQ(playUnderLimit(0, "ok\n", more).exitCode, 2) << more << ": its output is too long";
    }
    EXPECT_EQ(playUnderLimit(0, "ok\n", "--nonsense").exitCode, 2);
}

} // namespace
} // namespace chromalog::test
