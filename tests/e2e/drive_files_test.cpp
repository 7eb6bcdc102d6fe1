// Files that cannot be written or read, and lists that are kept: what the dialog says and how scripts end.
#include "e2e/driven_pick.h"
#include "support/swatch_files.h"

#include <thread>

#include <sys/stat.h>

namespace chromalog::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class DriveFiles : public DrivenPick {
  protected:
    DriveFiles() {
        for (const auto& [name, count] : {std::pair("two.aco", 2), std::pair("three.aco", 3)}) {
            FileBuilder builder;
            builder.header(2, count);
            for (int i = 0; i < count; ++i)
                builder.colour(0, i * 500, 0, 0).name("Swatch");
            write(name, builder.bytes);
        }
    }

    std::string preferences(const std::string& copy = "") const {
        return file("data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf") + copy;
    }
    std::string contents(const std::string& path) const {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    ProgramResult recover(const std::vector<std::string>& words) const {
        std::vector<std::string> command{CHROMALOG_PROGRAM, "recover", "--data-dir", file("data")};
        command.insert(command.end(), words.begin(), words.end());
        return runProgram(command, {{"QT_QPA_PLATFORM", "nothing-to-show-it-on"}, {"TZ", "UTC"}});
    }
    void endsWithCodeTwo(const std::string& script, int line, const std::string& message) const {
        const auto result = play(script + "state $/after.json\n", {"--picks", "2"});
        EXPECT_EQ(result.exitCode, 2) << script;
        EXPECT_THAT(result.err, StartsWith(file("script") + ":" + std::to_string(line) + ": "));
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
        EXPECT_FALSE(fs::exists(file("after.json"))) << "no further command";
    }
};

TEST_F(DriveFiles, AFileThatCannotBeWrittenEndsTheScript) {
    fs::create_directory(file("folder.aco"));
    endsWithCodeTwo("press saveSwatch1:\nchoose $/none/saved.aco\n", 2, "none/saved.aco: No such file");
    endsWithCodeTwo("choose $/none/saved.aco\npress saveSwatch2:\n", 2, "none/saved.aco: No such file");
    endsWithCodeTwo("choose $/folder.aco\npress saveSwatch2:\n", 2, "folder.aco: Is a directory");
    endsWithCodeTwo("print $/none/a.pdf\npress printToneOrDegrade:\n", 2, "none/a.pdf: No such file");
    endsWithCodeTwo("print $/none/b.pdf\npress printFirstSwatch:\nok\n", 3, "none/b.pdf: No such file");
    for (const char* command : {"shot", "state", "picture chromaView"})
        endsWithCodeTwo(std::string(command) + " $/folder.aco\n", 1, "folder.aco: ");
}

/// The toolkit's panel takes it for several names, finds none, and says so in a box of its own.
TEST_F(DriveFiles, ANameThatThePanelDoesNotFindIsAnAlert) {
    write("a\"b.aco", std::string("any"));
    const std::string chosen = "choose '$/a\"b.aco'\npress loadSwatch1:\n";
    const auto refused = play(chosen + "press killSwatch2:\n");
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.err, HasSubstr("script:3: press is not allowed while an alert is open: "));
    playWell("answer\n" + chosen + "choose cancel\nstate $/state.json\n");
    EXPECT_EQ(state()["lists"][0]["viewCount"], 0);
}

/// Whole or not at all: an older picture stays.
TEST_F(DriveFiles, APictureOnAFullDiskIsAnError) {
    fs::create_directory(file("full"));
    writeScript("shot $/full/shot.png\nstate $/after.json\n");
    const std::string shot = file("full/shot.png");
    const auto runMounted = [&](const std::string& command) {
        return runProgram({"unshare", "-m", "sh", "-c",
                           "mount -t tmpfs -o size=32k none " + file("full") + " && echo older > " + shot +
                               " && " + command + "; code=$?; cat " + shot + "; exit $code"},
                          environment_);
    };
    if (runMounted("true").exitCode != 0) GTEST_SKIP() << "may not mount a file system here";
    for (const std::string& options : {"--accept --screenshot " + shot, "--drive " + file("script")}) {
        const auto result = runMounted(CHROMALOG_PROGRAM " --data-dir " + file("data") + " " + options);
        EXPECT_EQ(result.exitCode, 2) << options;
        EXPECT_THAT(result.err, HasSubstr(shot + ": No space left"));
        EXPECT_THAT(result.out, testing::EndsWith("older\n"));
        EXPECT_FALSE(fs::exists(file("after.json")));
    }
}

