#include "swatches/list_fixture.h"

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListMouseAndKeys : public test::ListTest {
  protected:
    bool press(Key key, bool shift = false) { return swatch1.keyDown({key, shift, false}); }
    bool pressWithAlt(Key key) { return swatch1.keyDown({key, false, true}); }
};

TEST_F(ListMouseAndKeys, AClickSelectsMakesTheFirstColourAndRedisplays) {
    fillNumbered(swatch1, 5);
    host1.redisplays = 0;
    swatch1.mouseDown({{3, 26.9}});
    EXPECT_EQ(swatch1.getSelected(), 0);
    swatch1.mouseDown({{3, 27}});
    EXPECT_EQ(swatch1.getSelected(), 1);
    EXPECT_THAT(firstColors, ElementsAre(0, 1));
    EXPECT_EQ(host1.redisplays, 2);
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(ListMouseAndKeys, AClickBelowTheLastRowSelectsPastTheCount) {
    fillNumbered(swatch1, 2);
    swatch1.mouseDown({row(7)});
    EXPECT_EQ(swatch1.getSelected(), 7);
    swatch1.deleteEntry();
    EXPECT_THAT(labels, IsEmpty()) << "no step of undo either";
    EXPECT_EQ(swatch1.getNumberOfColors(), 2);
}

TEST_F(ListMouseAndKeys, JustPastTheLastRowThereIsNothingToDelete) {
    fillNumbered(swatch1, 2);
    data->swatchList1[2] = data->swatchList1[3] = test::swatch("unused");
    const auto before = std::make_unique<GlobalRecord>(*data);
    swatch1.setSelectedColor(2);
    swatch1.deleteEntry();
    EXPECT_TRUE(press(Key::deleteKey));
    EXPECT_THAT(labels, IsEmpty());
    EXPECT_EQ(swatch1.getNumberOfColors(), 2);
    EXPECT_EQ(std::memcmp(before.get(), data.get(), sizeof *data), 0);
}

TEST_F(ListMouseAndKeys, TheRightButtonSelectsAndOpensTheListsOwnMenuOnly) {
    fillNumbered(swatch2, 5);
    host2.redisplays = 0;
    swatch2.rightMouseDown({row(3)});
    EXPECT_EQ(swatch2.getSelected(), 3);
    EXPECT_EQ(menu2.popUps, 1);
    EXPECT_EQ(menu1.popUps, 0);
    EXPECT_EQ(host2.redisplays, 2) << "for the mark of the open menu: on, and off again";
    EXPECT_THAT(firstColors, IsEmpty());
}

TEST_F(ListMouseAndKeys, DeletingMovesTheOthersDownAndKeepsSelectionAndHeight) {
    fillNumbered(swatch1, 30);
    const double height = swatch1.frame().h;
    swatch1.setSelectedColor(1);
    onUndoStep = [this] { EXPECT_EQ(swatch1.getNumberOfColors(), 30) << "recorded before the change"; };
    swatch1.deleteEntry();
    EXPECT_EQ(swatch1.getNumberOfColors(), 29);
    EXPECT_EQ(nameBytes(data->swatchList1[1]), "2");
    EXPECT_EQ(nameBytes(data->swatchList1[29]), "") << "the unused record past the last one moves along";
    EXPECT_EQ(swatch1.getSelected(), 1);
    EXPECT_EQ(swatch1.frame().h, height);
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
}

TEST_F(ListMouseAndKeys, DeletingTheLastSwatchLeavesTheSelectionPastTheEnd) {
    fillNumbered(swatch1, 4);
    swatch1.setSelectedColor(3);
    swatch1.deleteEntry();
    EXPECT_EQ(swatch1.getNumberOfColors(), 3);
    EXPECT_EQ(swatch1.getSelected(), 3);
}

TEST_F(ListMouseAndKeys, DeletingInAFullOrOverstatedListStaysInTheArray) {
    data->swatchList2[0] = test::swatch("guard");
    for (const std::int16_t count : {std::int16_t{5000}, std::int16_t{30'000}}) {
        data->swatchList1[4999] = test::swatch("last");
        swatch1.setNumberOfColors(count);
        swatch1.setSelectedColor(0);
        swatch1.deleteEntry();
        EXPECT_EQ(swatch1.getNumberOfColors(), count - 1);
        EXPECT_EQ(nameBytes(data->swatchList1[4999]), "last");
    }
    EXPECT_EQ(nameBytes(data->swatchList2[0]), "guard");
}

TEST_F(ListMouseAndKeys, ArrowsSelectAsAClickDoes) {
    fillNumbered(swatch1, 30);
    EXPECT_TRUE(press(Key::down));
    EXPECT_TRUE(press(Key::down, true));
    EXPECT_TRUE(press(Key::up));
    EXPECT_TRUE(press(Key::up, true));
    EXPECT_TRUE(press(Key::up));
    EXPECT_THAT(firstColors, ElementsAre(1, 11, 10, 0, 0));
    EXPECT_EQ(swatch1.getSelected(), 0);
}

TEST_F(ListMouseAndKeys, HomeEndAndPagesStayInTheList) {
    fillNumbered(swatch1, 30); // ten rows are visible
    press(Key::end);
    press(Key::pageUp);
    press(Key::pageDown);
    press(Key::home);
    press(Key::pageDown);
    EXPECT_THAT(firstColors, ElementsAre(29, 19, 29, 0, 10));
}

TEST_F(ListMouseAndKeys, AKeyScrollsNoFurtherThanItTakesToShowTheRow) {
    fillNumbered(swatch1, 30);
    scroller1.scrolledTo = {-1, -1};
    press(Key::down);
    EXPECT_EQ(scroller1.scrolledTo, (Point{-1, -1})) << "the row shows already";
    press(Key::end);
    EXPECT_EQ(scroller1.scrolledTo, (Point{0, 22 * 30 + 5 - 220.0}));
    scroller1.setVerticalScroller(1);
    press(Key::home);
    EXPECT_EQ(scroller1.scrolledTo, (Point{0, 0}));
}

TEST_F(ListMouseAndKeys, KeysBringASelectionPastTheEndBackIntoTheList) {
    fillNumbered(swatch1, 5);
    swatch1.setSelectedColor(900);
    press(Key::down);
    EXPECT_EQ(swatch1.getSelected(), 4);
    swatch1.setSelectedColor(-7);
    press(Key::up);
    EXPECT_EQ(swatch1.getSelected(), 0);
}

TEST_F(ListMouseAndKeys, AnEmptyListTakesNoArrowAndOtherKeysGoOn) {
    EXPECT_FALSE(press(Key::down));
    fillNumbered(swatch1, 5);
    EXPECT_FALSE(press(Key::left));
    EXPECT_THAT(firstColors, IsEmpty());
}

TEST_F(ListMouseAndKeys, TheDeleteKeyDeletesTheSelectedSwatch) {
    fillNumbered(swatch1, 3);
    EXPECT_TRUE(press(Key::deleteKey));
    EXPECT_THAT(names(swatch1), ElementsAre("1", "2"));
    EXPECT_THAT(labels, ElementsAre("!Swatch Color deleted!"));
}

TEST_F(ListMouseAndKeys, EnterUsesTheRowOfEitherListAndNeverGoesOn) {
    fillNumbered(swatch1, 3);
    fillNumbered(swatch2, 3);
    swatch1.setSelectedColor(1);
    swatch2.setSelectedColor(2);
    EXPECT_TRUE(press(Key::enter));
    EXPECT_TRUE(swatch2.keyDown({Key::enter}));
    EXPECT_THAT(used, ElementsAre(std::pair(1, 1), std::pair(2, 2)));
    EXPECT_THAT(labels, IsEmpty());
    swatch1.setNumberOfColors(0);
    EXPECT_TRUE(press(Key::enter)) << "an empty list keeps it from OK as well";
}

TEST_F(ListMouseAndKeys, AltWithAnArrowMovesTheRowByOneStepOfUndo) {
    fillNumbered(swatch1, 4);
    swatch1.setSelectedColor(1);
    EXPECT_TRUE(pressWithAlt(Key::down));
    EXPECT_THAT(names(swatch1), ElementsAre("0", "2", "1", "3"));
    EXPECT_EQ(swatch1.getSelected(), 2);
    EXPECT_TRUE(pressWithAlt(Key::up));
    EXPECT_TRUE(pressWithAlt(Key::up));
    EXPECT_THAT(names(swatch1), ElementsAre("1", "0", "2", "3"));
    EXPECT_EQ(swatch1.getSelected(), 0);
    EXPECT_THAT(labels, ElementsAre("!Swatch Color moved!", "!Swatch Color moved!", "!Swatch Color moved!"));
    EXPECT_THAT(firstColors, IsEmpty()) << "the first colour stays";
}

TEST_F(ListMouseAndKeys, TheStepOfUndoHoldsTheListBeforeTheMove) {
    fillNumbered(swatch1, 2);
    std::vector<std::string> before;
    onUndoStep = [&] { before = names(swatch1); };
    pressWithAlt(Key::down);
    EXPECT_THAT(before, ElementsAre("0", "1"));
}

TEST_F(ListMouseAndKeys, ARowThatCannotMoveIsNoStep) {
    fillNumbered(swatch1, 3);
    EXPECT_TRUE(pressWithAlt(Key::up)) << "used up: it selects nothing either";
    swatch1.setSelectedColor(2);
    EXPECT_TRUE(pressWithAlt(Key::down));
    for (const int outside : {-1, 3, 6000}) {
        swatch1.setSelectedColor(static_cast<std::int16_t>(outside));
        EXPECT_TRUE(pressWithAlt(Key::up));
        EXPECT_TRUE(pressWithAlt(Key::down));
    }
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "2"));
    EXPECT_THAT(labels, IsEmpty());
}

TEST_F(ListMouseAndKeys, AMovedRowStaysInSight) {
    fillNumbered(swatch1, 30); // ten rows are visible
    swatch1.setSelectedColor(9);
    pressWithAlt(Key::down);
    EXPECT_EQ(names(swatch1)[10], "9");
    EXPECT_EQ(scroller1.scrolledTo, (Point{0, 22 * 11 + 5 - 220.0}));
}

TEST_F(ListMouseAndKeys, AssistiveTechnologySelectsARowAsAClickDoes) {
    fillNumbered(swatch1, 3);
    swatch1.selectAccessibleRow(2);
    EXPECT_EQ(swatch1.getSelected(), 2);
    EXPECT_THAT(firstColors, ElementsAre(2));
}

TEST_F(ListMouseAndKeys, OverwritingWithWhiteStoresMinusOneAndTheName) {
    fillNumbered(swatch1, 3);
    swatch1.setSelectedColor(1);
    host1.redisplays = 0;
    swatch1.setColor(Colour::rgb(1, 1, 1), "Caf\u00e9");
    const FCOStruct& record = data->swatchList1[1];
    EXPECT_EQ(record.SRed, -1);
    EXPECT_EQ(record.SGreen, -1);
    EXPECT_EQ(record.SBlue, -1);
    EXPECT_EQ(nameBytes(record), "Cafe");
    EXPECT_EQ(host1.redisplays, 1);
    EXPECT_THAT(labels, IsEmpty()) << "its caller records the step";
    const RGBColor drawn = CSwatchList::bufferColorOf(record);
    EXPECT_EQ(drawn.red, 65535) << "drawing still shows white";
}

TEST_F(ListMouseAndKeys, OverwritingPastTheArrayWritesNothing) {
    data->swatchList2[0] = test::swatch("guard");
    for (const std::int16_t row : {std::int16_t{5000}, std::int16_t{-1}, std::int16_t{32'767}}) {
        swatch1.setSelectedColor(row);
        swatch1.setColor(Colour::rgb(1, 0, 0), "lost");
    }
    EXPECT_EQ(nameBytes(data->swatchList2[0]), "guard");
}

TEST_F(ListMouseAndKeys, MovingASwatchColourDoesNothing) {
    fillNumbered(swatch1, 3);
    swatch1.moveSwatchColor(0, 2);
    EXPECT_THAT(names(swatch1), ElementsAre("0", "1", "2"));
}

} // namespace
} // namespace chromalog
