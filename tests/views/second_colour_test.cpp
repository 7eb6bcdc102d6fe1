#include "dialog/pick_fixture.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>

#include <deque>
#include <utility>

namespace chromalog::test {
namespace {

using testing::ElementsAre;

constexpr double side = 256;

/// The dialog with its wheel and strip laid out, steered as a person would.
class SecondColour : public PickTest {
  protected:
    void inDialog(std::function<void(ChromalogControler&)> steps) {
        pick([&](ChromalogControler& controler, HeadlessDesktop& desktop) {
            desktop_ = &desktop;
            view("chromaView").layOut({0, 0, side, side});
            view("lumiView").layOut({0, 0, 30, side});
            view("lumiView").mouseDown({{15, side}}); // the host offers black
            steps(controler);
        });
    }
    View& view(const std::string& name) { return *desktop_->forms.at("chromalogWindow")->views.at(name); }
    Colour well(const std::string& name) { return control<HeadlessColorWell>(*desktop_, name).color(); }
    void type(const std::string& field, const std::string& text) {
        control<HeadlessTextField>(*desktop_, field).type(text);
    }
    void press(const std::string& action) { desktop_->forms.at("chromalogWindow")->send(action); }
    void clickWheel(Point p) {
        view("chromaView").mouseDown({p});
        view("chromaView").mouseDragged({p}); // the first event picks in the row of the point before
    }
    std::vector<Colour> harmonyWells() {
        std::vector<Colour> colours;
        for (const char* name : {"complementColor", "triHarmoni1Color", "triHarmoni2Color", "equi1Color",
                                 "equi2Color", "quadri1Color", "quadri2Color", "quadri3Color"})
            colours.push_back(well(name));
        return colours;
    }

    HeadlessDesktop* desktop_ = nullptr;
};

TEST_F(SecondColour, APickOnTheWheelReachesEveryWellThatShowsIt) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({180, 150});
        const Colour picked = c.colours().getSecondColor();
        EXPECT_TRUE(picked.sameRgb(c.views().wheel.getColorAtPoint({180, 150})));
        EXPECT_EQ(picked.alpha(), 1.0);
        for (const char* name :
             {"origSecondColor", "origComplement", "origHarmony", "origTrichrome", "origQuadrichrome"})
            EXPECT_TRUE(well(name).sameRgb(picked)) << name;
    });
}

TEST_F(SecondColour, EachHarmonyPointFillsItsWellWithTheShiftInTheQuadriGroup) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({180, 150});
        const HarmonyPoints& h = c.views().wheel.harmony();
        const std::pair<const char*, Point> wells[] = {
            {"complementColor", h.opposite},  {"quadri2Color", h.opposite},
            {"equi1Color", h.equi1},          {"equi2Color", h.equi2},
            {"triHarmoni1Color", h.balance1}, {"triHarmoni2Color", h.balance2},
            {"quadri1Color", h.quadri1},      {"quadri3Color", h.quadri2}};
        for (const auto& [name, point] : wells)
            EXPECT_TRUE(well(name).sameRgb(c.views().wheel.getColorAtPoint(point))) << name;
    });
}

TEST_F(SecondColour, AHarmonyCodeOutsideOneToSevenChangesNoWell) {
    inDialog([&](ChromalogControler& c) {
        const auto before = harmonyWells();
        for (const std::int16_t code : {0, 8, -1, 32767, -32768})
            c.colours().setoppositeColor(Colour::rgb(0.25, 0.5, 0.75), code);
        const auto after = harmonyWells();
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_TRUE(after[i].sameRgb(before[i])) << i;
        c.colours().setoppositeColor(Colour::rgb(0.25, 0.5, 0.75), 7);
        EXPECT_FALSE(harmonyWells().back().sameRgb(before.back()));
    });
}

TEST_F(SecondColour, TheCentreFillsEveryHarmonyWellWithItsGrey) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({side / 2, side / 2});
        for (const Colour& colour : harmonyWells())
            EXPECT_TRUE(colour.sameRgb(c.colours().getSecondColor()));
    });
}

