#include "dialog/pick_fixture.h"

#include <unistd.h>

namespace chromalog::test {
namespace {

TEST_F(PickTest, TheAboutCallTouchesNothing) {
    AboutRecord about{};
    about.sSPBasic = &basic;
    runPluginMain(pickerSelectorAbout, &about, &data, &result, *this);
    EXPECT_EQ(result, 7);
    EXPECT_EQ(data, 0);
    EXPECT_EQ(gData, nullptr);
    EXPECT_EQ(sSPBasic, &basic);
}

TEST_F(PickTest, OkWritesTheFirstColourTruncated) {
    record.pickParms.colorComponents[3] = 1234;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        control<HeadlessTextField>(d, "firstR").type("255");
        control<HeadlessTextField>(d, "firstG").type("127.5");
        control<HeadlessTextField>(d, "firstB").type("0");
        c.okPressed();
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(record.pickParms.colorComponents[0], 65535);
    EXPECT_EQ(record.pickParms.colorComponents[1], 32767);
    EXPECT_EQ(record.pickParms.colorComponents[2], 0);
    EXPECT_EQ(record.pickParms.colorComponents[3], 1234) << "the fourth component is left as it was";
}

TEST_F(PickTest, CancelLeavesTheComponentsAndLabelsThemRgb) {
    record.pickParms.sourceSpace = record.pickParms.resultSpace = plugIncolorServicesCMYKSpace;
    for (int i = 0; i < 4; ++i)
        record.pickParms.colorComponents[i] = static_cast<std::uint16_t>(1000 + i);
    pick([](ChromalogControler& c, HeadlessDesktop&) { c.cancelPressed(); });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(record.pickParms.resultSpace, 0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(record.pickParms.colorComponents[i], 1000 + i);
    EXPECT_EQ(unlocks, 1);
    EXPECT_EQ(gData, nullptr);
    EXPECT_EQ(gChromalogControler, nullptr);
    EXPECT_EQ(gProtocolController, nullptr);
}

TEST_F(PickTest, TheHostsColourArrivesInTheSecondColourByItsHighBytes) {
    record.pickParms.colorComponents[0] = 0x12FF;
    record.pickParms.colorComponents[1] = 0x3400;
    record.pickParms.colorComponents[2] = 0xFFFF;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(Colour::rgb(0x12 / 255.0, 0x34 / 255.0, 1.0)));
        EXPECT_TRUE(c.colours().getFirstColor().sameRgb(Colour::rgb(0.9, 0.3, 0.1)))
            << "the first keeps its default";
        EXPECT_EQ(control<HeadlessTextField>(d, "secondR").text(), "18");
        EXPECT_EQ(control<HeadlessTextField>(d, "secondG").text(), "52");
        EXPECT_EQ(control<HeadlessTextField>(d, "firstR").text(), "229");
        EXPECT_EQ(c.colours().getLuminosity(), 1.0f);
    });
}

TEST_F(PickTest, AHostColourInInksIsConverted) {
    record.pickParms.sourceSpace = plugIncolorServicesCMYKSpace;
    record.pickParms.colorComponents[0] = 0xFF00;
    record.colorServices = [](ColorServicesInfo* info) -> std::int16_t {
        if (info->resultSpace != plugIncolorServicesRGBSpace) return 0;
        EXPECT_EQ(info->sourceSpace, 2);
        EXPECT_EQ(info->colorComponents[0], 255);
        info->colorComponents[0] = 51;
        info->colorComponents[1] = 102;
        info->colorComponents[2] = 153;
        return 0;
    };
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(Colour::rgb(0.2, 0.4, 0.6)));
    });
}

TEST_F(PickTest, WithoutColourServicesTheShiftedComponentsServeAsRgb) {
    record.pickParms.sourceSpace = plugIncolorServicesLabSpace;
    record.pickParms.colorComponents[0] = 0x3300;
    pick([](ChromalogControler& c, HeadlessDesktop&) { EXPECT_EQ(c.colours().getSecondColor().red(), 0.2); });
}

