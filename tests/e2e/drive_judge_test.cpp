// Contrast, the custom angle and the gamut warning in whole picks.
#include "e2e/driven_pick.h"

#include <cmath>
#include <numbers>

namespace chromalog::test {
namespace {

class DriveJudge : public DrivenPick {
  protected:
    /// All but what the tools add.
    json withoutTools(json state) const {
        for (const char* name :
             {"customAngleDegrees", "customAngleWindow",    "origCustomAngle",    "customAngle1Color",
              "customAngle2Color",  "gamutFirst",           "gamutSecond",        "contrastWindow",
              "contrastRatio",      "contrastNormal",       "contrastLarge",      "contrastSample",
              "contrastProtanopia", "contrastDeuteranopia", "contrastTritanopia", "protanopiaRatio",
              "deuteranopiaRatio",  "tritanopiaRatio",      "toolsMenu",          "chromalogWindow"})
            state["outlets"].erase(name);
        for (auto& [name, outlet] : state["outlets"].items())
            outlet.erase("focused");
        state.erase("host"); // the gamut is asked of it
        return state;
    }
    std::string text(const char* outlet) const { return state()["outlets"][outlet]["text"]; }
};

TEST_F(DriveJudge, WhatTheToolsShowChangesNothingElse) {
    const std::string picks = "click chromaView 100 90\nsweep chromaView 300 200 250 150 3\n"
                              "sweep lumiView 12 300 12 200 3\nclick chromaView 212 212\n";
    const std::string end = "picture chromaView $/now.png\nstate $/state.json\n";
    playWell(picks + end);
    const json before = withoutTools(state());
    const std::string picture = read("now.png");
    playWell("press showContrast:\npress showCustomAngle:\npress toggleGamutWarning:\nwait 300\n" + picks +
             "wait 300\n" + end);
    EXPECT_EQ(withoutTools(state()), before);
    EXPECT_EQ(read("now.png"), picture);
    EXPECT_TRUE(state()["outlets"]["contrastWindow"]["visible"]);
    EXPECT_TRUE(state()["outlets"]["customAngleWindow"]["floating"]);
}

TEST_F(DriveJudge, ContrastIsToldWhileColoursAreTyped) {
    playWell("type firstHex '#777777'\npress showContrast:\ntype secondHex '#ffffff'\nstate $/state.json\n");
    EXPECT_EQ(text("contrastRatio"), "4.47:1");
    EXPECT_EQ(text("contrastNormal"), "below AA");
    EXPECT_EQ(text("contrastLarge"), "AA");
}

TEST_F(DriveJudge, AHandleIsDraggedAlongTheRim) {
    playWell("press showCustomAngle:\nstate $/state.json\n");
    const json seen = state();
    const double half = seen["wheel"]["size"][0].get<double>() / 2;
    const double selected = std::atan2(seen["wheel"]["selectedPoint"][1].get<double>() - half,
                                       seen["wheel"]["selectedPoint"][0].get<double>() - half);
    const auto place = [&](double degrees) {
        const double angle = selected + degrees * std::numbers::pi / 180;
        return std::to_string(half + (half - 9) * std::cos(angle)) + " " +
               std::to_string(half + (half - 9) * std::sin(angle));
    };
    playWell("press showCustomAngle:\nsweep chromaView " + place(30) + " " + place(90) +
             " 5\nstate $/state.json\nrclick customAngle1Color 5 5\nmenu customAngle1Color useAsFirst:\n"
             "state $/used.json\ndrag customAngle2Color 5 5 origFirstColor 5 5\nstate $/dragged.json\n");
    EXPECT_EQ(text("customAngleDegrees"), "90");
    EXPECT_EQ(state()["secondColor"], seen["secondColor"]) << "nothing was picked";
    EXPECT_EQ(state()["alpha1"], 55.0);
    EXPECT_NE(state()["outlets"]["customAngle1Color"]["color"],
              seen["outlets"]["customAngle1Color"]["color"]);
    EXPECT_EQ(state("used.json")["firstColor"], state()["outlets"]["customAngle1Color"]["color"]);
    EXPECT_EQ(state("dragged.json")["firstColor"], state()["outlets"]["customAngle2Color"]["color"]);
    playWell("press showCustomAngle:\nstate $/state.json\n");
    EXPECT_EQ(text("customAngleDegrees"), "30") << "a script begins as ever";
}

TEST_F(DriveJudge, TheMarkOfTheGamutTakesTheNearestPrintableColour) {
    playWell("press toggleGamutWarning:\nwait 300\nstate $/marked.json\npress gamutSecond\nwait 300\nstate "
             "$/state.json\n"
             "press toggleGamutWarning:\nstate $/off.json\n",
             {"--color", "#0000ff"});
    EXPECT_TRUE(state("marked.json")["outlets"]["gamutSecond"]["visible"]);
    EXPECT_EQ(state("marked.json")["secondColor"], (json{0.0, 0.0, 1.0, 1.0}));
    EXPECT_NE(state()["secondColor"], (json{0.0, 0.0, 1.0, 1.0}));
    EXPECT_EQ(state()["outlets"]["origSecondColor"]["color"], state()["secondColor"]);
    EXPECT_FALSE(state("off.json")["outlets"]["gamutSecond"]["visible"]);
    EXPECT_EQ(state("off.json")["outlets"]["firstR"]["frame"],
              state("marked.json")["outlets"]["firstR"]["frame"]);
}

TEST_F(DriveJudge, HiddenToolsAskTheHostNothing) {
    playWell("state $/a.json\nclick chromaView 100 90\nclick chromaView 101 90\nstate $/b.json\n"
             "press toggleGamutWarning:\nwait 300\npress toggleGamutWarning:\nstate $/c.json\n"
             "click chromaView 100 90\nclick chromaView 101 90\nstate $/d.json\n");
    const auto calls = [&](const char* name) {
        return state(name)["host"]["calls"]["colorServices"].get<int>();
    };
    EXPECT_EQ(calls("d.json") - calls("c.json"), calls("b.json") - calls("a.json"));
    EXPECT_GT(calls("c.json") - calls("b.json"), 1000);
}

} // namespace
} // namespace chromalog::test
