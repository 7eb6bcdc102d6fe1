#include "history/protocol_controler.h"

#include "history/undo_labels.h"
#include "record/global_record.h"
#include "support/headless_desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace chromalog {
namespace {

using test::HeadlessButton;
using test::HeadlessDesktop;
using test::HeadlessTextView;
using test::HeadlessWindow;
using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

/// Tells when it comes to the front.
class DialogWindow : public HeadlessWindow {
  public:
    explicit DialogWindow(std::vector<std::string>& calls) : calls_(calls) {}
    void makeKeyAndOrderFront() override {
        HeadlessWindow::makeKeyAndOrderFront();
        calls_.emplace_back("makeKeyAndOrderFront");
    }

  private:
    std::vector<std::string>& calls_;
};

/// A dialog of which the history sees a record, two counts and two buttons.
class HistoryTest : public testing::Test {
  protected:
    HistoryTest() {
        dialog.connect(&window);
        undoOutlet.connect(&undoButton);
        redoOutlet.connect(&redoButton);
        undoButton.setEnabled(false);
        redoButton.setEnabled(false);
        start();
    }
    void start() {
        history.reset();
        history =
            std::make_unique<ProtocolControler>(HistoryParts{platform, *data, dialog, undoOutlet, redoOutlet,
                                                             [this] {
                                                                 storeViewCounts();
                                                                 calls.emplace_back("save");
                                                             },
                                                             [this] { storeViewCounts(); },
                                                             [this] {
                                                                 viewCount = data->numColors1;
                                                                 calls.emplace_back("showRecord");
                                                             }});
    }
    void startWithoutPanel() {
        platform.missingForms = {"ProtocolPanel"};
        start();
    }
    /// A recorded change of the view's count, as a clear or a deletion makes it.
    void changeCount(std::int16_t count) {
        history->setUndoablePosition(undo_label::deleteSwatch);
        viewCount = count;
    }
    HeadlessWindow& panel() {
        return platform.forms.at("ProtocolPanel")->outlet<HeadlessWindow>("protocolWindow");
    }
    void storeViewCounts() { data->numColors1 = viewCount; }

    HeadlessDesktop platform;
    std::vector<std::string> calls;
    DialogWindow window{calls};
    HeadlessButton undoButton, redoButton;
    Outlet<Window> dialog;
    Outlet<Button> undoOutlet, redoOutlet;
    std::unique_ptr<GlobalRecord> data = std::make_unique<GlobalRecord>();
    std::int16_t viewCount = 0;
    std::unique_ptr<ProtocolControler> history;
};

TEST_F(HistoryTest, StartsEmptyWithALimitOfTwenty) {
    data->undoLimit = 3;
    start();
    EXPECT_EQ(data->undoLimit, 20);
    EXPECT_EQ(history->undoSteps(), 0);
    EXPECT_THAT(platform.logLines, Contains("Done with init protocolcontroler"));
}

TEST_F(HistoryTest, AChangeSavesThePreferencesFirstAndEnablesUndo) {
    redoButton.setEnabled(true);
    changeCount(7);
    EXPECT_THAT(calls, ElementsAre("save"));
    EXPECT_TRUE(undoButton.enabled());
    EXPECT_FALSE(redoButton.enabled());
    EXPECT_EQ(history->undoSteps(), 1);
    EXPECT_EQ(history->undoStepsAtMost(), 1);
}

TEST_F(HistoryTest, UndoBringsBackTheWholeRecordAndRedoTheChange) {
    data->swatchList1[4999].SRed = 17;
    data->useSecondColor = 1;
    history->setUndoablePosition(undo_label::colorChanged);
    data->swatchList1[4999].SRed = -1;
    data->swatchList2[0].Namen[3] = 9;
    data->useSecondColor = 0;
    const auto changed = std::make_unique<GlobalRecord>(*data);
    history->undoOutAction();
    EXPECT_EQ(data->swatchList1[4999].SRed, 17);
    EXPECT_EQ(data->swatchList2[0].Namen[3], 0);
    EXPECT_EQ(data->useSecondColor, 1);
    history->redoOutAction();
    EXPECT_EQ(std::memcmp(changed.get(), data.get(), sizeof *data), 0);
}

TEST_F(HistoryTest, WhatIsRedoneNextStandsJustAboveNow) {
    changeCount(1);
    history->setUndoablePosition(undo_label::colorChanged);
    history->undoOutAction();
    history->undoOutAction();
    const auto& rows = platform.forms.at("ProtocolPanel")->outlet<test::HeadlessRowList>("historySteps").rows;
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[2], "now");
    EXPECT_EQ(rows[1], redoButton.help);
    EXPECT_NE(rows[0], rows[1]);
}