TEST_F(DriveFiles, AFileThatCannotBeReadIsSaidAndNoError) {
    playWell("choose $/none.aco\npress loadSwatch1:\nstate $/state.json\n"
             "choose $/two.aco\npress loadSwatch1:\nstate $/after.json\n");
    EXPECT_EQ(state()["status"], "none.aco could not be read: No such file or directory");
    EXPECT_EQ(state()["outlets"]["statusLine"]["text"], state()["status"]);
    EXPECT_THAT(state()["alerts"], IsEmpty());
    EXPECT_EQ(state("after.json")["status"], "");
    EXPECT_EQ(state("after.json")["outlets"]["statusLine"]["frame"],
              state()["outlets"]["statusLine"]["frame"])
        << "its room is always there";
}

TEST_F(DriveFiles, ADataFolderThatCannotBeWrittenOpensThePickAndIsSaid) {
    writeScript("state $/state.json\nok\n");
    const auto result =
        runProgram({CHROMALOG_PROGRAM, "--data-dir", "/proc", "--drive", file("script")}, environment_);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(state()["status"].get<std::string>(),
                StartsWith("The lists cannot be stored in /proc/Quorvex"));
}

TEST_F(DriveFiles, WithoutAHomeFolderTheAccountsOwnIsUsedOrNone) {
    environment_["HOME"] = "";
    environment_["XDG_DATA_HOME"] = "";
    if (::getuid() != 0) GTEST_SKIP() << "needs to become somebody without an account";
    if (!othersReach(CHROMALOG_PROGRAM)) GTEST_SKIP() << "the program lies in a private folder";
    fs::permissions(folder_.path(), fs::perms(0777));
    writeScript("state $/state.json\nok\n");
    const auto result = runProgram({"setpriv", "--reuid", "4000123", "--clear-groups", "env", "-u", "HOME",
                                    "-u", "XDG_DATA_HOME", CHROMALOG_PROGRAM, "--drive", file("script")},
                                   environment_);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(state()["status"], "The lists are not stored: there is no home folder");
}

TEST_F(DriveFiles, AnotherPickOnTheSameListsIsSaidAndWhatItStoresIsKept) {
    playWell("choose $/two.aco\npress loadSwatch1:\n");
    std::thread other([this] {
        write("other", "state " + file("open.json") + "\nwait 4000\nchoose " + file("three.aco") +
                           "\npress loadSwatch1:\nstate " + file("other.json") + "\n");
        pick({"--drive", file("other")});
    });
    while (!fs::exists(file("open.json")))
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    playWell("state $/state.json\npress killSwatch1:\n");
    EXPECT_EQ(state()["status"], "Another pick is open on the same lists");
    other.join();
    EXPECT_THAT(state("other.json")["status"].get<std::string>(),
                StartsWith("Unread lists were kept (kept-"));
    const auto listed = recover({"--list"});
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_THAT(listed.out, testing::ContainsRegex("kept-[0-9TZ]+  [-0-9: ]+, list 1: empty"));
    EXPECT_THAT(contents(preferences()), HasSubstr("three.aco"));
}

TEST_F(DriveFiles, PalettesThatAreNamedWaitForAChoice) {
    playWell("state $/panel.json\npress importReplace:\nstate $/after.json\n"
             "menu swatch1 exportPalette1:\nset exportKinds 3\nchoose $/out.gpl\npress exportAll:\n",
             {file("two.aco"), file("three.aco")});
    const json panel = state("panel.json");
    EXPECT_EQ(panel["outlets"]["importNote"]["text"], "two.aco: 2 files, 5 colors, into list 1");
    EXPECT_EQ(panel["lists"][0]["viewCount"], 0);
    EXPECT_EQ(state("after.json")["lists"][0]["viewCount"], 5);
    EXPECT_THAT(contents(file("out.gpl")), StartsWith("GIMP Palette\nName: two\n"));
}