TEST_F(SecondColour, CrossingTheHorizontalDiameterSwapsThePairsOfWells) {
    inDialog([&](ChromalogControler&) {
        clickWheel({200.5, 128.01});
        const auto above = harmonyWells();
        clickWheel({200.5, 127.99});
        const auto below = harmonyWells();
        const auto near = [](const Colour& a, const Colour& b) {
            return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                       std::abs(a.blue() - b.blue()) <
                   0.08;
        };
        EXPECT_FALSE(near(above[1], above[2]));
        for (auto [one, other] : {std::pair{1, 2}, {3, 4}, {5, 7}}) {
            EXPECT_TRUE(near(above[one], below[other])) << one;
            EXPECT_TRUE(near(above[other], below[one])) << one;
        }
    });
}

TEST_F(SecondColour, TheBottomOfTheStripTurnsEverythingBlackAndTheTopBringsItBack) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({180, 150});
        const Colour before = c.colours().getSecondColor();
        view("lumiView").mouseDown({{15, 0}});
        EXPECT_EQ(c.colours().getLuminosity(), 0.0f);
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(Colour()));
        EXPECT_TRUE(c.views().wheel.getColorAtPoint({side / 2, side / 2}).sameRgb(Colour()));
        for (const Colour& colour : harmonyWells())
            EXPECT_TRUE(colour.sameRgb(Colour()));
        view("lumiView").mouseDragged({{15, side}});
        EXPECT_EQ(c.colours().getLuminosity(), 1.0f);
        EXPECT_NEAR(c.colours().getSecondColor().hue(), before.hue(), 1e-12);
        EXPECT_NEAR(c.colours().getSecondColor().saturation(), before.saturation(), 1e-12);
    });
}

TEST_F(SecondColour, TheStripReadsTheHarmoniesFromTheNewPictureAndLeavesThePoint) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({180, 150});
        const Point before = c.views().wheel.selectedPoint();
        view("lumiView").mouseDown({{15, side / 2}});
        EXPECT_EQ(c.views().wheel.selectedPoint(), before);
        EXPECT_EQ(c.views().wheel.picture().pixels, plainWheelPicture(side, 0.5f).pixels);
        EXPECT_TRUE(well("complementColor")
                        .sameRgb(c.views().wheel.getColorAtPoint(c.views().wheel.harmony().opposite)));
        EXPECT_NEAR(well("complementColor").brightness(), 0.5, 1 / 255.0);
    });
}

TEST_F(SecondColour, BeyondTheStripTheLuminosityIsKeptUnclamped) {
    inDialog([&](ChromalogControler& c) {
        view("lumiView").mouseDragged({{15, 1.5 * side}});
        EXPECT_EQ(c.colours().getLuminosity(), 1.5f);
        EXPECT_EQ(c.colours().getSecondColor().brightness(), 1.0);
        EXPECT_EQ(c.views().wheel.picture().pixels, plainWheelPicture(side, 1.0f).pixels);
    });
}

TEST_F(SecondColour, TypedValuesMoveThePointAndTheBrightness) {
    inDialog([&](ChromalogControler& c) {
        type("secondR", "128");
        type("secondG", "0");
        type("secondB", "0");
        const Point p = c.views().wheel.selectedPoint();
        EXPECT_NEAR(p.x, side, 1e-9); // hue 0, full saturation
        EXPECT_NEAR(p.y, side / 2, 1e-9);
        EXPECT_EQ(c.views().wheel.picture().pixels,
                  plainWheelPicture(side, static_cast<float>(128 / 255.0)).pixels);
    });
}

TEST_F(SecondColour, ADropOnTheSecondWellMovesThePoint) {
    inDialog([&](ChromalogControler& c) {
        control<HeadlessColorWell>(*desktop_, "origSecondColor").drop(Colour::hsb(0.25, 0.5, 0.8, 0.5));
        EXPECT_NEAR(c.views().wheel.selectedPoint().x, side / 2, 1e-6);
        EXPECT_NEAR(c.views().wheel.selectedPoint().y, side / 4, 1e-6);
        EXPECT_EQ(c.colours().getSecondColor().alpha(), 1.0);
    });
}

