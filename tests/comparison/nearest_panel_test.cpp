// The swatches nearest to the second colour and to the wells of the harmonies.
#include "comparison/two_lists.h"
#include "comparison/well_neighbours.h"
#include "support/recording_canvas.h"

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class NearestPanelTest : public TwoLists {
  protected:
    void enter(int grey) {
        controler->colours().enterSecond(Colour::rgb(grey / 255.0, grey / 255.0, grey / 255.0));
    }
    View& rows() { return view("NearestPanel", "nearestRows"); }
    std::vector<std::string> found() {
        std::vector<std::string> all;
        for (const std::string& line : lines(rows()))
            all.push_back(line.substr(0, line.find(" |")));
        return all;
    }
};

TEST_F(NearestPanelTest, TellsTheFiveNearestOfEitherListAndFollowsTheSecondColour) {
    dialog([&] {
        add(1, {0, 100, 110, 120, 130, 140, 255});
        add(2, {200, 50});
        enter(119);
        EXPECT_EQ(desktop->forms.count("NearestPanel"), 0u) << "not before it is asked for";
        send("showNearest:");
        EXPECT_THAT(found(), ElementsAre("120", "110", "130", "100", "140", "50", "200"));
        EXPECT_THAT(lines(rows())[0], HasSubstr("120 | List 1: 4, difference 0."));
        enter(200);
        EXPECT_THAT(found(), ElementsAre("255", "140", "130", "120", "110", "200", "50"));
        EXPECT_THAT(lines(rows())[5], HasSubstr("200 | List 2: 1, difference 0.00"));
    });
}

TEST_F(NearestPanelTest, FollowsEveryEditOfTheListsAndUndo) {
    dialog([&] {
        add(1, {10, 20, 30});
        enter(20);
        send("showNearest:");
        EXPECT_THAT(found(), ElementsAre("20", "10", "30"));
        select(1, 1);
        send("deleteSwatch1:");
        EXPECT_THAT(found(), ElementsAre("10", "30"));
        send("doUndo:");
        EXPECT_THAT(found(), ElementsAre("20", "10", "30"));
        select(1, 0);
        controler->panels().commands.writeToSwatch(Colour::rgb(1, 1, 1), "White");
        EXPECT_THAT(found(), ElementsAre("20", "30", "White"));
        send("killSwatch1:");
        EXPECT_THAT(found(), IsEmpty());
    });
}

TEST_F(NearestPanelTest, APressSelectsAsInTheListAndReturnMakesItTheSecondColour) {
    dialog([&] {
        add(1, {10, 20, 30});
        add(2, {40, 50});
        enter(20);
        send("showNearest:");
        controler->panels().rows(panel(1).view).selectAll();
        press(rows(), 2); // 30, after 20 and 10
        EXPECT_EQ(panel(1).view.getSelected(), 2);
        EXPECT_TRUE(controler->panels().rows(panel(1).view).selection().empty());
        EXPECT_NEAR(controler->colours().getFirstColor().red(), 30 / 255.0, 1e-4) << "as a press on its row";
        press(rows(), 4); // 50
        EXPECT_EQ(panel(2).view.getSelected(), 1);
        EXPECT_NEAR(controler->colours().getFirstColor().red(), 30 / 255.0, 1e-4) << "list 2 feeds none";
        EXPECT_NEAR(controler->colours().getSecondColor().red(), 20 / 255.0, 1e-4);
        type(rows(), Key::enter);
        EXPECT_NEAR(controler->colours().getSecondColor().red(), 50 / 255.0, 1e-4);
        press(rows(), 3, true); // 50, the nearest of list 2; 40 is below it
        EXPECT_NEAR(controler->colours().getSecondColor().red(), 50 / 255.0, 1e-4);
        press(rows(), 4, true);
        EXPECT_NEAR(controler->colours().getSecondColor().red(), 40 / 255.0, 1e-4);
        press(rows(), 900);
        type(rows(), Key::enter); // nothing is selected
        EXPECT_NEAR(controler->colours().getSecondColor().red(), 40 / 255.0, 1e-4);
    });
}

TEST_F(NearestPanelTest, WhileItIsHiddenItFollowsNothing) {
    dialog([&] {
        add(1, {10, 200});
        enter(10);
        send("showNearest:");
        auto& window = outlet<HeadlessWindow>("NearestPanel", "nearestWindow");
        EXPECT_EQ(window.parent, &control<HeadlessWindow>(*desktop, "chromalogWindow"));
        int shown = 0;
        outlet<HeadlessColorWell>("NearestPanel", "nearestTo").onShow = [&] { ++shown; };
        enter(12);
        const int once = shown;
        EXPECT_GE(once, 1);
        window.onClose();
        EXPECT_FALSE(window.visible());
        enter(200);
        add(1, {201});
        EXPECT_EQ(shown, once);
        send("showNearest:");
        EXPECT_THAT(found(), ElementsAre("200", "201", "10"));
    });
}

TEST_F(NearestPanelTest, ALineIsDraggedOutWithItsName) {
    dialog([&] {
        add(1, {10, 200});
        enter(10);
        send("showNearest:");
        press(rows(), 1);
        MouseEvent event;
        event.location = {80, 40};
        rows().mouseDragged(event);
        ASSERT_THAT(desktop->drags, SizeIs(1));
        EXPECT_EQ(desktop->drags[0].pasteboard.text, "200");
        EXPECT_NEAR(desktop->drags[0].pasteboard.colour->red(), 200 / 255.0, 1e-4);
    });
}

