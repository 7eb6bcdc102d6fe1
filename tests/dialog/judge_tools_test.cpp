// Contrast, the custom angle and the gamut warning, as the dialog's menu "Tools" opens them.
#include "dialog/pick_fixture.h"
#include "judge/made_host.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

namespace chromalog::test {
namespace {

using testing::HasSubstr;

class JudgeToolsTest : public PickTest {
  protected:
    void SetUp() override {
        PickTest::SetUp();
        MadeHost::reset();
    }
    static HeadlessForm& dialog(HeadlessDesktop& d) { return *d.forms.at("chromalogWindow"); }
    static std::string text(HeadlessDesktop& d, const std::string& form, const std::string& outlet) {
        return d.forms.at(form)->outlet<HeadlessTextField>(outlet).text();
    }
};

class ContrastPanelTest : public JudgeToolsTest {};

TEST_F(ContrastPanelTest, TellsTheRatioOfBothColoursAndFollowsThem) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        const auto said = [&d](const char* outlet) { return text(d, "ContrastPanel", outlet); };
        c.colours().enterFirst(Colour::rgb(0, 0, 0));
        c.colours().enterSecond(Colour::rgb(1, 1, 1));
        EXPECT_FALSE(d.forms.contains("ContrastPanel")) << "made when it is asked for";
        dialog(d).send("showContrast:");
        EXPECT_EQ(said("contrastRatio"), "21.00:1");
        EXPECT_EQ(said("contrastNormal"), "AAA");
        EXPECT_EQ(said("protanopiaRatio"), "21.00:1");
        c.colours().enterFirst(Colour::rgb(119 / 255.0, 119 / 255.0, 119 / 255.0));
        EXPECT_EQ(said("contrastRatio"), "4.47:1") << "4.478 is not 4.48";
        EXPECT_EQ(said("contrastNormal"), "below AA");
        EXPECT_EQ(said("contrastLarge"), "AA");
        c.colours().enterFirst(Colour::rgb(1, 0, 0));
        c.colours().enterSecond(Colour::rgb(0, 0.5, 0));
        EXPECT_NE(said("protanopiaRatio"), said("contrastRatio"));
        EXPECT_NE(said("protanopiaRatio"), said("deuteranopiaRatio"));
        EXPECT_NE(said("tritanopiaRatio"), said("deuteranopiaRatio"));
    });
}

TEST_F(ContrastPanelTest, PutAwayItFollowsNothing) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        dialog(d).send("showContrast:");
        const std::string before = text(d, "ContrastPanel", "contrastRatio");
        auto& window = d.forms.at("ContrastPanel")->outlet<HeadlessWindow>("contrastWindow");
        EXPECT_EQ(window.parent, &dialog(d).outlet<HeadlessWindow>("chromalogWindow"));
        window.onClose();
        EXPECT_FALSE(window.visible());
        c.colours().enterFirst(Colour());
        c.colours().enterSecond(Colour::rgb(1, 1, 1));
        EXPECT_EQ(text(d, "ContrastPanel", "contrastRatio"), before);
        dialog(d).send("showContrast:");
        EXPECT_EQ(text(d, "ContrastPanel", "contrastRatio"), "21.00:1");
    });
}

TEST_F(ContrastPanelTest, ShowsEachColourOnTheOther) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        const Colour red = Colour::rgb(1, 0, 0);
        c.colours().enterFirst(red);
        c.colours().enterSecond(Colour::rgb(1, 1, 1));
        dialog(d).send("showContrast:");
        View& sample = *d.forms.at("ContrastPanel")->views.at("contrastSample");
        RecordingCanvas canvas;
        sample.drawRect(canvas);
        const auto grounds = canvas.only(Primitive::Kind::fillRect);
        const auto texts = canvas.only(Primitive::Kind::text);
        ASSERT_EQ(grounds.size(), 2u);
        ASSERT_EQ(texts.size(), 4u) << "large and normal, both ways";
        EXPECT_TRUE(grounds[0].colour.sameRgb(Colour::rgb(1, 1, 1)));
        EXPECT_TRUE(texts[0].colour.sameRgb(red));
        EXPECT_TRUE(grounds[1].colour.sameRgb(red));
        EXPECT_TRUE(texts[3].colour.sameRgb(Colour::rgb(1, 1, 1)));
        EXPECT_EQ(sample.accessible().value, "3.99:1");
    });
}

