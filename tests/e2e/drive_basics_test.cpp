// How a pick ends, and what goes wrong with scripts.
#include "e2e/driven_pick.h"
#include "support/outlet_names.h"

#include <map>
#include <set>

namespace chromalog::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class DriveBasics : public DrivenPick {};

TEST_F(DriveBasics, AcceptReturnsTheFirstColour) {
    const auto result = pick({"--accept", "--color", "#3366cc"});
    EXPECT_EQ(result.out, "#e54c19\n"); // the first colour keeps its default
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
}

TEST_F(DriveBasics, CancelReturnsWhatWasOffered) {
    const auto result = pick({"--cancel", "--color", "#3366cc"});
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
}

TEST_F(DriveBasics, AScreenshotShowsThePaintedDialog) {
    const auto result = pick({"--accept", "--screenshot", file("shot.png")});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    const std::string png = read("shot.png");
    EXPECT_THAT(png, StartsWith("\x89PNG"));
    EXPECT_GT(png.size(), 50'000u); // an unpainted dialog packs to next to nothing
}

TEST_F(DriveBasics, AScreenshotThatCannotBeWrittenIsAnError) {
    const auto result = pick({"--accept", "--screenshot", file("home")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr(file("home")));
}

TEST_F(DriveBasics, AScreenshotReplacesItsFileWholeOrNotAtAll) {
    write("shot.png", "an older picture");
    auto words = command({"--accept", "--screenshot", file("shot.png")});
    const std::string limited = "trap '' XFSZ; ulimit -f 4; exec \"$@\""; // 2 KiB: a part of the picture
    words.insert(words.begin(), {"sh", "-c", limited, "sh"});
    const auto result = runProgram(words, environment_);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, file("shot.png") + ": File too large\n");
    EXPECT_EQ(read("shot.png"), "an older picture");
    EXPECT_EQ(pick({"--accept", "--screenshot", file("shot.png")}).exitCode, 0);
    EXPECT_THAT(read("shot.png"), StartsWith("\x89PNG"));
}

TEST_F(DriveBasics, ARuntimeFolderOfAnySortIsNoRemark) {
    for (const std::string& folder :
         {file("home"), file("none"), std::string()}) { // open to all, missing, unset
        environment_["XDG_RUNTIME_DIR"] = folder;
        EXPECT_EQ(pick({"--cancel"}).err, "") << folder;
    }
}

TEST_F(DriveBasics, OkAndCancelInScriptsDoTheSame) {
    EXPECT_EQ(play("ok\n", {"--color", "#3366cc"}).out, "#e54c19\n");
    const auto cancelled = play("cancel\n", {"--color", "#3366cc"});
    EXPECT_EQ(cancelled.out, "#3366cc\n");
    EXPECT_EQ(cancelled.exitCode, 1);
}

TEST_F(DriveBasics, AScriptThatEndsCancelsThePick) {
    const auto result = play("type firstR 1\n", {"--color", "#3366cc"});
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "");
}

TEST_F(DriveBasics, EscapeAndTheCloseBoxAreCancel) {
    const auto result = play("key Escape\nclick nowhere 1 1\n", {"--color", "#3366cc"});
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "") << "the pick is over before the next command";
}

