// A person works on the lists: each story ends in what is stored, saved or printed.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

using Names = std::vector<std::string>;

class StoryOfAList : public Story {
  protected:
    /// The lists as OK or Cancel has left them, each as the first letters of its names.
    std::string letters(int list) {
        std::string all;
        for (const std::string& swatch : swatches(list))
            all += swatch.substr(0, 1);
        return all;
    }
    void cancel() {
        click({"cancelButton"});
        EXPECT_EQ(ended(), "#3366cc");
    }
};

TEST_F(StoryOfAList, ASwatchIsDraggedToTheOtherListAndWithinItsOwn) {
    startWith("three.aco");
    open();
    drag(row(1, 1), row(2, 2));
    drag(row(1, 0), row(1, 2));
    drag({"origSecondColor"}, {"swatch2", 50, 200});
    cancel();
    EXPECT_EQ(swatches(1), (Names{"Green 0 65535 0", "Blue 0 0 65535", "Red 65535 0 0"}));
    EXPECT_EQ(swatches(2), (Names{"Green 0 65535 0", "New Color 13107 26214 52428"}));
}

TEST_F(StoryOfAList, ASwatchIsDraggedIntoTheFirstColour) {
    startWith("three.aco", 2);
    open();
    drag(row(2, 2), {"origFirstColor"});
    click({"okButton"});
    EXPECT_EQ(ended(), "#0000ff");
}

TEST_F(StoryOfAList, AColourThatIsThereIsRefused) {
    startWith("three.aco");
    open();
    drag(row(1, 0), row(2, 0));
    drag(row(1, 0), row(2, 0));
    until([this] { return desktop_.active() != dialog_ && desktop_.active() != 0; }, "the alert");
    keys("Return");
    waitForWindow("Chromalog");
    cancel();
    EXPECT_EQ(letters(2), "R");
}

/// By the menu, the panel's own keys and its button; Escape closes the panel and not the dialog.
TEST_F(StoryOfAList, NearDoublesAreRemovedAndTheNearestSwatchIsUsed) {
    writeThree();
    write("more.aco", read("three.aco")); // every swatch stands twice
    playWell("dropfile swatch1 30 30 $/three.aco\npress appendSwatch1:\nchoose $/more.aco\nok\n");
    prepare("press findNearDoubles:\nwait 200\n");
    open();
    click({"toolsMenuButton"});
    choose("toolsMenu", "itemNearDoubles");
    waitForWindow("Compare Lists");
    const int sign = frames_.at("swatch1")[2] - 14;
    waitForColour({"swatch1", sign, 22 * 3 + 13}, "#990033"); // the cross of the first that goes
    click(panel("compareRemove"));
    keys("Escape");
    waitForWindow("Chromalog");
    click({"toolsMenuButton"});
    choose("toolsMenu", "itemNearestSwatches");
    waitForWindow("Nearest Swatches");
    keys("Home Return Escape"); // the blue one becomes the second colour
    waitForWindow("Chromalog");
    waitForColour({"origSecondColor"}, "#0000ff");
    cancel();
    EXPECT_EQ(letters(1), "RGB");
}

TEST_F(StoryOfAList, WhatIsFoundIsUsedByReturn) {
    startWith("three.aco");
    open();
    keys("ctrl+f");
    type("Bl\n");
    keys("alt+1 Return"); // uses the row and presses nothing
    waitForColour({"origFirstColor"}, "#0000ff");
    click({"okButton"});
    EXPECT_EQ(ended(), "#0000ff");
}

TEST_F(StoryOfAList, ASortedListIsSaved) {
    startWith("three.aco");
    open();
    click({"sortAlpha1"});
    click({"saveSwatch1"});
    waitForWindow("Save list 1");
    keys("ctrl+a");
    type(file("sorted.aco") + "\n");
    waitForWindow("Chromalog");
    cancel();
    startWith("sorted.aco", 2);
    EXPECT_EQ(letters(2), "BGR");
}

