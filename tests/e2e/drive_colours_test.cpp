// The two working colours, as a person's mouse and keyboard change them.
#include "e2e/driven_pick.h"

namespace chromalog::test {
namespace {

class DriveColours : public DrivenPick {
  protected:
    std::string text(const json& state, const char* outlet) const { return state["outlets"][outlet]["text"]; }
};

TEST_F(DriveColours, EveryKeystrokeRebuildsTheColour) {
    playWell(
        "type firstR 2\nstate $/1.json\nappend firstR 5\nstate $/2.json\nappend firstR 5\nstate $/3.json\n"
        "type firstR ''\nstate $/4.json\n",
        {"--color-services", "closed"});
    const int expected[] = {2, 25, 255, 0};
    const char* const cyan[] = {"97", "67", "0", "100"}; // beside green 76 and blue 25
    for (int i = 0; i < 4; ++i) {
        const auto now = state(std::to_string(i + 1) + ".json");
        EXPECT_EQ(now["firstColor"][0], static_cast<float>(expected[i]) / 255.0) << i;
        EXPECT_EQ(now["outlets"]["okButton"]["background"], now["firstColor"]) << i;
        EXPECT_EQ(now["outlets"]["origFirstColor"]["color"], now["firstColor"]) << i;
        EXPECT_EQ(text(now, "firstC"), cyan[i]) << i;
    }
    EXPECT_EQ(text(state("3.json"), "firstR"), "255");
    EXPECT_EQ(text(state("4.json"), "firstR"), "") << "the field keeps what was typed";
}

TEST_F(DriveColours, AFieldThatIsTypedInKeepsItsTextUntilReturn) {
    playWell("type secondC 7x\nstate $/typing.json\nkey Return\nstate $/ended.json\n",
             {"--color-services", "closed"});
    EXPECT_EQ(text(state("typing.json"), "secondC"), "7x");
    EXPECT_TRUE(state("typing.json")["outlets"]["secondC"]["focused"]);
    EXPECT_NE(text(state("ended.json"), "secondC"), "7x");
}

TEST_F(DriveColours, WhenEditingEndsTheFirstColoursFieldsShowIt) {
    playWell(
        "type firstR 300\nkey Tab\nstate $/tab.json\ntype firstG 12abc\nkey Return\nstate $/return.json\n"
        "type firstB ''\nstate $/typing.json\nclick origComplement 5 5\nstate $/click.json\n"
        "type firstC 33.7x\nkey Tab\nstate $/inks.json\n",
        {"--color-services", "closed"});
    EXPECT_EQ(text(state("tab.json"), "firstR"), "255");
    EXPECT_EQ(state("tab.json")["firstColor"][0], 1.0);
    EXPECT_EQ(text(state("return.json"), "firstG"), "12");
    EXPECT_EQ(state("return.json")["firstColor"][1], 12 / 255.0);
    EXPECT_EQ(text(state("typing.json"), "firstB"), "");
    EXPECT_EQ(text(state("click.json"), "firstB"), "0");
    EXPECT_EQ(text(state("inks.json"), "firstC"), "33.7x") << "an ink stays as typed";
}

TEST_F(DriveColours, WhenEditingEndsTheSecondColoursFieldsShowIt) {
    playWell("type secondR 300\nkey Tab\ntype secondC 33.7x\nkey Tab\nstate $/state.json\n",
             {"--color-services", "closed", "--color", "#336699"});
    EXPECT_EQ(text(state(), "secondR"), "102");
    EXPECT_EQ(text(state(), "secondC"), "33");
}

TEST_F(DriveColours, ADropWhileTypingDoesNotComeBackOverWhatIsTypedNext) {
    playWell("type firstR 1\ndrop origFirstColor 5 5 '#c08040'\nstate $/dropped.json\nkey 2\nkey Tab\n"
             "state $/state.json\n");
    EXPECT_EQ(text(state("dropped.json"), "firstR"), "1");
    EXPECT_EQ(text(state("dropped.json"), "firstG"), "128");
    EXPECT_EQ(text(state(), "firstR"), "12");
    EXPECT_EQ(state()["firstColor"][0], 12 / 255.0);
    EXPECT_EQ(state()["firstColor"][1], 128 / 255.0);
}

TEST_F(DriveColours, NoFieldTakesADrop) {
    std::string script;
    for (const char* field : {"colorName", "findColor1", "findColor2", "firstR", "secondK"})
        script += std::string("drop ") + field + " 5 5 red dropped\n";
    playWell("state $/before.json\n" + script + "state $/state.json\n");
    EXPECT_EQ(state()["outlets"], state("before.json")["outlets"]);
}

TEST_F(DriveColours, EveryWayToEditAFieldRebuildsTheColour) {
    struct Step {
        const char* commands;
        const char* text;
    };
    const Step steps[] = {
        {"type firstR 12\nkey Ctrl+A\nkey 7\n", "7"}, // what is selected is replaced
        {"key Ctrl+Z\n", "12"},
        {"key Ctrl+Y\n", "7"},
        {"type firstR 200\nkey Ctrl+A\nkey Ctrl+X\n", ""},
        {"key Ctrl+V\n", "200"},
        {"key Backspace\n", "20"},
        {"key Home\nkey Delete\n", "0"},
    };
    std::string script;
    for (std::size_t i = 0; i < std::size(steps); ++i)
        script += steps[i].commands + ("state $/" + std::to_string(i)) + ".json\n";
    playWell(script);
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        const auto now = state(std::to_string(i) + ".json");
        EXPECT_EQ(text(now, "firstR"), steps[i].text) << steps[i].commands;
        EXPECT_EQ(now["firstColor"][0], std::atof(steps[i].text) / 255.0) << steps[i].commands;
        EXPECT_EQ(now["outlets"]["okButton"]["background"], now["firstColor"]) << steps[i].commands;
    }
}

TEST_F(DriveColours, ANameIsTypedInAnyScript) {
    const std::string name = "Caf\xc3\xa9 \xce\xa9 \xf0\x9f\x8e\xa8";
    playWell("type colorName '" + name + "'\nstate $/state.json\n");
    EXPECT_EQ(text(state(), "colorName"), name);
}

TEST_F(DriveColours, AClickTakesTheFocusAndEndsTyping) {
    playWell("type secondC 7x\nclick origFirstColor 5 5\nstate $/well.json\nclick firstG 5 5\nstate "
             "$/field.json\n");
    EXPECT_TRUE(state("well.json")["outlets"]["origFirstColor"]["focused"]);
    EXPECT_NE(text(state("well.json"), "secondC"), "7x");
    EXPECT_TRUE(state("field.json")["outlets"]["firstG"]["focused"]);
}

TEST_F(DriveColours, ASecondReturnIsOk) {
    const auto result =
        play("type firstR 16\nkey Return\nstate $/open.json\nkey Return\nstate $/never.json\n");
    EXPECT_EQ(result.out, "#104c19\n");
    EXPECT_TRUE(std::filesystem::exists(file("open.json")));
    EXPECT_FALSE(std::filesystem::exists(file("never.json")));
}

TEST_F(DriveColours, TypingTheSecondColourMovesWheelAndStrip) {
    playWell("type secondR 255\ntype secondG 0\ntype secondB 0\nstate $/state.json\n");
    const auto now = state();
    const double side = now["wheel"]["size"][0];
    EXPECT_EQ(now["secondColor"], (json{1.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(now["wheel"]["selectedPoint"], (json{side, side / 2}))
        << "pure red stands at the right of the rim";
    EXPECT_EQ(now["luminosity"], 1.0);
}

TEST_F(DriveColours, AClickOnTheWheelPicksAtExactlyThatPoint) {
    playWell("click chromaView 100.25 90.5\nstate $/state.json\n");
    const auto now = state();
    EXPECT_EQ(now["wheel"]["selectedPoint"], (json{100.25, 90.5}));
    EXPECT_EQ(now["outlets"]["origSecondColor"]["color"], now["secondColor"]);
    const double side = now["wheel"]["size"][0];
    EXPECT_EQ(now["wheel"]["oppositePoint"], (json{side - 100.25, side - 90.5}));
}

TEST_F(DriveColours, TabGoesFromTheFieldsToTheViewsAndFromASearchToItsList) {
    playWell("key Tab secondK\nstate $/1.json\nkey Tab\nstate $/2.json\nkey Tab findColor1\nstate $/3.json\n"
             "key Tab\nstate $/4.json\nkey Tab\nstate $/5.json\n");
    const char* order[] = {"chromaView", "lumiView", "swatch1", "findColor2", "swatch2"};
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(state(std::to_string(i + 1) + ".json")["outlets"][order[i]]["focused"]) << order[i];
}

TEST_F(DriveColours, BlackDroppedOnTheSecondWellStandsInTheMiddleOfTheWheel) {
    playWell("click chromaView 100 90\nclick lumiView 5 0\ndrag origComplement 5 5 origSecondColor 5 5\n"
             "state $/state.json\n");
    const double side = state()["wheel"]["size"][0];
    EXPECT_EQ(state()["wheel"]["selectedPoint"], (json{side / 2, side / 2}))
        << "the drag carries black alone, not the hue that it came from";
}

TEST_F(DriveColours, TheStripsEdgesAreItsDarkestAndBrightest) {
    playWell("click lumiView 5 0\nstate $/dark.json\nsweep lumiView 5 10 5 1000 3\nstate $/bright.json\n",
             {"--color", "#336699"});
    EXPECT_EQ(state("dark.json")["luminosity"], 0.0);
    EXPECT_EQ(state("dark.json")["secondColor"], (json{0.0, 0.0, 0.0, 1.0}));
    const auto bright = state("bright.json");
    EXPECT_GT(bright["luminosity"], 1.0) << "the sweep left the strip at the top";
    EXPECT_EQ(bright["secondColor"][2], 1.0) << "hue and saturation came back";
    EXPECT_NEAR(bright["secondColor"][0], 1.0 / 3, 1e-6);
}

TEST_F(DriveColours, ASweepIsAPressAndItsNumberOfMoves) {
    playWell("state $/start.json\nclick chromaView 100 90\nstate $/click.json\n"
             "sweep chromaView 100 90 140 130 1\nstate $/one.json\n"
             "sweep chromaView 100 90 140 130 7\nstate $/seven.json\n",
             {"--color-services", "closed"});
    const auto conversions = [&](const char* name) {
        return state(name)["host"]["calls"]["colorServices"].get<int>();
    };
    const int pick = conversions("click.json") - conversions("start.json");
    ASSERT_GT(pick, 0) << "the wheel asks the host at every pick";
    EXPECT_EQ(conversions("one.json") - conversions("click.json"), (1 + 1) * pick);
    EXPECT_EQ(conversions("seven.json") - conversions("one.json"), (1 + 7) * pick);
    EXPECT_EQ(state("seven.json")["wheel"]["selectedPoint"], (json{140.0, 130.0}));
}

TEST_F(DriveColours, TheStateTellsTheAngleOfTheWheelsPoint) {
    playWell("state $/start.json\n");
    const double half = state("start.json")["wheel"]["size"][0].get<double>() / 2;
    const std::string middle = std::to_string(half), side = std::to_string(half / 2);
    playWell("click chromaView " + middle + " " + std::to_string(half * 1.5) + "\nstate $/up.json\n" +
             "click chromaView " + side + " " + middle + "\nstate $/left.json\n");
    EXPECT_NEAR(state("up.json")["alpha2"], 90, 0.01);
    EXPECT_NEAR(state("left.json")["alpha2"], 180, 0.01);
    for (const char* name : {"start.json", "up.json", "left.json"})
        EXPECT_EQ(state(name)["alpha1"], 55.0) << name;
}

TEST_F(DriveColours, HarmonyModesToggleOrStay) {
    playWell("press complementOn:\nstate $/1.json\npress complementOn:\nstate $/2.json\n"
             "press quadriOn:\nstate $/3.json\npress quadriOn:\nstate $/4.json\n");
    EXPECT_EQ(state("1.json")["harmonyMode"], 1);
    EXPECT_EQ(state("2.json")["harmonyMode"], 0);
    EXPECT_EQ(state("3.json")["harmonyMode"], 4);
    EXPECT_EQ(state("4.json")["harmonyMode"], 4);
}

TEST_F(DriveColours, TheSwitchShowsTheToneChartWithItsControls) {
    playWell(
        "state $/before.json\nset toneOrDegrade 1\nset toneSlider 33\nset absOrRel 1\nstate $/after.json\n"
        "set toneOrDegrade 0\nstate $/again.json\n");
    const auto hidden = [&](const char* file, const char* outlet) {
        return state(file)["outlets"][outlet]["hidden"];
    };
    for (const char* outlet : {"myToneView", "absOrRel", "toneSlider"}) {
        EXPECT_TRUE(hidden("before.json", outlet)) << outlet;
        EXPECT_FALSE(hidden("after.json", outlet)) << outlet;
        EXPECT_TRUE(hidden("again.json", outlet)) << outlet;
    }
    EXPECT_TRUE(hidden("after.json", "myDegrade"));
    EXPECT_EQ(state("before.json")["outlets"]["toneSlider"]["value"], 50);
    EXPECT_EQ(state("after.json")["outlets"]["toneSlider"]["value"], 33);
    EXPECT_EQ(state("after.json")["outlets"]["absOrRel"]["value"], 1);
}

TEST_F(DriveColours, AClickOnTheGreyCornerOutsideTheToneChartPicksLightGrey) {
    playWell("set toneOrDegrade 1\nclick myToneView 3 3\nstate $/state.json\n");
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(state()["tone"]["selectedColor"][i], 0.9, 0.5 / 255 + 1e-9);
}

TEST_F(DriveColours, ADropFromOutsideLandsInTheGradientsCorner) {
    playWell("drop myDegrade 300 300 '#11223380'\nstate $/state.json\n");
    EXPECT_EQ(state()["gradient"]["UL"], (json{0x11 / 255.0, 0x22 / 255.0, 0x33 / 255.0, 1.0}))
        << "stored opaque";
    EXPECT_EQ(state()["gradient"]["LR"], (json{0.9, 0.1, 1.0, 1.0}));
}

TEST_F(DriveColours, AClickInTheGradientPicksAndADragCarriesThePick) {
    playWell("state $/none.json\ndrag myDegrade 3 3 origFirstColor 10 10\nstate $/state.json\n");
    EXPECT_EQ(state("none.json")["gradient"]["selectedColor"], nullptr);
    const auto now = state();
    const json picked = now["gradient"]["selectedColor"];
    EXPECT_NEAR(picked[0], 0.9, 1.0 / 255);
    EXPECT_EQ(now["firstColor"], picked) << "inside the process the doubles are exact";
    EXPECT_EQ(now["lastDrag"], (json{{"types", {"color"}}, {"imageSize", {20.0, 20.0}}, {"result", "copy"}}));
    EXPECT_EQ(now["pasteboard"]["types"], (json{"color"}));
}

TEST_F(DriveColours, WellsDragTheirColourOutAndTakeOne) {
    playWell("drag origSecondColor 20 20 origFirstColor 5 5\nstate $/state.json\n",
             {"--color", "rgb:4863,13312,65535"});
    EXPECT_EQ(state()["firstColor"], (json{0x12 / 255.0, 0x34 / 255.0, 1.0, 1.0}));
    EXPECT_EQ(text(state(), "firstR"), "18");
}

TEST_F(DriveColours, ADropOnTheSecondWellMovesTheWheel) {
    playWell("drop origSecondColor 5 5 lime\nstate $/state.json\n");
    EXPECT_EQ(state()["secondColor"], (json{0.0, 1.0, 0.0, 1.0}));
    EXPECT_EQ(state()["luminosity"], 1.0);
    EXPECT_EQ(text(state(), "secondG"), "255");
}

TEST_F(DriveColours, ColoursInOtherSpacesGoThroughTheHost) {
    playWell("drop origFirstColor 5 5 hsb:0,65535,65535\nstate $/state.json\n");
    EXPECT_EQ(state()["firstColor"], (json{1.0, 0.0, 0.0, 1.0}));
}

TEST_F(DriveColours, DialogAndHostTellOneColourByOneNumber) {
    using Told = std::pair<std::string, std::string>;
    const auto told = [this](const std::string& script, const std::string& offered) {
        const auto result =
            play(script + "key Ctrl+C origFirstColor\nstate $/state.json\nok\n", {"--color", offered});
        EXPECT_EQ(result.err, "");
        return Told(state()["pasteboard"]["string"].get<std::string>() + "\n", result.out);
    };
    EXPECT_EQ(told("", "#3366cc"), Told("#e54c19\n", "#e54c19\n")) << "the default";
    EXPECT_EQ(text(state(), "firstR"), "229") << "the field";
    const auto drop = told("drop origFirstColor 5 5 rgb:65000,32767,200\n", "#3366cc");
    EXPECT_EQ(drop, Told("#fd7f01\n", "#fd7f01\n"));
    EXPECT_EQ(text(state(), "firstR"), "252") << "the field truncates: kept";
}

TEST_F(DriveColours, Dropped8BitValuesComeBack) {
    std::string script, colours;
    for (int first = 0; first < 256; first += 25) {
        char colour[12];
        std::snprintf(colour, sizeof colour, "#%02x%02x%02x", first, std::min(first + 1, 255),
                      std::min(first + 2, 255));
        script += std::string("drop origFirstColor 5 5 ") + colour + "\nok\n";
        colours += std::string(colour) + "\n";
    }
    EXPECT_EQ(play(script, {"--picks", "11"}).out, colours);
}

TEST_F(DriveColours, AnOfferedHueIsPrintedAsTheDialogShowsIt) {
    for (const char* offered : {"hsb:32768,65535,65535", "hsb:65535,30000,50000", "cmyk:9000,8000,7000,60000",
                                "lab:40000,20000,50000", "gray:33333"}) {
        const auto result = play("state $/state.json\n", {"--color", offered, "--format", "rgb8"});
        EXPECT_EQ(result.exitCode, 1) << offered;
        const std::string shown =
            text(state(), "secondR") + ' ' + text(state(), "secondG") + ' ' + text(state(), "secondB");
        EXPECT_EQ(result.out, shown + "\n") << offered;
    }
}

TEST_F(DriveColours, TheSameHoldsOnASharpScreen) {
    const std::string script =
        "picture chromaView $/wheel.png\nclick chromaView 77 201.5\nclick myDegrade 3 99\n"
        "set toneOrDegrade 1\nclick myToneView 100.5 180.25\n"
        "shot $/shot.png\nstate $/state.json\n";
    playWell(script);
    const auto once = state();
    const auto wheel = sizeOf("wheel.png"), shot = sizeOf("shot.png");
    EXPECT_EQ(wheel, std::pair(once["wheel"]["size"][0].get<int>(), once["wheel"]["size"][1].get<int>()));
    EXPECT_EQ(shot.first, once["outlets"]["chromalogWindow"]["frame"][2]);
    environment_["QT_SCALE_FACTOR"] = "2";
    playWell(script);
    for (const char* key : {"secondColor", "wheel", "gradient", "tone", "outlets"})
        EXPECT_EQ(state()[key], once[key]) << key;
    EXPECT_EQ(sizeOf("wheel.png"), wheel) << "picks read one pixel a point";
    EXPECT_EQ(sizeOf("shot.png"), std::pair(2 * shot.first, 2 * shot.second)) << "the screen shows two";
}

TEST_F(DriveColours, ArrowKeysWorkOnTheStrip) {
    playWell("key Up lumiView\nstate $/1.json\nkey Shift+Down lumiView\nstate $/2.json\n",
             {"--color", "#808080"});
    EXPECT_GT(state("1.json")["luminosity"], 128 / 255.0);
    EXPECT_LT(state("2.json")["luminosity"], 128 / 255.0);
}

TEST_F(DriveColours, APickFromTheScreenHoldsNoScriptUpWhereThereIsNone) {
    writeScript("state $/before.json\npress pickFromScreen:\nstate $/state.json\nkey Ctrl+I\n");
    const auto result = runProgram(command({"--drive", file("script")}), environment_);
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(state()["status"], "There is no screen to pick from: the platform is offscreen");
    EXPECT_EQ(state()["secondColor"], state("before.json")["secondColor"]);
}

TEST_F(DriveColours, APickFromAShellSaysInALineWhyThereCanBeNone) {
    for (const char* display : {"offscreen", "xcb"}) {
        environment_["QT_QPA_PLATFORM"] = display;
        environment_["DISPLAY"] = "";
        const auto result = runProgram(command({"pick", "--json"}), environment_);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, testing::MatchesRegex("chromalog: There is no [^\n]*\n"));
    }
}

} // namespace
} // namespace chromalog::test
