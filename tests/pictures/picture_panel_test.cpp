// The panel: what is read, taken and given away, at once or while the dialog goes on.
#include "pictures/picture_panel.h"

#include "pictures/pictures_support.h"
#include "support/headless_desktop.h"

#include <gmock/gmock.h>

#include <deque>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A desktop whose workers wait until the test says go.
class SlowDesktop : public HeadlessDesktop {
  public:
    bool slow = false;
    std::deque<std::pair<std::function<void()>, std::function<void()>>> waiting;

    std::unique_ptr<Worker> makeWorker() override { return std::make_unique<SlowWorker>(*this); }
    void work() { waiting.front().first(); } ///< of the one that waits longest
    void end() {
        const auto then = waiting.front().second;
        waiting.pop_front();
        then();
    }

  private:
    struct SlowWorker : Worker {
        explicit SlowWorker(SlowDesktop& d) : desktop(d) {}
        ~SlowWorker() override {
            while (!desktop.waiting.empty())
                desktop.work(), desktop.end();
        }
        void begin(std::function<void()> work, std::function<void()> then) override {
            if (!desktop.slow) return Worker::begin(work, then);
            ASSERT_TRUE(desktop.waiting.empty()) << "it would have been waited for";
            desktop.waiting.emplace_back(std::move(work), std::move(then));
        }
        SlowDesktop& desktop;
    };
};

ReadPicture good(const Picture& picture) {
    return {picture, {}, {}};
}

class PicturePanels : public testing::Test {
  protected:
    void SetUp() override {
        desktop.pictures["four.png"] = good(picture(4, {0xFFFF0000, 0xFFFF0000, 0xFFFF0000, 0xFF0000FF,
                                                        0xFF0000FF, 0xFF008000, 0x00FFFFFF, 0x00FFFFFF}));
        desktop.pictures["one.png"] = good(picture(1, {0xFF808080}));
        desktop.pictures["bad.png"] = {{}, "bad.png: damaged", {}};
    }
    PicturePanel& panel() {
        if (!panel_)
            panel_ = std::make_unique<PicturePanel>(
                PicturePanelParts{desktop, dialog, [this](const Colour& c) { picked.push_back(c); },
                                  [this](int list, const std::vector<TakenColour>& colours) {
                                      lists.push_back(list);
                                      added = colours;
                                  }});
        return *panel_;
    }
    HeadlessForm& form() { return *desktop.forms.at("PicturePanel"); }
    void open(const std::string& path) {
        panel().show();
        if (!desktop.panelOpen()) form().send("openPicture:");
        desktop.answerPanel(path);
    }
    std::string note() { return form().outlet<HeadlessTextField>("pictureNote").text(); }
    bool canAdd() { return form().outlet<HeadlessButton>("pictureToList1").enabled(); }
    bool canCancel() { return !form().outlet<HeadlessButton>("cancelPicture").hidden(); }
    HeadlessTextField& count() { return form().outlet<HeadlessTextField>("pictureCount"); }
    std::vector<std::string> taken() {
        std::vector<std::string> names;
        for (const TakenColour& each :
             dynamic_cast<TakenColoursView*>(form().views.at("takenColors"))->colours())
            names.push_back(each.name);
        return names;
    }

    HeadlessWindow dialog;
    SlowDesktop desktop;
    std::vector<Colour> picked;
    std::vector<int> lists;
    std::vector<TakenColour> added;
    std::unique_ptr<PicturePanel> panel_; ///< goes first
};

TEST_F(PicturePanels, AsksForAFileAtOnceWhereThereIsNoPicture) {
    panel().show();
    EXPECT_TRUE(desktop.panelOpen());
    EXPECT_EQ(desktop.openPanels.back().kind, "Pictures");
    EXPECT_THAT(desktop.openPanels.back().types, testing::IsSupersetOf({"png", "jpg", "tif", "webp"}));
    desktop.answerPanel("four.png");
    panel().show();
    EXPECT_FALSE(desktop.panelOpen()) << "there is one";
    EXPECT_EQ(form().outlet<HeadlessWindow>("pictureWindow").parent, &dialog);
}