class CustomAngleTest : public JudgeToolsTest {
  protected:
    static constexpr double pi = std::numbers::pi;
    static HeadlessForm& panel(HeadlessDesktop& d) { return *d.forms.at("CustomAngle"); }
    static Colour well(HeadlessDesktop& d, const char* outlet) {
        return panel(d).outlet<HeadlessColorWell>(outlet).color();
    }
    static HeadlessTextField& field(HeadlessDesktop& d) {
        return panel(d).outlet<HeadlessTextField>("customAngleDegrees");
    }
    /// A point near the rim, so many degrees from the selected one.
    static Point handleAt(ChromalogControler& c, double degrees) {
        const auto& wheel = c.views().wheel;
        const double half = wheel.bounds().w / 2;
        const double angle =
            std::atan2(wheel.selectedPoint().y - half, wheel.selectedPoint().x - half) + degrees * pi / 180;
        return {half + (half - 9) * std::cos(angle), half + (half - 9) * std::sin(angle)};
    }
};

TEST_F(CustomAngleTest, ItsWellsAreReadAsThoseOfTheOtherHarmonies) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        auto& wheel = c.views().wheel;
        c.colours().enterSecond(Colour::hsb(0.1, 0.6, 0.9));
        dialog(d).send("showCustomAngle:");
        for (const double y : {90.0, 170.0}) { // below and above the horizontal diameter
            wheel.mouseDown({{60, y}});
            wheel.mouseDown({{60, y}});
            for (const int degrees : {5, 30, 55, 175}) {
                field(d).type(std::to_string(degrees));
                const auto points =
                    harmonyPoints({256, 256}, wheel.selectedPoint(), static_cast<float>(degrees));
                EXPECT_TRUE(well(d, "customAngle1Color").sameRgb(wheel.getColorAtPoint(points.balance1)));
                EXPECT_TRUE(well(d, "customAngle2Color").sameRgb(wheel.getColorAtPoint(points.balance2)));
                EXPECT_FALSE(well(d, "customAngle1Color").sameRgb(well(d, "customAngle2Color")));
            }
            field(d).type("55");
            EXPECT_TRUE(well(d, "customAngle1Color")
                            .sameRgb(control<HeadlessColorWell>(d, "triHarmoni1Color").color()));
            EXPECT_TRUE(well(d, "origCustomAngle").sameRgb(c.colours().getSecondColor()));
        }
        EXPECT_EQ(c.colours().getAlpha(), 55.0F) << "the spread of the others stays";
        EXPECT_EQ(c.colours().getHarmonyMode(), 0);
    });
}

TEST_F(CustomAngleTest, FollowsEveryChangeOfTheSecondColour) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        dialog(d).send("showCustomAngle:");
        EXPECT_EQ(field(d).text(), "30");
        const auto follows = [&](const char* what) {
            const auto points = harmonyPoints({256, 256}, c.views().wheel.selectedPoint(), 30);
            EXPECT_TRUE(
                well(d, "customAngle1Color").sameRgb(c.views().wheel.getColorAtPoint(points.balance1)))
                << what;
            EXPECT_TRUE(well(d, "origCustomAngle").sameRgb(c.colours().getSecondColor())) << what;
        };
        c.colours().enterSecond(Colour::rgb(0.2, 0.7, 0.1));
        follows("entered");
        c.colours().moveLuminosity(0.4F);
        follows("brightness");
        c.views().wheel.mouseDown({{100, 140}});
        follows("wheel");
    });
}

TEST_F(CustomAngleTest, OtherAnglesAreRefusedAndSaidSo) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        (void)c;
        dialog(d).send("showCustomAngle:");
        for (const char* text : {"4", "176", "12.5", "", "a", "-30", "1e2x", "999999999999"}) {
            field(d).type("40");
            field(d).type(text);
            EXPECT_NE(field(d).fault, "") << text;
            field(d).endEditing();
            EXPECT_EQ(field(d).fault, "") << text;
            EXPECT_THAT((std::set<std::string>{"40", "99", "5", "17", "12"}),
                        testing::Contains(field(d).text()))
                << text << ": what was typed on the way to it";
        }
    });
}

TEST_F(CustomAngleTest, AHandleIsDraggedAndNothingIsPicked) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        auto& wheel = c.views().wheel;
        c.colours().enterSecond(Colour::hsb(0.1, 0.6, 0.9));
        dialog(d).send("showCustomAngle:");
        const Colour before = c.colours().getSecondColor();
        const Point selected = wheel.selectedPoint();
        for (const int side : {1, -1}) {
            field(d).type("30");
            field(d).endEditing();
            wheel.mouseDown({handleAt(c, side * 30)});
            wheel.mouseDragged({handleAt(c, side * 80.3)});
            EXPECT_EQ(field(d).text(), "80");
            wheel.mouseDragged({handleAt(c, side * 1)});
            EXPECT_EQ(field(d).text(), "5");
            wheel.mouseDragged({handleAt(c, side * 179)});
            EXPECT_EQ(field(d).text(), "175");
            wheel.mouseDragged({handleAt(c, -side * 90)});
            EXPECT_EQ(field(d).text(), "90") << "the pointer crossed over";
            wheel.mouseDragged({{128, 128}});
            EXPECT_EQ(field(d).text(), "90") << "the middle is at no angle";
            wheel.mouseUp({});
        }
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(before));
        EXPECT_EQ(wheel.selectedPoint(), selected);
        wheel.mouseDown({handleAt(c, 120)});
        EXPECT_EQ(wheel.selectedPoint(), handleAt(c, 0)) << "beside the handles a press picks";
    });
}