TEST_F(HistoryTest, AClearCanBeUndoneAndRedoneThoughItChangedOnlyTheViewsCount) {
    viewCount = 12;
    changeCount(0);
    history->undoOutAction();
    EXPECT_EQ(viewCount, 12);
    history->redoOutAction();
    EXPECT_EQ(viewCount, 0);
}

TEST_F(HistoryTest, PanelRedoWithNothingToRedoKeepsTheViewsCount) {
    changeCount(5);
    history->redoAction();
    EXPECT_EQ(viewCount, 5);
    EXPECT_EQ(history->undoSteps(), 2) << "it still counts";
}

TEST_F(HistoryTest, UndoAtACountOfZeroDoesNothingEvenIfTheManagerCould) {
    changeCount(1);
    changeCount(2);
    history->undoOutAction();
    history->undoOutAction();
    EXPECT_EQ(history->undoSteps(), 0);
    calls.clear();
    history->undoOutAction();
    history->undoAction();
    EXPECT_THAT(calls, SizeIs(0));
    EXPECT_EQ(viewCount, 0);
}

TEST_F(HistoryTest, After21ChangesAnd20UndosAnotherPressDoesNothingAndTheButtonStaysEnabled) {
    for (std::int16_t i = 1; i <= 21; ++i)
        changeCount(i);
    for (int i = 0; i < 20; ++i)
        history->undoOutAction();
    EXPECT_EQ(viewCount, 1);
    EXPECT_TRUE(undoButton.enabled());
    calls.clear();
    history->undoOutAction();
    EXPECT_THAT(calls, SizeIs(0));
    EXPECT_EQ(history->undoSteps(), 1);
    EXPECT_TRUE(undoButton.enabled());
}

TEST_F(HistoryTest, UndoDisablesItsButtonAtTheLastStepAndEnablesRedo) {
    changeCount(1);
    history->undoOutAction();
    EXPECT_FALSE(undoButton.enabled());
    EXPECT_TRUE(redoButton.enabled());
}

TEST_F(HistoryTest, RedoFromTheMainWindowDisablesItsButtonAtTheCeiling) {
    changeCount(1);
    changeCount(2);
    history->undoOutAction();
    history->undoOutAction();
    history->redoOutAction();
    EXPECT_TRUE(redoButton.enabled());
    history->redoOutAction();
    EXPECT_FALSE(redoButton.enabled());
    EXPECT_TRUE(undoButton.enabled());
}

TEST_F(HistoryTest, RedoFromThePanelChangesNoButton) {
    changeCount(1);
    history->undoAction();
    history->redoAction();
    EXPECT_TRUE(redoButton.enabled());
    EXPECT_FALSE(undoButton.enabled());
}

TEST_F(HistoryTest, ThePanelsControlsGiveTheFocusBackToTheDialog) {
    changeCount(1);
    calls.clear();
    history->undoAction();
    EXPECT_THAT(calls, ElementsAre("showRecord", "makeKeyAndOrderFront"));
    calls.clear();
    history->redoAction();
    EXPECT_THAT(calls, ElementsAre("showRecord", "makeKeyAndOrderFront"));
    calls.clear();
    history->undoOutAction();
    EXPECT_THAT(calls, ElementsAre("showRecord"));
}

TEST_F(HistoryTest, WithoutThePanelStepsAreOnlyCounted) {
    startWithoutPanel();
    EXPECT_THAT(platform.logLines, Contains("failed to load ProtocolPanel xib"));
    viewCount = 3;
    changeCount(0);
    EXPECT_EQ(history->undoSteps(), 1);
    EXPECT_TRUE(undoButton.enabled());
    EXPECT_EQ(history->manager(), nullptr);
    history->undoOutAction();
    EXPECT_EQ(viewCount, 0);
    EXPECT_EQ(history->undoSteps(), 1);
    history->redoOutAction();
    EXPECT_EQ(viewCount, 0);
    EXPECT_EQ(history->undoSteps(), 2);
    history->setUndoableGroup("group");
    history->endUndoableGroup();
    EXPECT_EQ(history->showProtocolWindow(), 0);
    history->forceHideProtocolWindow();
    history->dumpUndo();
}

