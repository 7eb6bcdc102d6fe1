// Colours as texts: typed, copied and pasted, by scripts.
#include "e2e/driven_pick.h"

namespace chromalog::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::EndsWith;

/// The swatches of a list, each as "NAME red green blue" with the values that people read.
std::vector<std::string> swatches(const json& state, int list) {
    std::vector<std::string> all;
    for (const json& record : state["lists"][list - 1]["records"]) {
        const std::string hex = record["name"];
        std::string line;
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            line += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
        for (const char* channel : {"SRed", "SGreen", "SBlue"})
            line += ' ' + std::to_string(record[channel].get<int>() / 257);
        all.push_back(line);
    }
    return all;
}

using DrivenTexts = DrivenPick;

TEST_F(DrivenTexts, AHexCodeIsTypedInOneAction) {
    playWell("type firstHex ' #336699; '\nstate $/typed.json\n"
             "type secondHex TEAL\nkey Return\nstate $/state.json\n",
             {"--color", "#3366cc"});
    const json typed = state("typed.json"), now = state();
    EXPECT_EQ(typed["firstColor"], json({0.2, 0.4, 0.6, 1.0}));
    EXPECT_EQ(typed["outlets"]["firstHex"]["text"], " #336699; ") << "as typed while it is typed in";
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], "#336699");
    EXPECT_EQ(now["outlets"]["secondHex"]["text"], "#008080");
    EXPECT_EQ(now["outlets"]["secondG"]["text"], "128");
    EXPECT_EQ(now["undoNames"], json::array()) << "a colour is no step";
}

TEST_F(DrivenTexts, AClickIntoAHexFieldSelectsItAll) {
    playWell("click firstHex 10 10\nkey f\nkey 0\nkey 0\nstate $/state.json\n");
    EXPECT_EQ(state()["outlets"]["firstHex"]["text"], "f00");
    EXPECT_EQ(state()["firstColor"], json({1.0, 0.0, 0.0, 1.0}));
}

TEST_F(DrivenTexts, ATextThatIsNoColourIsMarkedAndChangesNothing) {
    playWell("state $/before.json\ntype firstHex '#12'\ntype secondInks '60 20 0'\nstate $/state.json\n"
             "key Return\nstate $/after.json\n");
    const json before = state("before.json"), now = state(), after = state("after.json");
    EXPECT_EQ(now["secondColor"], before["secondColor"]);
    EXPECT_EQ(now["firstColor"], before["firstColor"]);
    EXPECT_FALSE(now["outlets"]["firstHex"].contains("fault")) << "left: it shows the colour again";
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], "#e54c19");
    EXPECT_TRUE(now["outlets"]["secondInks"].contains("fault"));
    EXPECT_FALSE(after["outlets"]["secondInks"].contains("fault"));
    EXPECT_EQ(after["outlets"]["secondInks"]["text"], before["outlets"]["secondInks"]["text"]);
}

TEST_F(DrivenTexts, FourInksAreOneEntryOfTheRightColour) {
    playWell("type firstInks '60 20 0 10'\ntype secondInks '60 20 0 10'\nstate $/state.json\n");
    const json now = state();
    EXPECT_EQ(now["outlets"]["secondInks"]["text"], "60 20 0 10");
    EXPECT_EQ(now["outlets"]["firstInks"]["text"], "60 20 0 10");
    EXPECT_EQ(now["outlets"]["firstHex"]["text"], now["outlets"]["secondHex"]["text"]) << "one rule";
    for (const char* ink : {"C", "M", "Y", "K"})
        EXPECT_EQ(now["outlets"][std::string("first") + ink]["text"],
                  now["outlets"][std::string("second") + ink]["text"]);
}

TEST_F(DrivenTexts, TypedInksGiveWhatTheHostMakesOfThem) {
    // (100 - 60) x 2.55 = 102, and so on: bytes that the host takes for an offered colour as well.
    playWell("type firstInks '60 20 0 10'\nstate $/typed.json\n");
    playWell("state $/offered.json\n", {"--color", "cmyk:26214,52428,65535,58853"});
    for (int i = 0; i < 3; ++i)
        EXPECT_THAT(state("typed.json")["firstColor"][i].get<double>(),
                    DoubleNear(state("offered.json")["secondColor"][i], 1e-6));
}

