#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Colour kTeal = Colour::rgb(0.125, 0.5, 0.55), kRose = Colour::rgb(0.9, 0.3, 0.4);

class ScreenToolTest : public PickTest {
  protected:
    static void begin(HeadlessDesktop& desktop) {
        desktop.forms.at("chromalogWindow")->send("pickFromScreen:");
    }
    static void pick(HeadlessDesktop& desktop, ScreenColours answer) {
        begin(desktop);
        desktop.answerScreenPick(std::move(answer));
    }
    static std::vector<std::string> names(ChromalogControler& controler) {
        std::vector<std::string> names;
        for (const FCOStruct& record : controler.panels().one.view.shownRecords())
            names.emplace_back(reinterpret_cast<const char*>(record.Namen) + 1, record.Namen[0]);
        return names;
    }
    static int steps(ChromalogControler& controler) { return controler.history().undoSteps(); }
};

TEST_F(ScreenToolTest, OneColourBecomesTheSecondOneAndNoStep) {
    PickTest::pick([](ChromalogControler& controler, HeadlessDesktop& desktop) {
        const Colour first = controler.colours().getFirstColor();
        pick(desktop, {{kTeal}, {}});
        EXPECT_EQ(controler.colours().getSecondColor().red(), 0.125);
        EXPECT_EQ(controler.colours().getSecondColor().blue(), 0.55);
        EXPECT_EQ(controler.colours().getFirstColor().red(), first.red());
        EXPECT_EQ(controler.colours().origSecondColor->color().green(), 0.5);
        EXPECT_NEAR(controler.colours().getLuminosity(), 0.55, 1e-6) << "the strip follows";
        EXPECT_THAT(names(controler), IsEmpty());
        EXPECT_EQ(steps(controler), 0);
        EXPECT_EQ(*desktop.screenPicks, 0);
    });
}

TEST_F(ScreenToolTest, SeveralGoIntoList1AsOneStepAndTheLastIsTheSecondColour) {
    PickTest::pick([](ChromalogControler& controler, HeadlessDesktop& desktop) {
        pick(desktop, {{kTeal, kRose, kTeal}, {}});
        EXPECT_THAT(names(controler), ElementsAre("#207f8c", "#e54c66", "#207f8c"));
        EXPECT_EQ(controler.colours().getSecondColor().red(), 0.125);
        EXPECT_EQ(steps(controler), 1);
        controler.history().undoOutAction();
        EXPECT_THAT(names(controler), IsEmpty());
    });
}

TEST_F(ScreenToolTest, WhatIsTakenBackChangesNothing) {
    PickTest::pick([](ChromalogControler& controler, HeadlessDesktop& desktop) {
        const Colour second = controler.colours().getSecondColor();
        pick(desktop, {});
        EXPECT_EQ(controler.colours().getSecondColor().red(), second.red());
        EXPECT_EQ(steps(controler), 0);
        EXPECT_EQ(desktop.status.text(), "");
    });
}

TEST_F(ScreenToolTest, TheStatusLineSaysWhyNoneCanBeTakenUntilTheNextPick) {
    PickTest::pick([](ChromalogControler&, HeadlessDesktop& desktop) {
        pick(desktop, {{}, "no screen"});
        EXPECT_EQ(desktop.status.text(), "no screen");
        begin(desktop);
        EXPECT_EQ(desktop.status.text(), "");
    });
}

TEST_F(ScreenToolTest, APickThatIsBegunAnewTakesTheOneBeforeBack) {
    PickTest::pick([](ChromalogControler&, HeadlessDesktop& desktop) {
        begin(desktop);
        begin(desktop);
        EXPECT_EQ(*desktop.screenPicks, 1);
    });
}

TEST_F(ScreenToolTest, TheEndOfTheDialogTakesThePickBack) {
    std::shared_ptr<int> underWay;
    PickTest::pick([&](ChromalogControler&, HeadlessDesktop& desktop) {
        begin(desktop);
        underWay = desktop.screenPicks;
        EXPECT_EQ(*underWay, 1);
    });
    EXPECT_EQ(*underWay, 0);
}

} // namespace
} // namespace chromalog::test
