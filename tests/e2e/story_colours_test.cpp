// A person picks colours: each story ends in what the program prints.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

using StoryOfAColour = Story;

TEST_F(StoryOfAColour, ATypedValueIsReturned) {
    open();
    click({"firstR"});
    keys("ctrl+a");
    type("255");
    keys("Return Return"); // ends the typing, presses OK
    EXPECT_EQ(ended(), "#ff4c19");
}

TEST_F(StoryOfAColour, InksAreTypedOneAfterTheOther) {
    open({"--color-services", "closed"});
    click({"firstC"});
    keys("ctrl+a");
    type("10\t20\t30\t40\n\n");
    EXPECT_EQ(ended(), "#897a6b");
}

/// A first press is picked in the row of the point before it.
TEST_F(StoryOfAColour, APickOnTheWheelIsTheSecondColour) {
    open();
    click({"chromaView", 300, 100});
    click({"chromaView", 300, 100});
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#cc42b9");
}

TEST_F(StoryOfAColour, DragsOnWheelAndStripEndUnderThePointer) {
    open();
    click({"chromaView", 300, 300});
    sweep({"chromaView", 300, 300}, {"chromaView", 120, 300});
    sweep({"lumiView", 12, 80}, {"lumiView", 12, 200});
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#35874b");
}

TEST_F(StoryOfAColour, AToneIsDraggedOutOfTheChart) {
    open();
    click({"toneOrDegrade"});
    drag({"myToneView", 100, 100}, {"origFirstColor"});
    click({"okButton"});
    EXPECT_EQ(ended(), "#21bdd5");
}

TEST_F(StoryOfAColour, AGradientTakesACornerAndGivesAColour) {
    open();
    drag({"origSecondColor"}, {"myDegrade", 20, 20});
    drag({"myDegrade", 60, 40}, {"origFirstColor"});
    click({"okButton"});
    EXPECT_EQ(ended(), "#5357b9");
}

TEST_F(StoryOfAColour, AComplementIsUsed) {
    open();
    click({"complementOn"});
    drag({"complementColor"}, {"origFirstColor"});
    click({"okButton"});
    EXPECT_EQ(ended(), "#cc9933");
}

TEST_F(StoryOfAColour, AHarmonyOfAPickIsUsed) {
    open();
    click({"chromaView", 120, 300});
    click({"chromaView", 120, 300});
    click({"quadriOn"});
    drag({"quadri3Color"}, {"origSecondColor"});
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#cc8751");
}

TEST_F(StoryOfAColour, TheOfferedColourIsTakenBack) {
    open();
    click({"chromaView", 300, 100});
    waitForColour({"origSecondColor"}, "#cc49b5");
    click({"offeredColor"});
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#3366cc");
}

TEST_F(StoryOfAColour, TheSwitchGoesBothWays) {
    open();
    click({"toggleSecondColor", 300, 12});
    waitForColour({"okButton", 8, 8}, "#3366cc");
    click({"toggleSecondColor", 60, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#e54c19");
    EXPECT_EQ(state("frames.json")["useSecondColor"], 0);
}

TEST_F(StoryOfAColour, AltOnOkChangesWhatTheNextClickReturns) {
    open();
    desktop_.hands({"keydown", "alt"});
    click({"okButton"});
    waitForColour({"okButton", 8, 8}, "#3366cc"); // the keyboard is asked when the press is handled
    desktop_.hands({"keyup", "alt"});
    click({"okButton"});
    EXPECT_EQ(ended(), "#3366cc");
    prepare();
    EXPECT_EQ(state("frames.json")["useSecondColor"], 1) << "the choice is kept";
}

TEST_F(StoryOfAColour, EscapeReturnsWhatWasOffered) {
    open();
    click({"toggleSecondColor", 300, 12});
    click({"chromaView", 300, 100});
    keys("Escape");
    EXPECT_EQ(ended(), "#3366cc");
}

TEST_F(StoryOfAColour, CancelReturnsWhatWasOffered) {
    open();
    click({"firstG"});
    keys("ctrl+a");
    type("1");
    click({"cancelButton"});
    EXPECT_EQ(ended(), "#3366cc");
}

TEST_F(StoryOfAColour, ArrowsAndTheMouseWheelStepTheFocusedFieldAlone) {
    open();
    click({"firstR"}); // 229
    keys("Up shift+Up");
    click({"firstG"}, "4"); // one notch up, without the focus
    click({"firstR"}, "5");
    keys("Return Return");
    EXPECT_EQ(ended(), "#ef4c19");
}

TEST_F(StoryOfAColour, KeysAloneReachTheSwitchAndTheStrip) {
    open();
    tabTo("toggleSecondColor");
    keys("space");
    tabTo("lumiView");
    keys("End Page_Up Up Return");
    EXPECT_EQ(ended(), "#407fff");
}

TEST_F(StoryOfAColour, ASecondPickIsOfferedTheFirst) {
    startWith("three.aco");
    open({"--picks", "2"});
    click(row(1, 1));
    click({"okButton"});
    until([this] { return desktop_.active() != dialog_ && desktop_.title(desktop_.active()) == "Chromalog"; },
          "the second dialog");
    dialog_ = desktop_.active();
    waitForColour({"offeredColor"}, "#00ff00");
    keys("Escape");
    EXPECT_EQ(ended(), "#00ff00\n#00ff00");
}

} // namespace
} // namespace chromalog::test