class WellNeighboursTest : public NearestPanelTest {
  protected:
    WellNeighbours& neighbours() {
        return dynamic_cast<WellNeighbours&>(view("chromalogWindow", "nearComplement"));
    }
    static std::vector<std::string> texts(View& view) {
        RecordingCanvas canvas;
        view.drawRect(canvas);
        std::vector<std::string> texts;
        for (const Primitive& text : canvas.only(Primitive::Kind::text))
            texts.push_back(text.text);
        return texts;
    }
};

TEST_F(WellNeighboursTest, EachWellHasItsNearestSwatchOfBothListsBelowIt) {
    dialog([&] {
        WellNeighbours& below = neighbours();
        below.layOut({0, 0, 82, 14});
        EXPECT_THAT(texts(below), IsEmpty()) << "the lists are empty";
        EXPECT_EQ(below.helpAt({10, 5}), "Both lists are empty");
        add(1, {0, 100});
        add(2, {103, 255});
        control<HeadlessColorWell>(*desktop, "origComplement").setColor(Colour::rgb(0.4, 0.4, 0.4)); // 102
        control<HeadlessColorWell>(*desktop, "complementColor").setColor(Colour::rgb(1, 1, 1));
        EXPECT_THAT(texts(below), ElementsAre("0.4", "0.0"));
        RecordingCanvas canvas;
        below.drawRect(canvas);
        const auto patches = canvas.only(Primitive::Kind::fillRect);
        ASSERT_THAT(patches, SizeIs(2));
        EXPECT_EQ(patches[0].rect, (Rect{0, 0, 40, 14}));
        EXPECT_EQ(patches[1].rect, (Rect{42, 0, 40, 14}));
        EXPECT_NEAR(patches[0].colour.red(), 103 / 255.0, 1e-4);
        const auto numbers = canvas.only(Primitive::Kind::text);
        EXPECT_TRUE(numbers[0].colour.sameRgb(Colour::rgb(1, 1, 1))) << "white on dark";
        EXPECT_TRUE(numbers[1].colour.sameRgb(Colour())) << "black on light";
        EXPECT_THAT(below.helpAt({10, 5}), HasSubstr("Nearest: 103\nList 2: 1, ΔE 0.38"));
        EXPECT_EQ(below.accessibleRow(1).name, "255");
        panel(2).view.setSelectedColor(1);
        send("deleteSwatch2:");
        EXPECT_EQ(below.accessibleRow(1).name, "103");
    });
}

TEST_F(WellNeighboursTest, APressAndKeysSelectTheSwatchInItsList) {
    dialog([&] {
        add(1, {0, 100});
        add(2, {50, 255});
        WellNeighbours& below = neighbours();
        below.layOut({0, 0, 82, 14});
        control<HeadlessColorWell>(*desktop, "origComplement").setColor(Colour());
        control<HeadlessColorWell>(*desktop, "complementColor").setColor(Colour::rgb(1, 1, 1));
        select(2, 0);
        MouseEvent event;
        event.location = {60, 5};
        below.mouseDown(event);
        EXPECT_EQ(panel(2).view.getSelected(), 1);
        select(1, 1);
        type(below, Key::left);
        type(below, Key::space);
        EXPECT_EQ(panel(1).view.getSelected(), 0);
        EXPECT_TRUE(controler->colours().getFirstColor().sameRgb(Colour()));
        for (int i = 0; i < 3; ++i)
            type(below, Key::right); // past the last one
        select(2, 0);
        type(below, Key::enter);
        EXPECT_EQ(panel(2).view.getSelected(), 1);
        for (int i = 0; i < 3; ++i)
            type(below, Key::left);
        select(1, 1);
        type(below, Key::enter);
        EXPECT_EQ(panel(1).view.getSelected(), 0);
    });
}

TEST_F(WellNeighboursTest, EachHarmonyHasARowOfItsOwn) {
    dialog([&] {
        const auto name = [this](const char* row) { return view("chromalogWindow", row).accessible().name; };
        EXPECT_EQ(name("nearComplement"), "Nearest swatches, complement");
        EXPECT_EQ(name("nearHarmoniques"), "Nearest swatches, harmoniques");
        EXPECT_EQ(name("nearTriComplement"), "Nearest swatches, tri-complement");
        EXPECT_EQ(name("nearQuadri"), "Nearest swatches, quadri");
    });
}

TEST_F(WellNeighboursTest, WhatIsNotPaintedIsNotMarkedForRedraw) {
    dialog([&] {
        auto& host = dynamic_cast<HeadlessViewHost&>(*neighbours().host());
        const int before = host.redisplays;
        enter(10);
        add(1, {20});
        EXPECT_EQ(host.redisplays, before);
        texts(neighbours());
        enter(30);
        EXPECT_EQ(host.redisplays, before + 1);
        enter(40);
        EXPECT_EQ(host.redisplays, before + 1) << "marked already";
    });
}

} // namespace
} // namespace chromalog::test
