// Panels that a person types into and confirms by Return: each goes away with everything it has opened.
#include "e2e/dialog_on_server.h"

#include "drive/locate.h"
#include "drive/prompts.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {
namespace {

constexpr int aWhile = 300;      ///< ms in which what comes late would be there
constexpr int patience = 25'000; ///< ms; a panel that no key has reached would wait for ever

/// What a person does in one window. There is no window manager: it is given the keyboard first.
struct Step {
    std::string title;
    std::string keys; ///< as xdotool is told
    bool question = false;
};

class TypedPanels : protected DialogOnServer, public testing::Test {
  protected:
    TypedPanels() : DialogOnServer("1") {}

    void SetUp() override {
        QProcess xdotool;
        xdotool.start("xdotool", {"version"});
        if (!server.runs() || !xdotool.waitForFinished()) GTEST_SKIP() << "needs Xvfb and xdotool";
        ASSERT_TRUE(open());
        ok.emplace(qobject_cast<QAbstractButton*>(desktop->widget("okButton")), &QAbstractButton::clicked);
        QObject::connect(&eyes, &QTimer::timeout, &eyes, [this] { watch(); });
        eyes.start(20);
        clock.start();
    }

    /// Each step waits for its window. Panels that run a loop of their own are opened after this.
    void act(std::vector<Step> all) { steps = std::move(all); }
    void waitForHands() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return steps.empty() && hands.state() == QProcess::NotRunning; },
                                    patience));
        EXPECT_EQ(hands.exitCode(), 0) << hands.readAllStandardError().toStdString();
        QTest::qWait(aWhile);
    }
    /// As xdotool is told; more can follow.
    static std::string text(const std::string& typed) { return "type --delay 5 '" + typed + "'\nxdotool "; }
    /// A path, and Return.
    std::string path(const std::string& name) const { return text(folder / name) + "key Return"; }

    /// The dialog alone is on the screen, and the first click and the next Return go to it.
    void expectNothingIsLeft() {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            EXPECT_TRUE(!widget->isVisible() || widget == &window()) << widget->metaObject()->className();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(ok->count(), 0) << "a Return was left over";
        const QWidget* button = drive::controlSending("complementOn:");
        ASSERT_NE(button, nullptr) << "a panel has the input";
        const auto mode = controler->colours().getHarmonyMode();
        const QPoint at = button->mapToGlobal(button->rect().center());
        act({{"Chromalog",
              "mousemove " + std::to_string(at.x()) + ' ' + std::to_string(at.y()) + " click 1 key Return"}});
        waitForHands();
        EXPECT_NE(controler->colours().getHarmonyMode(), mode) << "the click went elsewhere";
        EXPECT_EQ(ok->count(), 1) << "the Return went elsewhere";
        ok->clear();
    }

    int rows(int list) const {
        const SwatchPanels& panels = controler->panels();
        return (list == 1 ? panels.one : panels.two).view.getNumberOfColors();
    }

    QProcess hands; ///< a person's, from another process
    std::optional<QSignalSpy> ok;
    bool asked = false; ///< a panel asked something

  private:
    /// A panel's own question runs a loop of its own, so it is looked at from here.
    void watch() {
        QWidget* modal = QApplication::activeModalWidget();
        const bool question = qobject_cast<QMessageBox*>(modal);
        asked = asked || question;
        if (modal && clock.elapsed() > patience) {
            ADD_FAILURE() << modal->metaObject()->className() << " was not answered";
            modal->close();
        } else if (question) {
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "something lies over the question";
        }
        if (!steps.empty() && hands.state() == QProcess::NotRunning)
            begin(steps.front(), modal ? *modal : window(), question);
    }
    void begin(const Step& step, QWidget& target, bool question) {
        const bool meant = step.question ? question : !question && target.windowTitle() == step.title.c_str();
        if (!meant || !target.windowHandle() || !target.windowHandle()->isExposed()) return;
        const std::string script = "set -e\nxdotool windowfocus --sync " + std::to_string(target.winId()) +
                                   "\nxdotool " + step.keys + '\n';
        steps.erase(steps.begin());
        hands.start("sh", {"-c", QString::fromStdString(script)});
    }

    std::vector<Step> steps;
    QTimer eyes;
    QElapsedTimer clock;
};

TEST_F(TypedPanels, ASwatchFileIsOpened) {
    perform("press loadSwatch1:");
    act({{"Load into list 1", path("swatches.aco")}});
    waitForHands();
    EXPECT_EQ(rows(1), 40);
    expectNothingIsLeft();
}

TEST_F(TypedPanels, AFileThatDoesNotExistIsAskedForAgain) {
    perform("press loadSwatch2:");
    act({{"Load into list 2", path("missing.aco")},
         {"", "key Return", true},
         {"Load into list 2", "key ctrl+a " + path("swatches.aco")}});
    waitForHands();
    EXPECT_TRUE(asked);
    EXPECT_EQ(rows(2), 40);
    expectNothingIsLeft();
}

TEST_F(TypedPanels, ABookIsOpened) {
    std::filesystem::copy_file(folder / "swatches.aco", folder / "book.acb"); // its name is what counts
    perform("press loadASE:");
    act({{"Load color book into list 1", path("book.acb")}});
    waitForHands();
    EXPECT_EQ(qobject_cast<QLabel*>(desktop->widget("swatch1Name"))->text(), "book.acb");
    expectNothingIsLeft();
}

TEST_F(TypedPanels, AListIsSavedAndReplaced) {
    for (const bool replaces : {false, true}) {
        perform("press saveSwatch1:");
        std::vector<Step> steps{{"Save list 1", "key ctrl+a " + path("saved.aco")}};
        if (replaces) steps.push_back({"", "key alt+y", true});
        act(steps);
        waitForHands();
        EXPECT_EQ(asked, replaces);
        EXPECT_TRUE(std::filesystem::exists(folder / "saved.aco"));
        expectNothingIsLeft();
    }
}

TEST_F(TypedPanels, MarginsAreSet) {
    perform("press setupPrintPage:");
    act({{"Page Setup", "key Tab Tab key ctrl+a " + text("54") + "key Return"}});
    waitForHands();
    EXPECT_EQ(desktop->sharedPrintInfo().left, 54);
    expectNothingIsLeft();
}

/// The print options, then the print dialog, which runs a loop of its own.
TEST_F(TypedPanels, AListIsPrintedToAFileAndReplaced) {
    perform("press loadSwatch1:");
    drive::answer(*desktop->panels().current(), QString::fromStdString(folder / "swatches.aco"));
    for (const bool replaces : {false, true}) {
        std::vector<Step> steps{{"Print Swatches", "key Return"},
                                {"Print", "key alt+f key ctrl+a " + path("printed.pdf")}};
        if (replaces) steps.push_back({"", "key alt+y", true});
        act(steps);
        perform("press printFirstSwatch:");
        waitForHands();
        EXPECT_EQ(asked, replaces);
        EXPECT_TRUE(std::filesystem::exists(folder / "printed.pdf"));
        std::filesystem::resize_file(folder / "printed.pdf", 0);
        expectNothingIsLeft();
    }
}

} // namespace
} // namespace chromalog::test