TEST_F(DriveFiles, ListsComeBackInTheDialog) {
    playWell("choose $/two.aco\npress loadSwatch1:\nok\n");
    playWell("choose $/three.aco\npress loadSwatch1:\nok\n");
    playWell("press bringBackLists:\nstate $/panel.json\nset earlierLists 0\npress bringBackList1:\n"
             "press closeEarlierLists:\nstate $/back.json\npress doUndo:\nstate $/undone.json\n");
    const json panel = state("panel.json")["outlets"];
    ASSERT_EQ(panel["earlierLists"]["rows"].size(), 1u);
    EXPECT_THAT(panel["earlierLists"]["rows"][0].get<std::string>(), HasSubstr("list 1: 2 colors (two.aco)"));
    EXPECT_EQ(panel["earlierLists"]["value"], 0);
    const json back = state("back.json");
    EXPECT_EQ(back["lists"][0]["viewCount"], 2);
    EXPECT_EQ(back["outlets"]["swatch1Name"]["text"], "two.aco");
    EXPECT_EQ(back["undoNames"], (json{"!Earlier Lists!"}));
    EXPECT_EQ(state("undone.json")["lists"][0]["viewCount"], 3);
    EXPECT_EQ(state("undone.json")["outlets"]["swatch1Name"]["text"], "three.aco");
}

TEST_F(DriveFiles, ListsComeBackWithoutADisplay) {
    playWell("choose $/two.aco\npress loadSwatch1:\nok\n");
    const std::string two = contents(preferences());
    playWell("choose $/three.aco\npress loadSwatch1:\nok\n");
    const std::string three = contents(preferences());
    const auto listed = recover({"--list"});
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_EQ(listed.err, "");
    EXPECT_THAT(listed.out, testing::MatchesRegex(
                                "before  20..-..-.. ..:.., list 1: 2 colors \\(two.aco\\), list 2: empty\n"));
    const auto done = recover({"before"});
    EXPECT_EQ(done.exitCode, 0);
    EXPECT_THAT(done.out, StartsWith("brought back before; the lists that were there are kept as kept-2"));
    EXPECT_EQ(contents(preferences()), two);
    const std::string name = done.out.substr(done.out.find("kept-"), 21);
    EXPECT_EQ(contents(preferences("." + name)), three);
    playWell("state $/state.json\n");
    EXPECT_EQ(state()["lists"][0]["viewCount"], 2);
    EXPECT_EQ(state()["status"], "");
    EXPECT_EQ(recover({"kept-20200101T000000Z"}).exitCode, 2);
}

TEST_F(DriveFiles, ListsThatCannotBeReadAreKept) {
    if (::getuid() != 0) GTEST_SKIP() << "needs to become somebody else";
    playWell("choose $/two.aco\npress loadSwatch1:\nok\n");
    const std::string two = contents(preferences());
    if (!othersReach(CHROMALOG_PROGRAM)) GTEST_SKIP() << "the program lies in a private folder";
    for (const auto& entry : fs::recursive_directory_iterator(folder_.path()))
        ASSERT_EQ(::chown(entry.path().c_str(), 65534, 65534), 0);
    fs::permissions(folder_.path(), fs::perms(0777));
    fs::permissions(preferences(), fs::perms(0200)); // may be written, not read
    writeScript("state $/state.json\ncancel\n");
    auto words = command({"--drive", file("script")});
    words.insert(words.begin(), {"setpriv", "--reuid", "65534", "--clear-groups"});
    const auto result = runProgram(words, environment_);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(state()["status"], "The stored lists could not be read: Permission denied");
    bool whole = false;
    for (const auto& entry : fs::directory_iterator(file("data/Quorvex")))
        whole = whole || (entry.path() != preferences() && contents(entry.path()) == two);
    EXPECT_TRUE(whole) << "under another name";
}

} // namespace
} // namespace chromalog::test