TEST_F(SecondColour, AnotherWellTakesNoDrop) {
    inDialog([&](ChromalogControler& c) {
        clickWheel({180, 150});
        const Colour second = c.colours().getSecondColor();
        auto& complement = control<HeadlessColorWell>(*desktop_, "complementColor");
        const Colour before = complement.color();
        EXPECT_FALSE(complement.onDrop);
        complement.drop(Colour::rgb(1, 1, 0));
        EXPECT_TRUE(complement.color().sameRgb(before));
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(second));
    });
}

TEST_F(SecondColour, ComplementAndHarmonicsToggleTheOthersStay) {
    inDialog([&](ChromalogControler& c) {
        struct Row {
            const char* action;
            int mode;
        };
        for (const Row& row :
             {Row{"complementOn:", 1}, Row{"complementOn:", 0}, Row{"harmoniquesOn:", 2},
              Row{"harmoniquesOn:", 0}, Row{"triComplementOn:", 3}, Row{"triComplementOn:", 3},
              Row{"quadriOn:", 4}, Row{"quadriOn:", 4}, Row{"complementOn:", 1}}) {
            const auto wells = harmonyWells();
            press(row.action);
            EXPECT_EQ(c.colours().getHarmonyMode(), row.mode) << row.action;
            const auto after = harmonyWells();
            for (std::size_t i = 0; i < wells.size(); ++i)
                EXPECT_TRUE(after[i].sameRgb(wells[i]));
        }
    });
}

TEST_F(SecondColour, AClickInTheToneChartChangesNoWorkingColour) {
    inDialog([&](ChromalogControler& c) {
        const Colour first = c.colours().getFirstColor(), second = c.colours().getSecondColor();
        desktop_->nextCapture = {1, 1, {0xFF123456}};
        view("myToneView").mouseDown({{0, 0}});
        EXPECT_TRUE(c.views().tone.selectedColor()->sameRgb(Bitmap::colourOf(0xFF123456)));
        EXPECT_TRUE(c.colours().getFirstColor().sameRgb(first));
        EXPECT_TRUE(c.colours().getSecondColor().sameRgb(second));
    });
}

TEST_F(SecondColour, TheSliderAndTheModeMarkTheToneChartAlone) {
    inDialog([&](ChromalogControler&) {
        const auto marks = [&](const char* name) {
            return dynamic_cast<HeadlessViewHost&>(*view(name).host()).redisplays;
        };
        for (const char* action : {"changeTone:", "switchAbs:"}) {
            const int tone = marks("myToneView"), gradient = marks("myDegrade"), wheel = marks("chromaView");
            press(action);
            EXPECT_EQ(marks("myToneView"), tone + 1) << action;
            EXPECT_EQ(marks("myDegrade"), gradient) << action;
            EXPECT_EQ(marks("chromaView"), wheel) << action;
        }
    });
}

TEST_F(SecondColour, TheToneChartFollowsItsSliderAndItsMode) {
    inDialog([&](ChromalogControler& c) {
        View& tone = view("myToneView");
        tone.layOut({0, 0, 160, 160});
        for (auto [slider, mode] : {std::pair{25.0, 1}, {25.0, 0}, {100.0, 1}, {0.0, 0}}) {
            control<HeadlessSlider>(*desktop_, "toneSlider").setValue(slider);
            control<HeadlessButton>(*desktop_, "absOrRel").setState(mode);
            RecordingCanvas canvas;
            tone.drawRect(canvas);
            const Colour second = c.colours().getSecondColor();
            const ToneCircle circle = toneCircle(static_cast<float>(slider) / 100, second, mode == 1);
            EXPECT_TRUE(canvas.primitives.at(2).colour.sameRgb(toneCell(circle, second, 7, 31)));
        }
    });
}

