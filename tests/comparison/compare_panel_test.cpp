// List 1 beside list 2, and near doubles: what the panel tells, marks, adds and removes.
#include "comparison/two_lists.h"

namespace chromalog::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Signs = std::vector<RowSign>;

class ComparePanelTest : public TwoLists {
  protected:
    void open(const std::string& action = "compareLists:") {
        send(action);
        settle();
    }
    void settle() { desktop->advance(0.2); }
    void choose(int view) {
        outlet<HeadlessRadioMatrix>("ComparePanel", "compareView").selectRow(view);
        send("chooseComparison:", "ComparePanel");
        settle();
    }
    void type(const std::string& difference) {
        field().type(difference);
        settle();
    }
    HeadlessTextField& field() { return outlet<HeadlessTextField>("ComparePanel", "compareDifference"); }
    View& rows() { return view("ComparePanel", "compareRows"); }
    std::vector<std::string> found() { return lines(rows()); }
    HeadlessButton& button(const std::string& name) { return outlet<HeadlessButton>("ComparePanel", name); }
    std::vector<std::string> counts() {
        std::vector<std::string> all;
        for (const char* name :
             {"compareOnlyOne", "compareOnlyTwo", "compareBoth", "compareDoublesOne", "compareDoublesTwo"})
            all.push_back(button(name).title());
        return all;
    }
    const Signs& signs(int list) { return controler->panels().rows(panel(list).view).marks().signs(); }
    void close() { outlet<HeadlessWindow>("ComparePanel", "compareWindow").onClose(); }

    static constexpr RowSign kOnly = RowSign::onlyHere, kBoth = RowSign::inBoth, kGoes = RowSign::goes,
                             kNone = RowSign::none;
};

TEST_F(ComparePanelTest, TellsCountsLinesAndMarks) {
    dialog([&] {
        add(1, {10, 100, 200});
        add(2, {101, 250, 200, 201});
        EXPECT_EQ(desktop->forms.count("ComparePanel"), 0u) << "not before it is asked for";
        open();
        EXPECT_EQ(field().text(), "2");
        EXPECT_THAT(counts(),
                    ElementsAre("Only in list 1: 1", "Only in list 2: 1", "In both: 2 of list 1, 3 of list 2",
                                "Near doubles in list 1", "Near doubles in list 2"));
        EXPECT_THAT(found(), ElementsAre("10 | List 1: 1"));
        EXPECT_EQ(signs(1), (Signs{kOnly, kBoth, kBoth}));
        EXPECT_EQ(signs(2), (Signs{kBoth, kOnly, kBoth, kBoth}));
        choose(1);
        EXPECT_THAT(found(), ElementsAre("250 | List 2: 2"));
        choose(2);
        ASSERT_THAT(found(), SizeIs(3));
        EXPECT_THAT(found()[0], HasSubstr("100 = 101 | 1: 2 = 2: 1, difference 0."));
        EXPECT_EQ(found()[1], "200 = 200 | 1: 3 = 2: 3, difference 0.00");
        EXPECT_THAT(found()[2], HasSubstr("201 = 200 | 2: 4 = 1: 3, difference 0."));
        EXPECT_EQ(controler->history().undoSteps(), 2) << "the two that filled the lists";
    });
}

TEST_F(ComparePanelTest, TheDifferenceIsChosenAndZeroMeansEqual) {
    dialog([&] {
        add(1, {10, 100, 200});
        add(2, {101, 200});
        open();
        type("0");
        EXPECT_THAT(found(), ElementsAre("10 | List 1: 1", "100 | List 1: 2"));
        type("20");
        EXPECT_THAT(found(), ElementsAre("10 | List 1: 1"));
        EXPECT_EQ(field().fault, "");
        for (const char* wrong : {"20.1", "-1", "", "two", "nan"}) {
            type(wrong);
            EXPECT_NE(field().fault, "") << wrong;
            EXPECT_THAT(found(), ElementsAre("10 | List 1: 1")) << "as before: " << wrong;
        }
        field().endEditing();
        open();
        EXPECT_EQ(field().text(), "20");
        EXPECT_EQ(field().fault, "");
        type("0.5");
        EXPECT_THAT(counts()[0], "Only in list 1: 1");
    });
}