TEST_F(CustomAngleTest, PutAwayThereIsNoHandle) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        auto& wheel = c.views().wheel;
        c.colours().enterSecond(Colour::hsb(0.1, 0.6, 0.9));
        dialog(d).send("showCustomAngle:");
        const Point handle = handleAt(c, 30), selected = wheel.selectedPoint();
        wheel.mouseDown({handle});
        panel(d).outlet<HeadlessWindow>("customAngleWindow").onClose();
        wheel.mouseDragged({{100, 100}});
        EXPECT_EQ(wheel.selectedPoint(), selected) << "what began as no pick is none";
        wheel.mouseUp({});
        wheel.mouseDown({handle});
        EXPECT_EQ(wheel.selectedPoint(), handle);
        const Colour left = well(d, "customAngle1Color");
        wheel.mouseDragged({{20, 100}});
        EXPECT_TRUE(well(d, "customAngle1Color").sameRgb(left)) << "hidden it costs nothing";
        RecordingCanvas canvas;
        wheel.drawDisplayLayer(canvas);
        EXPECT_EQ(canvas.only(Primitive::Kind::strokePath).size(), 2u) << "the wheel's own";
    });
}

TEST_F(CustomAngleTest, IsKeptForTheNextPickAndRead) {
    for (const auto& [kept, shown] : std::vector<std::pair<double, std::string>>{
             {80, "80"}, {1e300, "175"}, {-1e300, "5"}, {66.6, "67"}, {0, "5"}, {std::nan(""), "5"}}) {
        prepare = [kept = kept](HeadlessDesktop& d) { d.numbers["customAngle"] = kept; };
        pick([&shown = shown](ChromalogControler&, HeadlessDesktop& d) {
            dialog(d).send("showCustomAngle:");
            EXPECT_EQ(field(d).text(), shown);
            field(d).type("44");
            panel(d).outlet<HeadlessWindow>("customAngleWindow").onClose();
            EXPECT_EQ(d.numbers["customAngle"], 44);
        });
    }
}

TEST_F(CustomAngleTest, WithoutItsFormThereIsNone) {
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"CustomAngle", "ContrastPanel"}; };
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        c.colours().enterSecond(Colour::hsb(0.1, 0.6, 0.9));
        for (const char* item : {"showContrast:", "showCustomAngle:", "showCustomAngle:"})
            dialog(d).send(item);
        EXPECT_THAT(d.logLines, testing::IsSupersetOf({"failed to load the form ContrastPanel",
                                                       "failed to load the form CustomAngle"}));
        const Point handle = handleAt(c, 30);
        c.views().wheel.mouseDown({handle});
        EXPECT_EQ(c.views().wheel.selectedPoint(), handle);
    });
}

TEST_F(CustomAngleTest, ItsColoursAreAScheme) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        dialog(d).send("showCustomAngle:");
        ColourOperations* operations = panel(d).colours;
        ASSERT_NE(operations, nullptr);
        for (const MenuItem& item : operations->menuOf({"customAngle2Color", well(d, "customAngle2Color")}))
            if (item.action == "addSchemeToList1:") item.run();
        const SwatchPanel& one = c.panels().one;
        ASSERT_EQ(one.view.getNumberOfColors(), 3);
        EXPECT_EQ(nameBytes(one.records[2]), "Custom 3");
        EXPECT_EQ(one.records[2].SBlue, static_cast<int>(well(d, "customAngle2Color").blue() * 65535));
        EXPECT_EQ(c.history().undoSteps(), 1);
    });
}

TEST_F(CustomAngleTest, AnotherAngleIsDrawn) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        dialog(d).send("showCustomAngle:");
        auto& wheel = dynamic_cast<HeadlessViewHost&>(*c.views().wheel.host());
        const int before = wheel.redisplays;
        field(d).type("44");
        EXPECT_GT(wheel.redisplays, before);
    });
}

class GamutWarningTest : public JudgeToolsTest {
  protected:
    static HeadlessButton& item(HeadlessDesktop& d) { return control<HeadlessButton>(d, "itemGamutWarning"); }
    static HeadlessButton& mark(HeadlessDesktop& d, bool first) {
        return control<HeadlessButton>(d, first ? "gamutFirst" : "gamutSecond");
    }
    static std::size_t strokesOver(ChromalogControler& c) {
        RecordingCanvas canvas;
        c.views().wheel.drawDisplayLayer(canvas);
        return canvas.only(Primitive::Kind::strokePath).size();
    }
};