TEST_F(PickTest, OptionOkFlipsTheChoiceAndStaysOpen) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        auto& ok = control<HeadlessButton>(d, "okButton");
        EXPECT_EQ(ok.title(), "Use 1st color");
        EXPECT_TRUE(ok.background.sameRgb(c.colours().getFirstColor()));
        d.optionHeld = true;
        c.okPressed();
        EXPECT_EQ(ok.title(), "Use 2nd color");
        EXPECT_TRUE(ok.background.sameRgb(c.colours().getSecondColor()));
        EXPECT_EQ(c.record().useSecondColor, 1);
        c.okPressed();
        EXPECT_EQ(ok.title(), "Use 1st color");
        c.toggleSecondColor(); // the same without the key
        EXPECT_EQ(ok.title(), "Use 2nd color");
        EXPECT_TRUE(d.stops.empty());
        d.optionHeld = false;
        c.okPressed();
        EXPECT_EQ(d.stops.size(), 1u);
    });
    EXPECT_EQ(record.pickParms.colorComponents[0], 0) << "the offered black, as the second colour";
}

TEST_F(PickTest, TheSharedPointersAreThoseOfThePickThatRuns) {
    pick([&](ChromalogControler& c, HeadlessDesktop&) {
        EXPECT_EQ(gData, &globals());
        EXPECT_EQ(ChromalogControler::chromalogControler(), &c);
        EXPECT_EQ(ProtocolControler::protocolController(), &c.history());
        EXPECT_EQ(gProtocolController, &c.history());
    });
    EXPECT_EQ(gData, nullptr);
    EXPECT_EQ(ChromalogControler::chromalogControler(), nullptr);
    EXPECT_EQ(ProtocolControler::protocolController(), nullptr);
}

TEST_F(PickTest, AChoiceOf2ReadsAsTheSecondColourAndReturnsTheFirst) {
    pick();
    globals().useSecondColor = 2;
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_EQ(control<HeadlessButton>(d, "okButton").title(), "Use 2nd color");
        EXPECT_EQ(control<HeadlessButton>(d, "toggleSecondColor").state(), 0) << "the switch tells the truth";
        d.optionHeld = false;
        c.okPressed();
    });
    EXPECT_EQ(record.pickParms.colorComponents[0], 58981) << "0.9";
}

TEST_F(PickTest, TheOfferedColourStaysInViewAndComesBack) {
    record.pickParms.sourceSpace = plugIncolorServicesRGBSpace;
    record.pickParms.colorComponents[0] = 0x1234;
    record.pickParms.colorComponents[1] = 0x8001;
    record.pickParms.colorComponents[2] = 0x00ff;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        const Colour offered = c.colours().getSecondColor();
        auto& patch = control<HeadlessColorWell>(d, "offeredColor");
        EXPECT_TRUE(patch.color().sameRgb(offered));
        c.colours().changeSecondColor(Colour::rgb(0.5, 0.25, 0.75));
        EXPECT_TRUE(patch.color().sameRgb(offered));
        d.forms.at("chromalogWindow")->send("useOfferedColor:");
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(offered));
        EXPECT_EQ(c.colours().getLuminosity(), static_cast<float>(offered.brightness()));
        EXPECT_TRUE(control<HeadlessColorWell>(d, "origSecondColor").color().sameRgb(offered));
        c.toggleSecondColor();
        c.okPressed();
    });
    EXPECT_EQ(record.pickParms.colorComponents[1], 0x8080) << "what the dialog was offered: the high byte";
}

TEST_F(PickTest, ASecondPickSeesTheListsOfTheFirstEvenWithOption) {
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        c.panels().one.view.setNumberOfColors(3);
        c.record().swatchList1[2].SRed = 77;
        c.record().swatchName1[0] = 4;
    });
    prepare = [](HeadlessDesktop& d) { d.optionHeld = true; };
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        EXPECT_EQ(c.panels().one.view.getNumberOfColors(), 3);
        EXPECT_EQ(c.record().swatchList1[2].SRed, 77);
        EXPECT_EQ(c.record().swatchName1[0], 0) << "names are cleared in every pick";
    });
}

TEST_F(PickTest, AListGivesItsFirstRowAsTheFirstColour) {
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        c.panels().one.view.setNumberOfColors(1);
        c.record().swatchList1[0].SBlue = 65535;
        c.record().swatchList1[0].Namen[0] = 1;
        c.record().swatchList1[0].Namen[1] = 'B';
    });
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_TRUE(c.colours().getFirstColor().sameRgb(Colour::rgb(0, 0, 1)));
        EXPECT_EQ(control<HeadlessTextField>(d, "colorName").text(), "B");
    });
}

