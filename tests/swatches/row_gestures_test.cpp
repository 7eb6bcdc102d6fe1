#include "support/recording_canvas.h"
#include "swatches/list_fixture.h"
#include "swatches/list_menu.h"
#include "swatches/row_gestures.h"

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::string>;

class RowGesturesTest : public test::ListTest {
  public:
    RowGesturesTest() {
        rows1.across = &rows2;
        rows2.across = &rows1;
    }
    ListExtras& extras(const CSwatchList& list) override { return &list == &swatch1 ? rows1 : rows2; }
    void describeStep(std::string_view step) override { words.emplace_back(step); }

  protected:
    void click(CSwatchList& list, int at, bool shift = false, bool control = false) {
        MouseEvent event{row(at)};
        event.shift = shift;
        event.control = control;
        list.mouseDown(event);
        list.mouseUp(event);
    }
    bool press(Key key, bool shift = false, bool alt = false, bool control = false) {
        return swatch1.keyDown({key, shift, alt, control});
    }
    /// Drags from the row of the last press; `drop` is the target's part of it.
    template <typename Drop> void drag(CSwatchList& from, int at, Drop drop) {
        MouseEvent event{row(at)};
        from.mouseDown(event);
        platform.drags.clear();
        static_cast<ListExtras&>(extras(from)).dragBegins(); // as mouseDragged does around the drag
        drop();
        extras(from).dragEnds();
    }
    DragInfo over(double y, const CSwatchList& source) const {
        DragInfo info = dropOf(Colour::rgb(0, 0, 0), 0, &source);
        info.location.y = y;
        return info;
    }
    std::vector<int> together(const RowGestures& rows) const { return rows.selection().rows(); }

    RowGestures rows1{*this, swatch1, swatch2}, rows2{*this, swatch2, swatch1};
    std::vector<std::string> words;
};

TEST_F(RowGesturesTest, EveryPressStillSelectsAndMakesTheFirstColour) {
    fillNumbered(swatch1, 9);
    click(swatch1, 2);
    click(swatch1, 5, false, true);
    click(swatch1, 7, true);
    click(swatch1, 5, false, true);
    EXPECT_THAT(firstColors, ElementsAre(2, 5, 7, 5));
    EXPECT_EQ(swatch1.getSelected(), 5);
    EXPECT_THAT(together(rows1), ElementsAre(6, 7)) << "from 5 to 7 by Shift, 5 taken out by Ctrl";
    click(swatch1, 1);
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, APlainPressInsideKeepsTheRowsUntilItsRelease) {
    fillNumbered(swatch1, 9);
    click(swatch1, 2);
    click(swatch1, 4, true);
    swatch1.mouseDown({row(3)});
    EXPECT_THAT(together(rows1), ElementsAre(2, 3, 4)) << "a drag may follow";
    swatch1.mouseUp({row(3)});
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, AShiftPressBelowTheLastRowReachesTheLastRow) {
    fillNumbered(swatch1, 3);
    click(swatch1, 1);
    click(swatch1, 7, true);
    EXPECT_EQ(swatch1.getSelected(), 7) << "as any press there";
    EXPECT_THAT(together(rows1), ElementsAre(1, 2));
    swatch1.setNumberOfColors(0);
    rows1.contentsChanged();
    click(swatch1, 0, true);
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, DeleteTakesAllRowsInOneStep) {
    fillNumbered(swatch1, 6);
    click(swatch1, 1);
    click(swatch1, 3, false, true);
    click(swatch1, 5, false, true);
    onUndoStep = [this] { EXPECT_EQ(swatch1.getNumberOfColors(), 6) << "recorded before the change"; };
    EXPECT_TRUE(press(Key::deleteKey));
    EXPECT_EQ(names(swatch1), (Names{"0", "2", "4"}));
    EXPECT_THAT(labels, ElementsAre("!Swatches deleted!"));
    EXPECT_THAT(words, ElementsAre("Delete 3 swatches"));
    EXPECT_EQ(swatch1.getSelected(), 1);
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, ASingleRowIsDeletedAsEver) {
    fillNumbered(swatch1, 3);
    click(swatch1, 1);
    press(Key::deleteKey);
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
    click(swatch1, 0);
    click(swatch1, 1, true);
    swatch1.deleteEntry(); // the button
    EXPECT_EQ(names(swatch1), Names{"0"}) << "the selected row alone";
    EXPECT_THAT(together(rows1), IsEmpty()) << "rows may hold other swatches now";
}