TEST_F(PicturePanels, ThreeActionsBringTheColoursIntoAList) {
    panel().show();
    desktop.answerPanel("four.png");
    form().send("pictureToList1:");
    EXPECT_THAT(lists, ElementsAre(1));
    ASSERT_EQ(added.size(), 3u);
    EXPECT_EQ(added[0].name, "red");
    EXPECT_NEAR(added[0].share, 0.5, 1e-12) << "of what is not clear";
    EXPECT_EQ(added[1].name, "blue");
    EXPECT_EQ(added[2].name, "green");
    EXPECT_TRUE(added[2].colour.sameRgb(Colour::rgb(0, 128 / 255.0, 0))) << "to the bit: lists truncate";
    form().send("pictureToList2:");
    EXPECT_THAT(lists, ElementsAre(1, 2));
    EXPECT_EQ(note(), "four.png, 4 x 2 pixels");
}

TEST_F(PicturePanels, TheOrderCanBeThatOfHues) {
    open("four.png");
    EXPECT_THAT(taken(), ElementsAre("red", "blue", "green"));
    form().outlet<HeadlessRadioMatrix>("pictureOrder").selectRow(1);
    form().send("pictureOrder:");
    EXPECT_THAT(taken(), ElementsAre("red", "green", "blue"));
    EXPECT_EQ(desktop.numbers.at("pictureOrder"), 1);
}

TEST_F(PicturePanels, TheNumberOfColoursIsTypedOrStepped) {
    open("four.png");
    EXPECT_EQ(count().text(), "12");
    count().type("2");
    EXPECT_EQ(taken().size(), 2u);
    EXPECT_EQ(count().fault, "");
    count().type("1");
    EXPECT_EQ(count().fault, "2 to 64");
    EXPECT_EQ(taken().size(), 2u) << "the last number that was one";
    count().endEditing();
    EXPECT_EQ(count().text(), "2");
    EXPECT_EQ(count().fault, "");
    count().type("65"); // 6 on the way
    EXPECT_EQ(count().fault, "2 to 64");
    count().endEditing();
    EXPECT_EQ(count().text(), "6");
    auto& step = form().outlet<HeadlessStepper>("pictureCountStep");
    EXPECT_EQ(step.minimum, 2);
    EXPECT_EQ(step.maximum, 64);
    step.current = 3;
    form().send("stepPictureColors:");
    EXPECT_EQ(count().text(), "3");
    EXPECT_EQ(taken().size(), 3u);
    EXPECT_EQ(desktop.numbers.at("pictureColors"), 3);
}

TEST_F(PicturePanels, ChoicesAreFoundAgainUnlessTheyAreNone) {
    desktop.numbers = {{"pictureSquare", 2}, {"pictureOrder", 1}, {"pictureColors", 5}};
    open("four.png");
    EXPECT_EQ(form().outlet<HeadlessRadioMatrix>("pictureSquare").selectedRow(), 2);
    EXPECT_EQ(count().text(), "5");
    EXPECT_THAT(taken(), ElementsAre("red", "green", "blue"));
    panel_.reset();
    desktop.numbers = {{"pictureSquare", 1e300}, {"pictureOrder", -1}, {"pictureColors", 65}};
    open("four.png");
    EXPECT_EQ(form().outlet<HeadlessRadioMatrix>("pictureSquare").selectedRow(), 0);
    EXPECT_EQ(count().text(), "12");
}

TEST_F(PicturePanels, AClickPicksFromThePictureAndFromTheColours) {
    open("four.png");
    for (auto& [name, view] : form().views) {
        view->setFrame({0, 0, 100, 50});
        MouseEvent press;
        press.location = {99, 10};
        view->mouseDown(press);
    }
    ASSERT_EQ(picked.size(), 2u);
    EXPECT_TRUE(picked[0].sameRgb(Colour::rgb(0, 0, 1))) << "the pixel in the upper right";
    EXPECT_TRUE(picked[1].sameRgb(Colour::rgb(1, 0, 0))) << "the first row";
    EXPECT_THAT(lists, ElementsAre());
    form().outlet<HeadlessRadioMatrix>("pictureSquare").selectRow(1);
    form().send("pictureSquare:");
    EXPECT_EQ(desktop.numbers.at("pictureSquare"), 1);
    EXPECT_EQ(form().outlet<HeadlessTextField>("picturePlace").text(), "x 3, y 0, #7f007f");
}

TEST_F(PicturePanels, WhatCannotBeReadIsSaidAndThePictureStays) {
    open("bad.png");
    EXPECT_EQ(desktop.status.text(), "bad.png: damaged");
    EXPECT_EQ(note(), "bad.png: damaged");
    EXPECT_FALSE(canAdd());
    open("four.png");
    EXPECT_EQ(desktop.status.text(), "");
    form().send("openPicture:");
    desktop.answerPanel("bad.png");
    EXPECT_EQ(taken().size(), 3u);
    EXPECT_TRUE(canAdd());
    form().send("openPicture:");
    desktop.answerPanel(std::nullopt);
    EXPECT_EQ(taken().size(), 3u);
}