TEST_F(HistoryTest, AnExplicitGroupIsUndoneAsOneStep) {
    history->setUndoableGroup("compound");
    changeCount(1);
    changeCount(2);
    history->endUndoableGroup();
    EXPECT_THAT(history->manager()->undoNames(), SizeIs(1));
    history->undoOutAction();
    EXPECT_EQ(viewCount, 0);
}

TEST_F(HistoryTest, StepsCarryTheirLabels) {
    history->setUndoablePosition(undo_label::loadSwatch);
    history->setUndoablePosition(undo_label::loadSwatchFile);
    history->undoOutAction();
    EXPECT_THAT(history->manager()->undoNames(), ElementsAre("!Load Swatch!"));
    EXPECT_THAT(history->manager()->redoNames(), ElementsAre("!LoadSwatch!"));
}

TEST_F(HistoryTest, ShowingThePanelTwiceHidesItAgain) {
    EXPECT_EQ(panel().parent, &window);
    EXPECT_FALSE(panel().visible());
    EXPECT_EQ(history->showProtocolWindow(), 0);
    EXPECT_TRUE(panel().visible());
    EXPECT_EQ(panel().madeKey, 1);
    EXPECT_EQ(history->showProtocolWindow(), 0);
    EXPECT_FALSE(panel().visible());
    history->showProtocolWindow();
    history->forceHideProtocolWindow();
    EXPECT_FALSE(panel().visible());
    history->showProtocolWindow();
    panel().onClose();
    EXPECT_FALSE(panel().visible());
}

TEST_F(HistoryTest, DumpUndoAlwaysLeavesOneSpace) {
    changeCount(1);
    auto& view = platform.forms.at("ProtocolPanel")->outlet<HeadlessTextView>("undoView");
    view.setText("old");
    history->dumpUndo();
    EXPECT_EQ(view.text(), " ");
    EXPECT_TRUE(history->getUndoView().is(&view));
    auto& redo = platform.forms.at("ProtocolPanel")->outlet<HeadlessTextView>("redoView");
    EXPECT_TRUE(history->getRedoView().is(&redo));
    EXPECT_EQ(redo.text(), "");
    EXPECT_TRUE(history->getProtocolWindow().connected());
}

TEST_F(HistoryTest, ThePanelsFormSendsItsFourActions) {
    auto& form = *platform.forms.at("ProtocolPanel");
    viewCount = 4;
    changeCount(0);
    form.send("undoAction:");
    EXPECT_EQ(viewCount, 4);
    form.send("redoAction:");
    EXPECT_EQ(viewCount, 0);
    form.send("dumpUndo");
    form.send("showProtocolWindow");
    EXPECT_TRUE(panel().visible());
}

TEST_F(HistoryTest, ShuttingDownEndsTheModalLoopWithOne) {
    history->shutDownProtocol();
    EXPECT_THAT(platform.stops, ElementsAre(1));
}

TEST_F(HistoryTest, TwentyLevelsAfterTwentyEditsHoldLittleMoreThanTheRecord) {
    for (int i = 0; i < 20; ++i) {
        history->setUndoablePosition(undo_label::colorChanged);
        data->swatchList1[i * 200].SRed = i + 1;
        ++viewCount; // so that the page of the counts changes too
    }
    EXPECT_LE(history->manager()->storedBytes(), 4'500'000u);
}

TEST_F(HistoryTest, TwentyLevelsAfterTwentyChangesOfAWholeListHold35Megabytes) {
    for (int i = 0; i < 20; ++i) {
        history->setUndoablePosition(undo_label::sortAlpha);
        std::memset(data->swatchList1, i + 1, sizeof data->swatchList1);
    }
    EXPECT_LE(history->manager()->storedBytes(), 35'000'000u);
}

} // namespace
} // namespace chromalog
