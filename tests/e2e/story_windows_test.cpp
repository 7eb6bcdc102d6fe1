// A person's windows, panels and surroundings: each story ends in a colour or a file.
#include "e2e/story.h"

namespace chromalog::test {
namespace {

class StoryOfAWindow : public Story {
  protected:
    using Story::Story;

    void closeByTheFrame() {
        const auto frame = desktop_.frame(dialog_), inner = desktop_.place(dialog_).value();
        const int half = (inner.y - frame.y) / 2;
        desktop_.hands({"mousemove", std::to_string(frame.x + frame.w - half), std::to_string(frame.y + half),
                        "click", "1"});
    }
    void pickOnTheWheel() {
        click({"chromaView", 300, 100});
        click({"chromaView", 300, 100}); // the first press is picked in the row of the point before it
        click({"toggleSecondColor", 300, 12});
        click({"okButton"});
        EXPECT_EQ(ended(), "#cc42b9");
    }
    /// Drags the frame's corner until the dialog has that size; moves until the manager has taken the drag
    /// up.
    void resizeByTheFrame(int width, int height) {
        const auto frame = desktop_.frame(dialog_), inner = desktop_.place(dialog_).value();
        const int x = frame.x + frame.w - 3, y = frame.y + frame.h - 3;
        const auto moveTo = [this](int toX, int toY) {
            desktop_.hands({"mousemove", std::to_string(toX), std::to_string(toY)});
        };
        moveTo(x, y);
        desktop_.hands({"mousedown", "1"});
        int moved = 4;
        until(
            [&] {
                moveTo(x - moved, y - moved);
                moved += 2;
                return desktop_.place(dialog_)->w < inner.w;
            },
            "the manager");
        moveTo(x + width - inner.w, y + height - inner.h);
        waitForSize(width, height);
        desktop_.hands({"mouseup", "1"});
    }
    void waitForSize(int width, int height) {
        until(
            [&] {
                const auto now = desktop_.place(dialog_);
                return now && now->w == width && now->h == height;
            },
            "a size of " + std::to_string(width) + " x " + std::to_string(height));
    }
};

TEST_F(StoryOfAWindow, TheFramesCloseBoxReturnsWhatWasOffered) {
    open();
    click({"toggleSecondColor", 300, 12});
    click({"chromaView", 300, 100});
    closeByTheFrame();
    EXPECT_EQ(ended(), "#3366cc");
}

TEST_F(StoryOfAWindow, ASmallWindowWorksAndIsAsSmallNextTime) {
    open();
    resizeByTheFrame(960, 540);
    keys("Escape");
    ended();
    prepare("", 960, 540);
    open();
    waitForSize(960, 540);
    click({"chromaView", 100, 60});
    click({"toggleSecondColor", frames_.at("toggleSecondColor")[2] - 8, 12});
    click({"okButton"});
    EXPECT_THAT(ended(), testing::MatchesRegex("#6[0-9a-f]5[0-9a-f]cc")) << "fonts move the wheel a little";
}

TEST_F(StoryOfAWindow, AFoldLasts) {
    open();
    click({"viewMenuButton"});
    choose("viewMenu", "itemChart");
    keys("Escape");
    ended();
    EXPECT_THAT(read("data/Quorvex/Chromalog-settings.json"), testing::HasSubstr("itemChart"));
}

class StoryOnASmallScreen : public StoryOfAWindow {
  protected:
    StoryOnASmallScreen() : StoryOfAWindow("1024x600x24") {}
};

TEST_F(StoryOnASmallScreen, OkIsInView) {
    open();
    const auto held = desktop_.place(dialog_).value();
    prepare("", held.w, held.h);
    click({"okButton"});
    EXPECT_EQ(ended(), "#e54c19");
}

class StoryOnAFineScreen : public StoryOfAWindow {
  protected:
    StoryOnAFineScreen() : StoryOfAWindow("2600x1600x24") {}
};

TEST_F(StoryOnAFineScreen, TheSamePlaceOnTheWheelIsTheSameColour) {
    prepare();
    environment_["QT_SCALE_FACTOR"] = "2";
    scale_ = 2;
    open();
    pickOnTheWheel();
}

/// As the toolkit reads a desktop's colours.
TEST_F(StoryOfAWindow, ADarkDesktopChangesNoColour) {
    write("config/kdeglobals", "[Colors:Window]\nBackgroundNormal=50,50,50\nForegroundNormal=228,228,228\n"
                               "[Colors:Button]\nBackgroundNormal=64,64,64\nForegroundNormal=228,228,228\n"
                               "[Colors:View]\nBackgroundNormal=38,38,38\nForegroundNormal=228,228,228\n");
    prepare();
    environment_["QT_QPA_PLATFORMTHEME"] = "kde";
    environment_["KDE_SESSION_VERSION"] = "5";
    environment_["QT_LOGGING_RULES"] = "qt.qpa.theme.dbus=false"; // there is no bus
    open();
    waitForColour({"chromalogWindow", 4, 4}, "#323232");
    pickOnTheWheel();
}

/// Lists that an earlier pick has left are skipped, and kept once.
TEST_F(StoryOfAWindow, AltWhileTheDialogOpensSkipsTheLists) {
    startWith("three.aco");
    desktop_.hands({"keydown", "alt"});
    open();
    desktop_.hands({"keyup", "alt"});
    click({"cancelButton"});
    ended();
    EXPECT_THAT(swatches(1), testing::IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(file("data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf.skipped")));
}

TEST_F(StoryOfAWindow, TheSheetOfKeysComesAndGoes) {
    open();
    keys("F1");
    waitForWindow("Keyboard Shortcuts");
    keys("Escape");
    waitForWindow("Chromalog");
    keys("Return");
    EXPECT_EQ(ended(), "#e54c19");
}

TEST_F(StoryOfAWindow, PrintOptionsEndWithoutAPageAndWithOne) {
    startWith("three.aco");
    prepare("press printFirstSwatch:\n");
    open();
    const auto options = [this] {
        click({"printFirstSwatch"});
        waitForWindow("Print Swatches");
    };
    options();
    keys("Escape");
    waitForWindow("Chromalog");
    options();
    click(panel("printCancel"));
    waitForWindow("Chromalog");
    options();
    click(panel("okPrint"));
    waitForWindow("Print");
    keys("alt+f ctrl+a");
    type(file("list.pdf") + "\n");
    waitForWindow("Chromalog");
    click({"cancelButton"});
    EXPECT_EQ(ended(), "#3366cc");
    EXPECT_EQ(read("list.pdf").substr(0, 5), "%PDF-");
}

} // namespace
} // namespace chromalog::test
