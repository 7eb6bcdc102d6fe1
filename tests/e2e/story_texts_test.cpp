// A person types, copies, pastes and adds colours: each story ends in what the program prints or leaves.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

using testing::ElementsAre;

using StoryOfTexts = Story;

TEST_F(StoryOfTexts, AHexCodeIsTypedOverTheOldOne) {
    open();
    click({"firstHex"});
    type(" #369;\n\n"); // ends the typing, presses OK
    EXPECT_EQ(ended(), "#336699");
}

TEST_F(StoryOfTexts, ATextThatIsNoColourChangesNothing) {
    open();
    click({"firstHex"});
    type("bluish");
    click({"secondHex"});
    type("no\n\n");
    EXPECT_EQ(ended(), "#e54c19");
}

TEST_F(StoryOfTexts, FourInksAreTypedAsOneEntry) {
    open({"--color-services", "closed"});
    click({"firstInks"});
    type("10 20 30 40\n\n");
    EXPECT_EQ(ended(), "#897a6b");
}

TEST_F(StoryOfTexts, AReadingIsChosenAndTyped) {
    open();
    click({"firstReading"});
    until([this] { return menuIsOpen(); }, "the menu of the readings");
    keys("Down Down Down Return");
    click({"firstInks"}); // in its place
    type("210 50% 40%\n\n");
    EXPECT_EQ(ended(), "#336699");
}

TEST_F(StoryOfTexts, AQuadGoesAsCssIntoTheClipboardAndFromThereIntoAList) {
    open();
    take({"quadri1Color"}, 7);
    click({"swatch1", 60, 200});
    keys("ctrl+v Escape");
    EXPECT_EQ(ended(), "#3366cc");
    EXPECT_THAT(swatches(1), ElementsAre("quadri-1 13107 26214 52428", "quadri-2 19275 52428 13107",
                                         "quadri-3 52428 39321 13107", "quadri-4 45489 12850 52428"));
}

TEST_F(StoryOfTexts, ACopiedRowIsPastedOnAWell) {
    startWith("three.aco");
    open();
    click(row(1, 1));
    keys("ctrl+c");
    take({"origSecondColor"}, 3);
    waitForColour({"origSecondColor"}, "#00ff00");
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#00ff00");
}

TEST_F(StoryOfTexts, ColoursAreAddedByDoubleClicksAndKeys) {
    open();
    click({"complementColor"}, "1");
    click({"complementColor"}, "1"); // soon enough to be a double click
    keys("alt+Insert");
    click({"myDegrade", 20, 20});
    keys("Insert Escape");
    EXPECT_EQ(ended(), "#3366cc");
    EXPECT_THAT(swatches(1), ElementsAre("#cc9933 52428 39321 13107", testing::StartsWith("#")));
    EXPECT_THAT(swatches(2), ElementsAre("#cc9933 52428 39321 13107"));
}

TEST_F(StoryOfTexts, AnyColourBecomesTheFirstByItsMenu) {
    open();
    take({"complementColor"}, 3);
    click({"okButton"});
    EXPECT_EQ(ended(), "#cc9933");
}

} // namespace
} // namespace chromalog::test