TEST_F(DrivenTexts, AReadingIsChosenAndTyped) {
    playWell("press secondReading\npress readHsl:\ntype secondEntry '210 50% 40%'\nstate $/state.json\n");
    EXPECT_EQ(state()["outlets"]["secondHex"]["text"], "#336699");
    EXPECT_EQ(state()["outlets"]["secondReading"]["title"], "HSL");
    EXPECT_TRUE(state()["outlets"]["secondInks"]["hidden"]);
    const auto result = play("type secondEntry '210 50% 40%'\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, EndsWith("script:1: secondEntry is not on the screen\n"));
}

TEST_F(DrivenTexts, AQuadIsCssInTwoActions) {
    playWell("rclick quadri1Color 10 10\nmenu quadri1Color copySchemeCss:\nstate $/state.json\n",
             {"--color", "#3366cc"});
    const std::string css = state()["pasteboard"]["string"];
    EXPECT_THAT(css, testing::MatchesRegex(":root \\{\n  --quadri-1: #3366cc;\n(  --quadri-[2-4]: "
                                           "#[0-9a-f]+;\n)+\\}\n"));
}

TEST_F(DrivenTexts, EveryPlaceOfAColourCopiesIt) {
    playWell("key Ctrl+C origSecondColor\nstate $/well.json\nkey Ctrl+C chromaView\nstate $/wheel.json\n"
             "key Ctrl+C myDegrade\nstate $/chart.json\nmenu myDegrade copyAsRgb:\nstate $/text.json\n"
             "clip 'Sky: #87ceeb'\nkey Ctrl+V swatch2\nkey Ctrl+C swatch2\nstate $/row.json\n"
             "menu swatch2 copyAsHsl:\nstate $/hsl.json\nmenu nearColor copyAsCmyk:\nstate $/inks.json\n",
             {"--color", "#3366cc"});
    const auto text = [this](const char* name) { return state(name)["pasteboard"]["string"]; };
    EXPECT_EQ(text("well.json"), "#3366cc");
    EXPECT_EQ(state("well.json")["pasteboard"]["color"], json({0.2, 0.4, 0.8, 1.0}));
    EXPECT_EQ(text("wheel.json"), "#3366cc");
    EXPECT_EQ(text("chart.json"), "#e51aff") << "the cell where the keyboard stands";
    EXPECT_THAT(text("text.json").get<std::string>(), testing::StartsWith("rgb("));
    EXPECT_EQ(text("row.json"), "#87ceeb");
    EXPECT_EQ(text("hsl.json"), "hsl(197.4 71.4% 72.5%)");
    EXPECT_THAT(text("inks.json").get<std::string>(), testing::MatchesRegex("[0-9]+ [0-9]+ [0-9]+ [0-9]+"));
}

TEST_F(DrivenTexts, PastedLinesBecomeSwatchesByOneStep) {
    playWell("clip 'Sky: #87ceeb;' 'Rose #ff007f' 'nothing' 'rgb(1 2 3)'\nmenu swatch1 pasteColor:\n"
             "state $/state.json\nkey Ctrl+V origSecondColor\nstate $/well.json\n"
             "press undoButton\nstate $/undone.json\n");
    EXPECT_THAT(swatches(state(), 1), ElementsAre("Sky 135 206 235", "Rose 255 0 127", "#010203 1 2 3"));
    EXPECT_EQ(state()["undoNames"], json({"!Swatch Colors pasted!"}));
    EXPECT_EQ(state()["lists"][0]["selected"], 2);
    EXPECT_EQ(state()["firstColor"], json({0.9, 0.3, 0.1, 1.0}));
    EXPECT_EQ(state("well.json")["outlets"]["secondHex"]["text"], "#87ceeb");
    EXPECT_THAT(swatches(state("undone.json"), 1), testing::IsEmpty());
}

TEST_F(DrivenTexts, ColoursGoIntoListsWithoutADrag) {
    playWell("dclick complementColor 10 10\nkey Insert origSecondColor\nkey Alt+Insert myDegrade\n"
             "menu chromaView addToList2:\nmenu quadriOn addSchemeToList2:\nstate $/state.json\n",
             {"--color", "#3366cc"});
    const json now = state();
    EXPECT_THAT(swatches(now, 1), ElementsAre("#cc9933 204 153 51", "#3366cc 51 102 204"));
    EXPECT_EQ(now["lists"][1]["viewCount"], 6);
    EXPECT_EQ(now["lists"][1]["selected"], 5);
    EXPECT_EQ(now["undoNames"].size(), 5U);
    EXPECT_EQ(now["firstColor"], json({0.9, 0.3, 0.1, 1.0}));
    EXPECT_EQ(now["secondColor"], json({0.2, 0.4, 0.8, 1.0}));
}

TEST_F(DrivenTexts, AnAddedRowIsInView) {
    const std::string ten = "'#fff #fff #fff #fff #fff #fff #fff #fff #fff #fff' ";
    playWell("clip " + ten + ten + ten +
             "\nkey Ctrl+V swatch1\nkey Home swatch1\nstate $/before.json\n"
             "key Insert origFirstColor\nstate $/state.json\n");
    const double shown = state()["outlets"]["swatch1Scroller"]["frame"][3];
    EXPECT_EQ(state("before.json")["lists"][0]["scrollY"], 0);
    EXPECT_EQ(state()["lists"][0]["selected"], 30);
    EXPECT_GE(state()["lists"][0]["scrollY"].get<double>() + shown, 31 * 22);
}

TEST_F(DrivenTexts, AnyColourBecomesAWorkingColour) {
    playWell("menu quadri1Color useAsFirst:\nmenu myDegrade useAsSecond:\nkey Insert origFirstColor\n"
             "menu swatch1 useAsSecond:\nstate $/state.json\n",
             {"--color", "#3366cc"});
    EXPECT_EQ(state()["outlets"]["firstHex"]["text"], "#4bcc33");
    EXPECT_EQ(state()["outlets"]["secondHex"]["text"], "#4bcc33");
}

TEST_F(DrivenTexts, CommandsAreRefusedWhereTheyCannotBe) {
    const std::pair<const char*, const char*> wrong[] = {
        {"clip\n", "script:1: clip takes the words LINE...\n"},
        {"dclick chromaView 1\n", "script:1: dclick takes the words OUTLET X Y\n"},
        {"choose cancel\nclip '#fff'\npress loadSwatch1\nmenu nearColor pasteColor:\n",
         "script:4: no item of the open menu sends 'pasteColor:'\n"}};
    for (const auto& [script, message] : wrong) {
        const auto result = play(script);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_THAT(result.err, EndsWith(message));
    }
}

} // namespace
} // namespace chromalog::test