TEST_F(DriveBasics, TheScriptGoesOnInTheNextPick) {
    const auto result = play("type firstR 16\nok\n"
                             "state $/second.json\ntype firstG 32\nok\n",
                             {"--picks", "4", "--color", "#3366cc"});
    EXPECT_EQ(result.out, "#104c19\n#e52019\n#e52019\n#e52019\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(state("second.json")["outlets"]["secondR"]["text"], "16") << "offered what the host then held";
}

TEST_F(DriveBasics, OptionOnOkChangesWhichColourItReturns) {
    const auto result =
        play("state $/before.json\npress okButton alt\nstate $/after.json\nok\n", {"--color", "#3366cc"});
    EXPECT_EQ(result.out, "#3366cc\n");
    EXPECT_EQ(result.exitCode, 1) << "the second colour is the offered one";
    const auto before = state("before.json"), after = state("after.json");
    EXPECT_EQ(before["outlets"]["okButton"]["title"], "Use 1st color");
    EXPECT_EQ(before["useSecondColor"], 0);
    EXPECT_EQ(after["outlets"]["okButton"]["title"], "Use 2nd color");
    EXPECT_EQ(after["outlets"]["okButton"]["background"], after["secondColor"]);
    EXPECT_EQ(after["useSecondColor"], 1);
}

TEST_F(DriveBasics, TheToggleIsReachableWithoutTheModifierKey) {
    playWell("press toggleSecondColor:\nstate $/state.json\n");
    EXPECT_EQ(state()["useSecondColor"], 1);
}

TEST_F(DriveBasics, AFoldedSectionOpensForWhatAScriptNames) {
    playWell("press foldHarmonies:\npress foldChart:\npress foldNearest:\nstate $/folded.json\n"
             "click complementColor 5 5\npress switchTone:\nstate $/open.json\n"
             "press foldHarmonies:\npress quadriOn:\nstate $/mode.json\n");
    const auto folded = state("folded.json")["outlets"], open = state("open.json")["outlets"];
    for (const char* name : {"complementColor", "quadriOn", "myDegrade", "printToneOrDegrade", "nearR"})
        EXPECT_FALSE(folded[name]["visible"]) << name;
    EXPECT_GT(folded["chromaView"]["frame"][2], open["chromaView"]["frame"][2]) << "it takes the room";
    EXPECT_TRUE(open["complementColor"]["visible"]);
    EXPECT_TRUE(open["myToneView"]["visible"]);
    EXPECT_FALSE(open["nearR"]["visible"]) << "nobody named it";
    EXPECT_EQ(state("mode.json")["harmonyMode"], 4);
}

TEST_F(DriveBasics, WhatAPersonLeftOfTheWindowCountsForNoScript) {
    std::filesystem::create_directories(file("data/Quorvex"));
    const std::string settings =
        "{\"folded\": [\"itemHarmonies\", \"itemChart\"], \"windowPlace\": [90, 90], "
        "\"windowSize\": [900, 600]}";
    write("data/Quorvex/Chromalog-settings.json", settings);
    playWell("state $/state.json\nok\n");
    EXPECT_EQ(state()["outlets"]["chromalogWindow"]["frame"], json({0, 0, 1280, 760}));
    EXPECT_TRUE(state()["outlets"]["complementColor"]["visible"]);
    EXPECT_TRUE(state()["outlets"]["myDegrade"]["visible"]);
    EXPECT_EQ(read("data/Quorvex/Chromalog-settings.json"), settings);
}

struct BadScript {
    const char* name;
    const char* text;
    int line;
    const char* message;
};

void PrintTo(const BadScript& bad, std::ostream* out) {
    *out << bad.name;
}

class BadScripts : public DrivenPick, public testing::WithParamInterface<BadScript> {};

TEST_P(BadScripts, EndWithOneLineAndCodeTwo) {
    const auto result = play(GetParam().text, {"--picks", "3"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, StartsWith(file("script") + ":" + std::to_string(GetParam().line) + ": "));
    EXPECT_THAT(result.err, HasSubstr(GetParam().message));
    EXPECT_THAT(result.err, EndsWith("\n"));
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
}

constexpr BadScript kBadScripts[] = {
    {"UnknownCommand", "ok\nfrobnicate\n", 2, "frobnicate"},
    {"WrongNumberOfWords", "# first\nclick chromaView 1\n", 2, "X Y"},
    {"UnknownOutlet", "\n\nclick chromaview 1 2\n", 3, "chromaview"},
    {"UnknownOperation", "press loadSwatch3:\n", 1, "loadSwatch3:"},
    {"UnknownKey", "key Hyper\n", 1, "Hyper"},
    {"HiddenOutlet", "click myToneView 1 2\n", 1, "myToneView"},
    {"NoFocus", "type found1 abc\n", 1, "found1"},
    {"OutOfRange", "set toneOrDegrade 1\nset toneSlider 101\n", 2, "101"},
    {"NothingToSet", "set chromaView 1\n", 1, "chromaView"},
    {"UnwritableState", "wait 1\nstate /no/such/folder/s.json\n", 2, "/no/such/folder/s.json"},
    {"NoSuchMenuItem", "menu swatch1 fly:\n", 1, "fly:"},
    {"NotWhileAPanelIsOpen", "press loadSwatch1:\nstate /dev/null\nclick okButton 1 1\n", 3, "panel"},
};

INSTANTIATE_TEST_SUITE_P(Drive, BadScripts, testing::ValuesIn(kBadScripts),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(DriveBasics, AMissingScriptIsAnError) {
    const auto result = pick({"--drive", file("none")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr(file("none")));
}

TEST_F(DriveBasics, AnErrorKeepsWhatTheHostHeld) {
    const auto result = play("type firstR 1\nfly\n", {"--color", "#3366cc"});
    EXPECT_THAT(result.out, testing::Not(HasSubstr("#01")));
}

TEST_F(DriveBasics, TheStateHoldsEveryOutletOfTheDialog) {
    playWell("state $/state.json\n");
    const json outlets = state()["outlets"];
    const auto isWhole = [&](const char* name) {
        ASSERT_TRUE(outlets.contains(name)) << name;
        EXPECT_EQ(outlets[name]["enabled"].type(), json::value_t::boolean) << name;
        EXPECT_EQ(outlets[name]["frame"].size(), 4u) << name;
    };
    for (const char* name : kDialogOutlets)
        isWhole(name);
    isWhole("protocolWindow"); // of the history panel
}

TEST_F(DriveBasics, TheStateNamesTheClassOfEveryOutlet) {
    playWell("print $/list.pdf\npress printFirstSwatch:\nstate $/state.json\nok\n");
    const json outlets = state()["outlets"];
    std::map<std::string, std::set<std::string>> ofClass;
    for (const auto& [name, outlet] : outlets.items())
        ofClass[outlet["class"]].insert(name);
    const std::pair<const char*, std::set<std::string>> own[] = {
        {"rgb1Text", {"firstR", "firstG", "firstB"}},
        {"rgb2Text", {"secondR", "secondG", "secondB"}},
        {"cmyk1Text", {"firstC", "firstM", "firstY", "firstK"}},
        {"cmyk2Text", {"secondC", "secondM", "secondY", "secondK"}},
        {"myWell", {"origFirstColor", "origSecondColor"}},
        {"chromaticCircleView", {"chromaView"}},
        {"luminosityView", {"lumiView"}},
        {"toneView", {"myToneView"}},
        {"degradeView", {"myDegrade"}},
        {"CSwatchList", {"swatch1", "swatch2"}},
    };
    for (const auto& [name, members] : own)
        EXPECT_EQ(ofClass[name], members) << name;
    // The others have the toolkit's class, or that of the widget that stands for the control.
    EXPECT_EQ(outlets["colorName"]["class"], "QLineEdit");
    EXPECT_EQ(outlets["origComplement"]["class"], "ColorWellWidget");
    EXPECT_EQ(outlets["protocolWindow"]["class"], "DialogWindow");
    EXPECT_EQ(outlets["NameCheck"]["class"], "QCheckBox");
}

TEST_F(DriveBasics, TheStateHoldsTheHostsSideOfThePick) {
    playWell("state $/state.json\n", {"--color", "rgb:4863,13312,65535"});
    const json host = state()["host"];
    EXPECT_EQ(host["misuse"], json::array());
    EXPECT_EQ(host["record"]["sourceSpace"], 0);
    EXPECT_EQ(host["record"]["resultSpace"], 0);
    EXPECT_EQ(host["record"]["colorComponents"], (json{4863, 13312, 65535, 0}));
    EXPECT_EQ(host["calls"]["newProc"], 1);
    EXPECT_EQ(host["calls"]["lockProc"], 1);
    EXPECT_EQ(host["calls"]["unlockProc"], 0);
    EXPECT_EQ(state()["secondColor"], (json{0x12 / 255.0, 0x34 / 255.0, 1.0, 1.0}));
}

} // namespace
} // namespace chromalog::test
