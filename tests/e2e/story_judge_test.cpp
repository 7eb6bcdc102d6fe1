// A person judges colours: a handle on the wheel, a mark beside a colour.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

using StoryOfAJudgement = Story;

TEST_F(StoryOfAJudgement, AnAngleIsDraggedOnTheWheelAndKept) {
    prepare("press showCustomAngle:\n");
    open();
    click({"toolsMenuButton"});
    choose("toolsMenu", "itemCustomAngle");
    waitForWindow("Custom Angle");
    const auto panel = onScreen(At{"customAngle1Color", -1, -1, true});
    until([&] { return desktop_.pixel(panel.x, panel.y) == 0x32b2cc; }, "the well at 30 degrees");
    sweep({"chromaView", 12, 177}, {"chromaView", 82, 367}); // from 30 to 90 degrees beside #3366cc
    until([&] { return desktop_.pixel(panel.x, panel.y) == 0x33cc4d; }, "the well at 90 degrees");
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#3366cc") << "nothing was picked";
    EXPECT_THAT(read("data/Quorvex/Chromalog-settings.json"), testing::HasSubstr("\"customAngle\": 90"));
}

TEST_F(StoryOfAJudgement, WhatCannotBePrintedIsReplacedByAPressOfItsMark) {
    prepare("press toggleGamutWarning:\nwait 300\n"); // where the mark stands
    open();
    click({"toolsMenuButton"});
    choose("toolsMenu", "itemGamutWarning");
    waitForColour({"origSecondColor"}, "#3366cc");
    const auto mark = onScreen({"gamutSecond"});
    until([&] { return (desktop_.pixel(mark.x, mark.y) & 0xFF) < 0x80; }, "the mark's stroke");
    click({"gamutSecond"});
    waitForColour({"origSecondColor"}, "#4366b0");
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), "#4366b0");
}

} // namespace
} // namespace chromalog::test