TEST_F(GamutWarningTest, WithoutServicesItIsDisabledAndSaysWhy) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_FALSE(item(d).enabled());
        EXPECT_THAT(item(d).title(), HasSubstr("converts no colors"));
        dialog(d).send("toggleGamutWarning:");
        EXPECT_TRUE(mark(d, true).hidden() && mark(d, false).hidden());
        EXPECT_EQ(strokesOver(c), 2u);
    });
}

TEST_F(GamutWarningTest, WithServicesThatFailItSaysSoWhenItIsAskedFor) {
    record.colorServices = MadeHost::convert;
    MadeHost::failsAfter = 0;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        EXPECT_TRUE(item(d).enabled());
        dialog(d).send("toggleGamutWarning:");
        EXPECT_FALSE(item(d).enabled());
        EXPECT_EQ(item(d).state(), 0);
        EXPECT_THAT(d.status.text(), HasSubstr("does not convert"));
        EXPECT_EQ(strokesOver(c), 2u);
    });
}

TEST_F(GamutWarningTest, MarksWhatCannotBePrintedAndReplacesIt) {
    record.colorServices = MadeHost::convert;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        c.colours().enterFirst(Colour::rgb(1, 0, 0));
        c.colours().enterSecond(Colour::rgb(0.3, 0.3, 0.3));
        dialog(d).send("toggleGamutWarning:");
        EXPECT_EQ(item(d).state(), 1);
        EXPECT_FALSE(mark(d, true).hidden());
        EXPECT_THAT(mark(d, true).help, HasSubstr("#640000"));
        EXPECT_TRUE(mark(d, false).hidden());
        dialog(d).send("usePrintableFirst:");
        EXPECT_TRUE(c.colours().getFirstColor().sameRgb(Colour::rgb(100 / 255.0, 0, 0)));
        EXPECT_TRUE(mark(d, true).hidden());
        c.colours().enterSecond(Colour::rgb(0, 1, 0));
        EXPECT_FALSE(mark(d, false).hidden());
        dialog(d).send("usePrintableSecond:");
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(Colour::rgb(0, 100 / 255.0, 0)));
        EXPECT_EQ(c.colours().getLuminosity(), 100 / 255.0F) << "wheel and strip have followed";
        dialog(d).send("usePrintableSecond:");
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(Colour::rgb(0, 100 / 255.0, 0)));
        EXPECT_EQ(c.record().useSecondColor, 0);
    });
}

TEST_F(GamutWarningTest, AColourThatStaysIsNotJudgedAgain) {
    record.colorServices = MadeHost::convert;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        const auto callsOfAnEvent = [&c] {
            const int before = MadeHost::calls;
            c.colours().enterSecond(Colour::rgb(0.3, 0.3, 0.3));
            return MadeHost::calls - before;
        };
        callsOfAnEvent();
        const int without = callsOfAnEvent();
        dialog(d).send("toggleGamutWarning:");
        EXPECT_EQ(callsOfAnEvent(), without);
    });
}

TEST_F(GamutWarningTest, TheOutlineComesBesideTheEventsAndGoesWithTheRest) {
    record.colorServices = MadeHost::convert;
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        c.colours().enterSecond(Colour::rgb(0.1, 0.9, 0.2));
        dialog(d).send("toggleGamutWarning:");
        const int before = MadeHost::calls;
        EXPECT_EQ(strokesOver(c), 2u) << "not in the event itself";
        auto& wheel = dynamic_cast<HeadlessViewHost&>(*c.views().wheel.host());
        const int asked = wheel.redisplays;
        for (int slice = 0; slice < 500; ++slice)
            d.advance(0.001);
        EXPECT_GT(MadeHost::calls, before + 1000);
        EXPECT_EQ(strokesOver(c), 4u);
        EXPECT_GT(wheel.redisplays, asked);
        const int found = MadeHost::calls;
        c.views().wheel.mouseDown({{100, 100}});
        for (int slice = 0; slice < 500; ++slice)
            d.advance(0.001);
        EXPECT_LT(MadeHost::calls, found + 10) << "the same brightness: remembered";
        c.colours().moveLuminosity(0.5F);
        EXPECT_EQ(strokesOver(c), 4u) << "the one before stands until the new one is found";
        dialog(d).send("toggleGamutWarning:");
        EXPECT_EQ(strokesOver(c), 2u);
        EXPECT_TRUE(mark(d, true).hidden() && mark(d, false).hidden());
        const int hidden = MadeHost::calls;
        for (int slice = 0; slice < 500; ++slice)
            d.advance(0.001);
        EXPECT_EQ(MadeHost::calls, hidden) << "nothing is searched while it is hidden";
    });
}

} // namespace
} // namespace chromalog::test