TEST_F(ComparePanelTest, FollowsEditsOfTheListsAndUndo) {
    dialog([&] {
        add(1, {10, 100});
        add(2, {100});
        open();
        EXPECT_THAT(found(), ElementsAre("10 | List 1: 1"));
        select(1, 0);
        send("deleteSwatch1:");
        EXPECT_THAT(found(), IsEmpty()) << "at once: rows are others now";
        EXPECT_THAT(signs(1), IsEmpty());
        settle();
        EXPECT_THAT(counts()[0], "Only in list 1: 0");
        EXPECT_EQ(signs(1), (Signs{kBoth}));
        send("doUndo:");
        settle();
        EXPECT_THAT(found(), ElementsAre("10 | List 1: 1"));
        EXPECT_EQ(signs(1), (Signs{kOnly, kBoth}));
        panel(1).view.contentsChanged(); // as a search does, which changes nothing
        EXPECT_EQ(signs(1), (Signs{kOnly, kBoth}));
    });
}

TEST_F(ComparePanelTest, MarksGoWithThePanelAndComeBackWithIt) {
    dialog([&] {
        add(1, {10});
        open();
        EXPECT_EQ(signs(1), (Signs{kOnly}));
        close();
        EXPECT_THAT(signs(1), IsEmpty());
        EXPECT_FALSE(outlet<HeadlessWindow>("ComparePanel", "compareWindow").visible());
        add(1, {20});
        settle();
        EXPECT_THAT(signs(1), IsEmpty());
        open();
        EXPECT_EQ(signs(1), (Signs{kOnly, kOnly}));
    });
}

TEST_F(ComparePanelTest, TheResultIsAddedWholeByOneStep) {
    dialog([&] {
        add(1, {10, 100, 200});
        add(2, {100});
        controler->record().swatchList1[0].SRed = 0x12340A0A; // kept above what shows
        controler->record().swatchList1[0].Ordre = 7;
        open();
        EXPECT_FALSE(button("compareAdd1").enabled()) << "they stand there";
        EXPECT_EQ(button("compareAdd2").title(), "Add 2 to List 2");
        const int steps = controler->history().undoSteps();
        send("compareAdd2:", "ComparePanel");
        EXPECT_EQ(controler->history().undoSteps(), steps + 1);
        EXPECT_THAT(names(2), ElementsAre("100", "10", "200"));
        EXPECT_EQ(controler->record().swatchList2[1].SRed, 0x12340A0A);
        EXPECT_EQ(controler->record().swatchList2[1].Ordre, 7);
        settle();
        EXPECT_THAT(found(), IsEmpty()) << "they stand in both now";
        EXPECT_FALSE(button("compareAdd2").enabled());
        EXPECT_EQ(button("compareAdd2").title(), "Add to List 2");
        send("doUndo:");
        settle();
        EXPECT_THAT(names(2), ElementsAre("100"));
        EXPECT_THAT(found(), SizeIs(2));
    });
}

TEST_F(ComparePanelTest, WhatIsSelectedIsAddedAlone) {
    dialog([&] {
        add(1, {10, 60, 110, 160});
        open();
        press(rows(), 0);
        press(rows(), 2, false, true);
        EXPECT_EQ(button("compareAdd2").title(), "Add 2 to List 2");
        EXPECT_EQ(panel(1).view.getSelected(), 0) << "a press selects the swatch, one with Ctrl does not";
        send("compareAdd2:", "ComparePanel");
        EXPECT_THAT(names(2), ElementsAre("10", "110"));
        settle();
        press(rows(), 900);
        TwoLists::type(rows(), Key::end);
        TwoLists::type(rows(), Key::up, true);
        EXPECT_EQ(button("compareAdd2").title(), "Add 2 to List 2");
        TwoLists::type(rows(), Key::selectAll);
        send("compareAdd2:", "ComparePanel");
        EXPECT_THAT(names(2), ElementsAre("10", "110", "60", "160"));
    });
}