/// What a change of colour reaches, in order: "near" the nearest swatch, "ok" the OK button, "tone", "strip"
/// and "wheel" the marks for redraw, "harmonies" the first of the harmony wells.
class WhatFollows : public SecondColour {
  protected:
    void watching(std::function<void(ChromalogControler&)> steps) {
        inDialog([&](ChromalogControler& c) {
            c.panels().one.view.setNumberOfColors(1);
            control<HeadlessColorWell>(*desktop_, "nearColor").onShow = [this] { tell("near"); };
            control<HeadlessButton>(*desktop_, "okButton").onShow = [this] { tell("ok"); };
            control<HeadlessColorWell>(*desktop_, "complementColor").onShow = [this] { tell("harmonies"); };
            for (auto [name, word] :
                 {std::pair{"myToneView", "tone"}, {"lumiView", "strip"}, {"chromaView", "wheel"}})
                view(name).setHost(&hosts_.emplace_back([this, word = word] { tell(word); }));
            steps(c);
        });
    }
    void tell(const char* word) { told_.emplace_back(word); }
    std::vector<std::string> told() { return std::exchange(told_, {}); }

  private:
    class TellingHost : public HeadlessViewHost {
      public:
        explicit TellingHost(std::function<void()> tell) : tell_(std::move(tell)) {}
        void needsDisplay() override { tell_(); }

      private:
        std::function<void()> tell_;
    };
    std::deque<TellingHost> hosts_;
    std::vector<std::string> told_;
};

TEST_F(WhatFollows, AnEnteredSecondColourIsShownWithItsNearestThenPlacedThenOffered) {
    watching([&](ChromalogControler&) {
        const auto follows =
            ElementsAre("near", "near", "ok", "tone", "strip", "strip", "harmonies", "wheel", "ok");
        type("secondR", "1");
        EXPECT_THAT(told(), follows);
        type("secondC", "1");
        EXPECT_THAT(told(), follows);
        control<HeadlessColorWell>(*desktop_, "origSecondColor").drop(Colour::rgb(0.1, 0.2, 0.3));
        EXPECT_THAT(told(), follows);
    });
}

TEST_F(WhatFollows, APickOnTheWheelComesBeforeItsHarmonies) {
    watching([&](ChromalogControler&) {
        view("chromaView").mouseDown({{180, 150}});
        EXPECT_THAT(told(), ElementsAre("near", "ok", "tone", "strip", "harmonies", "wheel"));
    });
}

TEST_F(WhatFollows, TheStripSetsTheColourThenTheWheelThenTheHarmonies) {
    watching([&](ChromalogControler&) {
        view("lumiView").mouseDown({{15, side / 2}});
        EXPECT_THAT(told(), ElementsAre("strip", "near", "ok", "tone", "strip", "wheel", "harmonies"));
    });
}

TEST_F(WhatFollows, AHarmonyButtonReadsTheHarmoniesAndRedrawsTheWheel) {
    watching([&](ChromalogControler&) {
        for (const char* action : {"complementOn:", "harmoniquesOn:", "triComplementOn:", "quadriOn:"}) {
            press(action);
            EXPECT_THAT(told(), ElementsAre("harmonies", "wheel")) << action;
        }
    });
}

TEST_F(WhatFollows, TheFirstColourReachesTheOkButtonAlone) {
    watching([&](ChromalogControler& c) {
        type("firstG", "7");
        EXPECT_THAT(told(), ElementsAre("ok"));
        type("firstK", "7");
        EXPECT_THAT(told(), ElementsAre("ok"));
        control<HeadlessColorWell>(*desktop_, "origFirstColor").drop(Colour::rgb(0.1, 0.2, 0.3));
        EXPECT_THAT(told(), ElementsAre("ok"));
        c.panels().one.view.mouseDown({{10, 10}});
        EXPECT_THAT(told(), ElementsAre("ok"));
        control<HeadlessTextField>(*desktop_, "firstG").endEditing();
        EXPECT_THAT(told(), testing::IsEmpty());
    });
}

} // namespace
} // namespace chromalog::test