TEST_F(PicturePanels, ARemarkIsSaidOfAPictureThatWasRead) {
    desktop.pictures["one.png"].remark = "one.png: its color profile cannot be used";
    open("one.png");
    EXPECT_THAT(desktop.status.text(), HasSubstr("profile"));
    EXPECT_THAT(taken(), ElementsAre("gray"));
}

TEST_F(PicturePanels, APictureIsPasted) {
    panel().show();
    desktop.answerPanel(std::nullopt);
    form().send("pastePicture:");
    EXPECT_EQ(desktop.status.text(), "There is no picture on the clipboard.");
    Pasteboard clipboard;
    clipboard.picture = [this] { return desktop.pictureFile("one.png"); };
    desktop.setGeneralPasteboard(clipboard);
    form().send("pastePicture:");
    EXPECT_EQ(desktop.status.text(), "");
    EXPECT_THAT(taken(), ElementsAre("gray"));
}

TEST_F(PicturePanels, ProgressShowsWhileTheDialogGoesOn) {
    desktop.slow = true;
    open("four.png");
    EXPECT_EQ(note(), "Reading four.png: 0 %");
    EXPECT_TRUE(canCancel());
    desktop.work();
    desktop.advance(0.15);
    EXPECT_EQ(note(), "Reading four.png: 50 %");
    desktop.end();
    EXPECT_EQ(note(), "Taking colors from four.png: 0 %");
    form().send("pictureToList1:");
    form().send("pictureToList1:");
    EXPECT_EQ(note(), "Taking colors from four.png: 0 %, then into the list");
    EXPECT_THAT(lists, ElementsAre()) << "not before they are there";
    desktop.work();
    desktop.end();
    EXPECT_THAT(lists, ElementsAre(1)) << "once";
    EXPECT_EQ(added.size(), 3u);
    EXPECT_EQ(note(), "four.png, 4 x 2 pixels");
    EXPECT_FALSE(canCancel());
    EXPECT_TRUE(canAdd());
}

TEST_F(PicturePanels, CancelEndsTheReading) {
    desktop.slow = true;
    open("four.png");
    form().send("pictureToList1:");
    form().send("cancelPicture:");
    EXPECT_EQ(note(), "No picture yet");
    EXPECT_FALSE(canCancel());
    desktop.work();
    desktop.end();
    EXPECT_EQ(note(), "No picture yet");
    EXPECT_TRUE(desktop.waiting.empty()) << "nothing follows";
    EXPECT_FALSE(canAdd());
    EXPECT_THAT(lists, ElementsAre());
    EXPECT_EQ(desktop.status.text(), "");
}

TEST_F(PicturePanels, TheLatestPictureWinsAndNobodyWaitsForTheOther) {
    desktop.slow = true;
    open("four.png");
    form().send("openPicture:");
    desktop.answerPanel("one.png");
    form().send("pictureToList2:"); // its colours
    desktop.work(), desktop.end();  // of the first
    desktop.work(), desktop.end();  // of the second
    desktop.work(), desktop.end();  // its colours
    EXPECT_THAT(taken(), ElementsAre("gray"));
    EXPECT_THAT(lists, ElementsAre(2));
    EXPECT_TRUE(desktop.waiting.empty());
}

TEST_F(PicturePanels, ANumberThatIsTypedMeanwhileCounts) {
    desktop.slow = true;
    open("four.png");
    count().type("2");
    desktop.work(), desktop.end();
    desktop.work(), desktop.end();
    EXPECT_EQ(taken().size(), 2u);
}

TEST_F(PicturePanels, ClosingEndsWhatGoesOnAndColoursAreTakenWhenItShowsAgain) {
    open("four.png");
    desktop.slow = true;
    count().type("2");
    form().outlet<HeadlessWindow>("pictureWindow").onClose();
    EXPECT_FALSE(form().outlet<HeadlessWindow>("pictureWindow").visible());
    desktop.work(), desktop.end();
    EXPECT_EQ(taken().size(), 3u) << "those from before";
    panel().show();
    EXPECT_FALSE(desktop.panelOpen());
}

TEST_F(PicturePanels, MayGoWhileSomethingGoesOn) {
    desktop.slow = true;
    open("four.png");
    panel_.reset();
    EXPECT_TRUE(desktop.waiting.empty());
}

} // namespace
} // namespace chromalog::test