TEST_F(ComparePanelTest, APressInTheResultLeavesTheFirstColour) {
    dialog([&] {
        add(1, {10, 60});
        open();
        const Colour before = controler->colours().getFirstColor();
        press(rows(), 1);
        EXPECT_EQ(panel(1).view.getSelected(), 1);
        EXPECT_TRUE(controler->colours().getFirstColor().sameRgb(before));
    });
}

TEST_F(ComparePanelTest, ListsWithoutRoomGetTheLimitAlertAndNothing) {
    dialog([&] {
        add(2, std::vector<int>(4999, 5));
        add(1, {100, 200});
        open();
        send("compareAdd2:", "ComparePanel");
        EXPECT_THAT(desktop->alerts, SizeIs(1));
        EXPECT_EQ(panel(2).view.getNumberOfColors(), 4999);
        EXPECT_EQ(controler->history().undoSteps(), 2);
    });
}

TEST_F(ComparePanelTest, NearDoublesAreShownFirstAndRemovedByOneStep) {
    dialog([&] {
        add(1, {100, 10, 101, 11, 200, 101});
        open("findNearDoubles:");
        EXPECT_EQ(counts()[3], "Near doubles in list 1: 3");
        EXPECT_EQ(button("compareRemove").title(), "Remove 3");
        EXPECT_TRUE(button("compareAdd1").hidden());
        ASSERT_THAT(found(), SizeIs(3));
        EXPECT_THAT(found()[0], HasSubstr("101 doubles 100 | 1: 3 = 1: 1, difference 0."));
        EXPECT_THAT(found()[1], HasSubstr("11 doubles 10 | 1: 4 = 1: 2, difference 0."));
        EXPECT_THAT(rows().helpAt({50, 13}), HasSubstr("101 doubles 100\n1: 3 = 1: 1, ΔE 0."));
        EXPECT_EQ(signs(1), (Signs{kNone, kNone, kGoes, kGoes, kNone, kGoes}));
        EXPECT_THAT(signs(2), Each(kNone));
        const int steps = controler->history().undoSteps();
        send("removeDoubles:", "ComparePanel");
        EXPECT_EQ(controler->history().undoSteps(), steps + 1);
        EXPECT_THAT(names(1), ElementsAre("100", "10", "200"));
        EXPECT_EQ(desktop->statusLine().text(), "3 near doubles were removed from list 1.");
        settle();
        EXPECT_FALSE(button("compareRemove").enabled());
        send("doUndo:");
        settle();
        EXPECT_THAT(names(1), SizeIs(6));
        EXPECT_EQ(button("compareRemove").title(), "Remove 3");
    });
}

TEST_F(ComparePanelTest, OneOfTheDoublesIsRemovedAlone) {
    dialog([&] {
        add(2, {100, 101, 10, 11});
        open("findNearDoubles:");
        EXPECT_THAT(found(), IsEmpty());
        choose(4);
        press(rows(), 1);
        send("removeDoubles:", "ComparePanel");
        EXPECT_THAT(names(2), ElementsAre("100", "101", "10"));
        EXPECT_EQ(controler->history().manager()->undoWords().back(), "Remove 1 near double");
    });
}

TEST_F(ComparePanelTest, AComparisonNeverRemoves) {
    dialog([&] {
        add(2, {100, 101});
        open();
        choose(1);
        EXPECT_THAT(found(), SizeIs(2));
        EXPECT_TRUE(button("compareRemove").hidden());
        send("removeDoubles:", "ComparePanel");
        EXPECT_THAT(names(2), SizeIs(2));
    });
}

TEST_F(ComparePanelTest, WithoutItsFormNothingHappens) {
    prepare = [](HeadlessDesktop& d) { d.missingForms = {"ComparePanel", "NearestPanel"}; };
    dialog([&] {
        add(1, {100});
        open();
        send("showNearest:");
        EXPECT_THAT(desktop->logLines, Contains(HasSubstr("ComparePanel")));
        EXPECT_THAT(signs(1), IsEmpty());
    });
}

} // namespace
} // namespace chromalog::test