TEST_F(RowGesturesTest, KeysExtendSelectAllAndLetGo) {
    fillNumbered(swatch1, 30);
    click(swatch1, 3);
    EXPECT_TRUE(press(Key::down, true, false, true));
    EXPECT_TRUE(press(Key::down, true, false, true));
    EXPECT_THAT(together(rows1), ElementsAre(3, 4, 5));
    EXPECT_EQ(swatch1.getSelected(), 5);
    EXPECT_TRUE(press(Key::home, true, false, true));
    EXPECT_THAT(together(rows1), ElementsAre(0, 1, 2, 3));
    EXPECT_TRUE(press(Key::selectAll));
    EXPECT_EQ(together(rows1).size(), 30u);
    EXPECT_TRUE(press(Key::escape));
    EXPECT_THAT(together(rows1), IsEmpty());
    EXPECT_FALSE(press(Key::escape)) << "the dialog's then";
    press(Key::selectAll);
    press(Key::down, true);
    EXPECT_EQ(swatch1.getSelected(), 10) << "Shift alone steps by ten, as ever";
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, AltMovesAllRowsByOne) {
    fillNumbered(swatch1, 5);
    click(swatch1, 1);
    click(swatch1, 2, true);
    EXPECT_TRUE(press(Key::down, false, true));
    EXPECT_EQ(names(swatch1), (Names{"0", "3", "1", "2", "4"}));
    EXPECT_THAT(together(rows1), ElementsAre(2, 3));
    press(Key::up, false, true);
    press(Key::up, false, true);
    EXPECT_TRUE(press(Key::up, false, true)) << "used up at the end";
    EXPECT_EQ(names(swatch1), (Names{"1", "2", "0", "3", "4"}));
    EXPECT_THAT(labels, ElementsAre("!Swatches moved!", "!Swatches moved!", "!Swatches moved!"));
}

TEST_F(RowGesturesTest, ADragOfSeveralRowsMovesThemInsideTheirList) {
    fillNumbered(swatch1, 6);
    click(swatch1, 1);
    click(swatch1, 2, true);
    drag(swatch1, 2, [&] { EXPECT_TRUE(swatch1.performDragOperation(over(22 * 5 + 20, swatch1))); });
    EXPECT_EQ(names(swatch1), (Names{"0", "3", "4", "5", "1", "2"}));
    EXPECT_THAT(labels, ElementsAre("!Swatches moved!")) << "one step, with a label of its own";
    EXPECT_THAT(together(rows1), ElementsAre(4, 5));
    EXPECT_THAT(rows1.marks().landed(), ElementsAre(4, 5));
    drag(swatch1, 5, [&] { swatch1.performDragOperation(over(22 * 4 + 10, swatch1)); });
    EXPECT_EQ(labels.size(), 1u) << "where they stand already, nothing happens";
}

TEST_F(RowGesturesTest, ADragOfSeveralRowsCopiesThemAcrossWithTheirRecords) {
    fillNumbered(swatch1, 12);
    fillNumbered(swatch2, 2);
    data->swatchList1[3].Ordre = 77;
    click(swatch1, 1);
    click(swatch1, 10, true);
    drag(swatch1, 5, [&] { swatch2.performDragOperation(over(22 * 1 + 6, swatch1)); });
    EXPECT_EQ(names(swatch2), (Names{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "1"}));
    EXPECT_EQ(data->swatchList2[3].Ordre, 77);
    EXPECT_EQ(swatch1.getNumberOfColors(), 12);
    EXPECT_THAT(labels, ElementsAre("!Swatches copied across!"));
    EXPECT_THAT(platform.alerts, IsEmpty());
    EXPECT_EQ(swatch2.getSelected(), 1);
}