TEST_F(StoryOfAList, AFileIsLoadedIntoTheListUsedLast) {
    open();
    keys("alt+2 ctrl+o");
    waitForWindow("Load into list 2");
    type(file("three.aco") + "\n");
    waitForWindow("Chromalog");
    cancel();
    EXPECT_EQ(letters(1), "");
    EXPECT_EQ(letters(2), "RGB");
}

TEST_F(StoryOfAList, KeysUndoAndRedo) {
    startWith("three.aco");
    open();
    click(row(1, 1));
    keys("Delete Delete ctrl+z ctrl+z ctrl+shift+z");
    cancel();
    EXPECT_EQ(letters(1), "RB");
}

TEST_F(StoryOfAList, UndoIsTheFieldsWhileItIsTypedIn) {
    startWith("three.aco", 2);
    open();
    click(row(2, 0));
    keys("Delete");
    click({"firstR"});
    keys("ctrl+a");
    type("7");
    keys("ctrl+z Return"); // ends the typing
    click({"okButton"});
    EXPECT_EQ(ended(), "#e54c19");
    EXPECT_EQ(letters(2), "GB");
}

TEST_F(StoryOfAList, UndoIsTheListsOnceTheTypingHasEnded) {
    startWith("three.aco", 2);
    open();
    click(row(2, 0));
    keys("Delete");
    click({"firstR"});
    keys("ctrl+a");
    type("7\n");
    keys("ctrl+z Return");
    EXPECT_EQ(ended(), "#074c19");
    EXPECT_EQ(letters(2), "RGB");
}

TEST_F(StoryOfAList, ARowMovesByKeysAlone) {
    startWith("three.aco");
    open();
    keys("alt+1 alt+Down alt+Down alt+Up Escape");
    ended();
    EXPECT_EQ(letters(1), "GRB");
}

TEST_F(StoryOfAList, AMenuDeletesTheRowUnderThePointer) {
    startWith("three.aco");
    open();
    take(row(1, 1), 3); // Delete Swatch
    cancel();
    EXPECT_EQ(letters(1), "RB");
}

TEST_F(StoryOfAList, TheMenuKeyUsesTheSelectedRow) {
    startWith("three.aco");
    open();
    keys("alt+1 Down Menu Down Return"); // Use as First Color
    waitForColour({"origFirstColor"}, "#00ff00");
    click({"okButton"});
    EXPECT_EQ(ended(), "#00ff00");
}

TEST_F(StoryOfAList, AColourIsCopiedAsHexAndNamesASwatch) {
    startWith("three.aco");
    open();
    click(row(1, 2));
    take({"origSecondColor"}, 1); // Copy
    click({"colorName"});
    keys("ctrl+a ctrl+v");
    click({"writeToSwatch"});
    cancel();
    EXPECT_EQ(swatches(1)[2], "#3366cc 0 0 -1");
}

TEST_F(StoryOfAList, TheHistoryPanelTakesAChangeBack) {
    startWith("three.aco");
    open();
    click({"killSwatch1"});
    click({"showProtocolWindow"});
    waitForWindow("History");
    click(panel("undoAction"));
    cancel();
    EXPECT_EQ(letters(1), "RGB");
}

TEST_F(StoryOfAList, AnEarlierListIsBroughtBack) {
    startWith("three.aco");
    prepare("press bringBackLists:\n");
    open();
    click({"killSwatch1"});
    click({"bringBackLists"});
    waitForWindow("Earlier Lists");
    click(panel("bringBackList1"));
    keys("Escape");
    waitForWindow("Chromalog");
    cancel();
    EXPECT_EQ(letters(1), "RGB");
}

TEST_F(StoryOfAList, AnEmptiedListIsBroughtBackByItsButton) {
    startWith("three.aco");
    open();
    click({"killSwatch1"});
    click({"undoButton"});
    click({"undoButton"}); // nothing is left
    cancel();
    EXPECT_EQ(letters(1), "RGB");
}

} // namespace
} // namespace chromalog::test