TEST_F(PickTest, AClickInList2DoesNotChangeTheFirstColour) {
    pick([](ChromalogControler& c, HeadlessDesktop&) {
        c.panels().two.view.setNumberOfColors(1);
        c.record().swatchList2[0].SGreen = 65535;
        c.panels().two.view.mouseDown({{10, 10}, false, false});
        EXPECT_TRUE(c.colours().getFirstColor().sameRgb(Colour::rgb(0.9, 0.3, 0.1)));
    });
}

TEST_F(PickTest, NoMemoryIsReported) {
    handles.newProc = [](std::int32_t) -> Handle { return nullptr; };
    bool shown = false;
    pick([&](ChromalogControler&, HeadlessDesktop&) { shown = true; });
    EXPECT_EQ(result, -108);
    EXPECT_FALSE(shown);
    EXPECT_EQ(unlocks, 0);
}

TEST_F(PickTest, WithoutADisplayNothingChanges) {
    display = false;
    pick();
    EXPECT_EQ(result, 7);
    EXPECT_EQ(data, 0);
    EXPECT_EQ(record.pickParms.resultSpace, 0);
}

TEST_F(PickTest, AMissingFormIsLoggedAndThePickEndsWithoutSaving) {
    std::vector<std::string> log;
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"chromalogWindow"}; };
    onReady = [&](ChromalogControler&, HeadlessDesktop& d) { log = d.logLines; };
    pick([](ChromalogControler&, HeadlessDesktop&) { FAIL() << "no loop without a window"; });
    EXPECT_EQ(result, 0);
    EXPECT_NE(std::find(log.begin(), log.end(), "failed to load prismaticaDialog xib"), log.end());
    EXPECT_FALSE(std::filesystem::exists(preferences()));
}

TEST_F(PickTest, EverySuiteIsReleasedAsOftenAsItWasAcquired) {
    pick();
    EXPECT_GT(acquired, 0);
    EXPECT_EQ(acquired, released);
    suitesExist = false;
    acquired = released = 0;
    pick();
    EXPECT_EQ(released, 0) << "what was not acquired is not released";
}

TEST_F(PickTest, TheCloseBoxIsCancel) {
    pick([](ChromalogControler&, HeadlessDesktop& d) {
        control<HeadlessWindow>(d, "chromalogWindow").onClose();
        EXPECT_EQ(d.stops, std::vector<std::int64_t>{0});
    });
    EXPECT_TRUE(std::filesystem::exists(preferences()));
}

TEST_F(PickTest, TheGradientShowsAtTheStart) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_TRUE(c.views().tone.hidden());
        EXPECT_FALSE(c.views().gradient.hidden());
        EXPECT_TRUE(control<HeadlessSlider>(d, "toneSlider").hidden());
        EXPECT_TRUE(control<HeadlessButton>(d, "absOrRel").hidden());
        control<HeadlessButton>(d, "toneOrDegrade").setState(1);
        d.forms.at("chromalogWindow")->send("switchTone:");
        EXPECT_FALSE(c.views().tone.hidden());
        EXPECT_TRUE(c.views().gradient.hidden());
        EXPECT_FALSE(control<HeadlessSlider>(d, "toneSlider").hidden());
    });
}

TEST_F(PickTest, HarmonyModesToggleAsTheyShould) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        auto& form = *d.forms.at("chromalogWindow");
        struct Row {
            const char* action;
            int once, twice;
        };
        for (const Row& row : {Row{"complementOn:", 1, 0}, Row{"harmoniquesOn:", 2, 0},
                               Row{"triComplementOn:", 3, 3}, Row{"quadriOn:", 4, 4}}) {
            form.send(row.action);
            EXPECT_EQ(c.colours().getHarmonyMode(), row.once) << row.action;
            form.send(row.action);
            EXPECT_EQ(c.colours().getHarmonyMode(), row.twice) << row.action;
        }
    });
}

} // namespace
} // namespace chromalog::test