TEST_F(RowGesturesTest, ADragFromOutsideTheRowsIsTheListsOwn) {
    fillNumbered(swatch1, 6);
    click(swatch1, 1);
    click(swatch1, 2, true);
    drag(swatch1, 4, [&] { swatch1.performDragOperation(dropOf(colour(400, 0, 0), 0, &swatch1)); });
    EXPECT_EQ(names(swatch1), (Names{"4", "0", "1", "2", "3", "5"}));
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
    EXPECT_EQ(swatch1.getSelected(), 4) << "as ever";
    EXPECT_THAT(rows1.marks().landed(), ElementsAre(0));
}

TEST_F(RowGesturesTest, WhatHasNoRoomIsRefusedWhole) {
    fillNumbered(swatch1, 3);
    swatch2.setNumberOfColors(4998);
    press(Key::selectAll);
    rows1.bringAcross(Across::move);
    ASSERT_EQ(platform.alerts.size(), 1u);
    EXPECT_EQ(platform.alerts[0].informative, "5001 colors in list ");
    EXPECT_EQ(swatch1.getNumberOfColors(), 3);
    EXPECT_EQ(swatch2.getNumberOfColors(), 4998);
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(RowGesturesTest, TheMenuCopiesAndMovesBelowTheOtherListsSelectedRow) {
    fillNumbered(swatch1, 4);
    fillNumbered(swatch2, 2);
    swatch2.setSelectedColor(0);
    click(swatch1, 2);
    firstColors.clear();
    rows1.bringAcross(Across::copy);
    EXPECT_EQ(names(swatch2), (Names{"0", "2", "1"}));
    EXPECT_EQ(swatch2.getSelected(), 1) << "the next copy goes below it";
    click(swatch1, 3, false, true);
    firstColors.clear();
    rows1.bringAcross(Across::move);
    EXPECT_EQ(names(swatch1), (Names{"0", "1"}));
    EXPECT_EQ(names(swatch2), (Names{"0", "2", "2", "3", "1"}));
    EXPECT_THAT(labels, ElementsAre("!Swatches copied across!", "!Swatches moved across!"));
    EXPECT_THAT(firstColors, IsEmpty()) << "no first colour by that";
    EXPECT_THAT(together(rows2), ElementsAre(2, 3));
}

TEST_F(RowGesturesTest, SortsSomeRowsOrAllAsOneStep) {
    fill(swatch1, {test::swatch("c", 300), test::swatch("b", 200), test::swatch("a", 100)});
    rows1.sort(SortKey::brightness, Colour());
    EXPECT_EQ(names(swatch1), (Names{"a", "b", "c"}));
    EXPECT_THAT(labels, ElementsAre("!Sort Swatch Brightness!"));
    rows1.sort(SortKey::brightness, Colour());
    EXPECT_EQ(labels.size(), 1u) << "in order already";
    click(swatch1, 0);
    click(swatch1, 1, true);
    rows1.sort(SortKey::reversed, Colour());
    EXPECT_EQ(names(swatch1), (Names{"b", "a", "c"}));
    EXPECT_EQ(labels.back(), "!Sort selected Swatches!");
    EXPECT_EQ(words.back(), "Reverse order: 2 swatches");
    EXPECT_THAT(together(rows1), ElementsAre(0, 1));
}

TEST_F(RowGesturesTest, ANameIsEditedInPlace) {
    fill(swatch1, {test::swatch("old"), test::swatch("other")});
    swatch1.setSelectedColor(0);
    EXPECT_TRUE(press(Key::rename));
    ASSERT_TRUE(host1.edit);
    EXPECT_EQ(host1.edit->text, "old");
    EXPECT_EQ(host1.edit->most, 255);
    EXPECT_EQ(host1.edit->kept("Café ✓"), "Cafe ?");
    const TextEdit edit = *host1.edit;
    edit.entered("old");
    EXPECT_THAT(labels, IsEmpty()) << "nothing changed";
    edit.entered("Café");
    EXPECT_EQ(names(swatch1), (Names{"Cafe", "other"}));
    EXPECT_THAT(labels, ElementsAre("!Swatch renamed!"));
    EXPECT_FALSE(host1.edit) << "a change of the list ends the edit";
}

TEST_F(RowGesturesTest, ANameWithForeignLettersThatStaysIsNotTouched) {
    fill(swatch1, {test::swatch("Caf\x8e")});
    rows1.rename();
    host1.edit->entered("Café");
    EXPECT_EQ(names(swatch1), Names{"Caf\x8e"});
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(RowGesturesTest, ASecondPressIsAPressAndThenEditsTheName) {
    fillNumbered(swatch1, 3);
    click(swatch1, 1);
    MouseEvent second{row(1)};
    second.second = true;
    swatch1.mouseDown(second);
    EXPECT_FALSE(host1.edit) << "not before the release: a drag may follow";
    swatch1.mouseUp(second);
    EXPECT_TRUE(host1.edit);
    EXPECT_THAT(firstColors, ElementsAre(1, 1));
}

TEST_F(RowGesturesTest, NoRowNoEdit) {
    fillNumbered(swatch1, 2);
    for (const std::int16_t outside : {std::int16_t{-3}, std::int16_t{2}, std::int16_t{30'000}}) {
        swatch1.setSelectedColor(outside);
        rows1.rename();
        EXPECT_FALSE(host1.edit);
        EXPECT_THAT(rows1.rows(), IsEmpty());
    }
}

TEST_F(RowGesturesTest, TheLineStandsWhereADropWouldPutItsSwatch) {
    fillNumbered(swatch1, 5);
    const Colour fresh = Colour::rgb(0, 0.5, 0.9);
    const auto lineOf = [&](const DragInfo& info) {
        swatch1.draggingUpdated(info);
        return rows1.marks().gap();
    };
    EXPECT_EQ(lineOf(dropOf(fresh, 2)), 2);
    EXPECT_EQ(lineOf(dropOf(fresh, 9)), 5) << "at the end";
    EXPECT_EQ(lineOf(dropOf(colour(200, 0, 0), 1)), std::nullopt) << "it would be refused";
    swatch1.setSelectedColor(1);
    EXPECT_EQ(lineOf(dropOf(fresh, 3, &swatch1)), 4) << "a move down comes below the row";
    EXPECT_EQ(lineOf(dropOf(fresh, 0, &swatch1)), 0);
    EXPECT_EQ(lineOf(dropOf(fresh, 1, &swatch1)), std::nullopt);
    EXPECT_EQ(lineOf(dropOf(fresh, 5, &swatch1)), std::nullopt) << "lost below the last row";
    lineOf(dropOf(fresh, 2));
    swatch1.draggingExited();
    EXPECT_EQ(rows1.marks().gap(), std::nullopt);
}

TEST_F(RowGesturesTest, ADropIsMarkedForAWhile) {
    fillNumbered(swatch1, 5);
    swatch1.performDragOperation(dropOf(Colour::rgb(0, 0.5, 0.9), 2));
    EXPECT_THAT(rows1.marks().landed(), ElementsAre(2));
    EXPECT_EQ(swatch1.getSelected(), 0) << "the selected row stays";
    platform.advance(1.4);
    EXPECT_THAT(rows1.marks().landed(), ElementsAre(2));
    platform.advance(0.2);
    EXPECT_THAT(rows1.marks().landed(), IsEmpty());
    swatch1.performDragOperation(dropOf(Colour::rgb(0, 0.5, 0.9), 0));
    EXPECT_THAT(rows1.marks().landed(), ElementsAre(2)) << "refused: the one that is there already";
}

TEST_F(RowGesturesTest, AMarkFadesInStepsOnlyWhereMarksMayFade) {
    fillNumbered(swatch1, 5);
    for (const bool fades : {false, true}) {
        platform.fades = fades;
        swatch1.performDragOperation(dropOf(Colour::rgb(fades, 0.5, 0.9), 2));
        host1.redisplays = 0;
        platform.advance(3);
        if (fades)
            EXPECT_GE(host1.redisplays, 10);
        else
            EXPECT_EQ(host1.redisplays, 1);
        EXPECT_THAT(rows1.marks().landed(), IsEmpty());
    }
}

MenuItem itemNamed(const MenuItems& items, std::string_view action) {
    for (const MenuItem& item : items) {
        if (item.action == action) return item;
        if (const MenuItem inner = itemNamed(item.items, action); !inner.action.empty()) return inner;
    }
    return {};
}

TEST_F(RowGesturesTest, TheMenuSaysHowManyItMeans) {
    fillNumbered(swatch1, 4);
    fillNumbered(swatch2, 0);
    click(swatch1, 1);
    const auto items = [this] { return rowItems(rows1, swatch1, 2, [] { return Colour(); }); };
    EXPECT_EQ(itemNamed(items(), "copyAcross:").title, "Copy to List 2");
    EXPECT_EQ(itemNamed(items(), "deleteRows:").title, "") << "the list's own item";
    EXPECT_EQ(itemNamed(items(), "sortRowsByName:").title, "") << "the button's";
    press(Key::selectAll);
    EXPECT_EQ(itemNamed(items(), "copyAcross:").title, "Copy 4 Swatches to List 2");
    itemNamed(items(), "deleteRows:").run();
    EXPECT_EQ(swatch1.getNumberOfColors(), 0);
    EXPECT_FALSE(itemNamed(items(), "moveAcross:").enabled);
    EXPECT_FALSE(itemNamed(items(), "renameSwatch:").enabled);
}

TEST_F(RowGesturesTest, TheRightButtonKeepsTheRowsThatItIsPressedIn) {
    fillNumbered(swatch1, 6);
    click(swatch1, 1);
    click(swatch1, 3, true);
    swatch1.rightMouseDown({row(2)});
    EXPECT_THAT(together(rows1), ElementsAre(1, 2, 3));
    swatch1.rightMouseDown({row(5)});
    EXPECT_THAT(together(rows1), IsEmpty());
}

TEST_F(RowGesturesTest, SignsOfAComparisonDifferInShapeAndStandInTheirRows) {
    using Kind = test::Primitive::Kind;
    fillNumbered(swatch1, 5);
    const auto drawn = [this](Rect clip = {0, 0, 200, 220}) {
        test::RecordingCanvas canvas(true, clip);
        rows1.drawMarks(canvas);
        return canvas;
    };
    EXPECT_THAT(drawn().primitives, IsEmpty());
    const int before = host1.redisplays;
    rows1.showSigns({RowSign::none, RowSign::onlyHere, RowSign::inBoth, RowSign::goes, RowSign::none,
                     RowSign::goes}); // the last past the list's end
    EXPECT_EQ(host1.redisplays, before + 1);
    const auto canvas = drawn();
    const auto grounds = canvas.only(Kind::fillRect);
    ASSERT_EQ(grounds.size(), 3u + 2) << "two bars beside three grounds";
    EXPECT_EQ(grounds[0].rect, (Rect{179, 28, 14, 14})) << "row 1";
    EXPECT_EQ(grounds[1].rect, (Rect{179, 50, 14, 14}));
    EXPECT_EQ(canvas.only(Kind::fillPath).size(), 1u) << "the lozenge";
    EXPECT_EQ(canvas.only(Kind::strokePath).size(), 1u) << "the cross";
    EXPECT_THAT(drawn({0, 0, 200, 2}).only(Kind::strokePath), IsEmpty()) << "out of the clip";
    rows1.showSigns({});
    EXPECT_THAT(drawn().primitives, IsEmpty());
}

} // namespace
} // namespace chromalog
