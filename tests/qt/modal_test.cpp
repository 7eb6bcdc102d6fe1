// Modal loops, alerts, panels and timers.
#include "qt/desktop_fixture.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

class ModalTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    Outlet<Window> window, panelWindow;
    std::unique_ptr<Form> form, panel;

    void SetUp() override {
        writeDialog("dialog", "");
        form = load("dialog", window);
    }

    std::unique_ptr<Form> load(const char* name, Outlet<Window>& outlet) {
        FormOwner owner;
        owner.outlets = {{"window", &outlet}};
        return desktop.loadForm(name, owner);
    }

    static void later(std::function<void()> run) { QTimer::singleShot(0, std::move(run)); }

    DialogWindow* dialog() { return qobject_cast<DialogWindow*>(desktop.widget("window")); }
};

TEST_F(ModalTest, AStopGivesItsCodeToTheInnermostLoop) {
    panel = load("dialog", panelWindow);
    std::vector<std::int64_t> codes;
    later([&] {
        later([&] {
            EXPECT_EQ(desktop.modalLoops().depth(), 2U);
            desktop.stopModal(5);
        });
        codes.push_back(desktop.runModal(*panelWindow));
        desktop.stopModal(7);
    });
    codes.push_back(desktop.runModal(*window));
    EXPECT_THAT(codes, ElementsAre(5, 7));
    EXPECT_EQ(desktop.modalLoops().depth(), 0U);
}

TEST_F(ModalTest, TwoStopsInOneCallEndTwoLoops) {
    panel = load("dialog", panelWindow);
    std::vector<std::int64_t> codes;
    later([&] {
        later([&] {
            desktop.stopModal(1);
            desktop.stopModal(2);
        });
        codes.push_back(desktop.runModal(*panelWindow));
    });
    codes.push_back(desktop.runModal(*window));
    EXPECT_THAT(codes, ElementsAre(1, 2));
}

TEST_F(ModalTest, AWindowThatRunsInsideAnotherStaysAboveItAndGoesAlone) {
    panel = load("dialog", panelWindow);
    later([&] {
        later([&] {
            auto* inner = qobject_cast<DialogWindow*>(QApplication::activeModalWidget());
            ASSERT_TRUE(inner);
            EXPECT_EQ(inner->parentWidget(), dialog());
            EXPECT_TRUE(inner->isWindow());
            desktop.stopModal(1);
        });
        desktop.runModal(*panelWindow);
        panel.reset();
        EXPECT_TRUE(window->visible());
        desktop.stopModal(0);
    });
    desktop.runModal(*window);
}

TEST_F(ModalTest, TheWindowBlocksItsSurroundingsWhileItRuns) {
    later([&] {
        EXPECT_TRUE(window->visible());
        EXPECT_EQ(QApplication::activeModalWidget(), dialog());
        desktop.stopModal(0);
    });
    desktop.runModal(*window);
    window->orderOut();
    EXPECT_FALSE(window->visible());
}

TEST_F(ModalTest, RunningNoWindowReturnsAtOnce) {
    Outlet<Window> none;
    EXPECT_EQ(desktop.runModal(*none), 0);
    desktop.stopModal(3); // nothing runs
}

TEST_F(ModalTest, TheCloseBoxIsOneClose) {
    int closes = 0;
    window->whenClosed([&] {
        ++closes;
        window->orderOut();
        desktop.stopModal(0);
    });
    later([&] { dialog()->close(); });
    desktop.runModal(*window);
    EXPECT_EQ(closes, 1);
}

TEST_F(ModalTest, ReturnPressesTheFocusedButtonWhereNoneIsTheDefault) {
    for (const bool hasDefault : {false, true}) {
        DialogWindow panel(nullptr);
        QPushButton first(&panel), second(&panel);
        int presses[2] = {};
        QObject::connect(&first, &QPushButton::clicked, [&] { ++presses[0]; });
        QObject::connect(&second, &QPushButton::clicked, [&] { ++presses[1]; });
        for (QPushButton* button : {&first, &second})
            button->setAutoDefault(false);
        first.setDefault(hasDefault);
        panel.show();
        second.setFocus();
        QTest::keyClick(&second, Qt::Key_Return);
        QTest::keyClick(&second, Qt::Key_Enter);
        EXPECT_EQ(presses[0], hasDefault ? 2 : 0);
        EXPECT_EQ(presses[1], hasDefault ? 0 : 2);
    }
}

TEST_F(ModalTest, AFloatingPanelWorksWhileTheDialogIsModal) {
    panel = load("dialog", panelWindow);
    panelWindow->attachAsChildOf(*window);
    later([&] {
        EXPECT_FALSE(panelWindow->visible());
        panelWindow->makeKeyAndOrderFront();
        EXPECT_TRUE(panelWindow->visible());
        const auto windows = desktop.forms();
        EXPECT_EQ(windows[1]->window()->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
        EXPECT_TRUE(windows[0]->window()->isAncestorOf(windows[1]->window()) ||
                    windows[1]->window()->parentWidget() == windows[0]->window());
        // blocked windows get no clicks
        QPushButton button(windows[1]->window());
        int clicks = 0;
        QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
        button.show();
        QTest::mouseClick(windows[1]->window()->windowHandle(), Qt::LeftButton, {},
                          button.geometry().center());
        EXPECT_EQ(clicks, 1);
        desktop.stopModal(0);
    });
    desktop.runModal(*window);
    form.reset(); // the dialog goes first and takes the panel's window with it
    EXPECT_FALSE(panelWindow->visible());
    panel.reset();
}

TEST_F(ModalTest, AnAlertShowsItsTextsAsTheyStand) {
    later([&] {
        QMessageBox* alert = desktop.openAlert();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->windowTitle(), "Chromalog");
        EXPECT_FALSE(alert->windowIcon().pixmap(48, 48).isNull());
        EXPECT_EQ(alert->text(), "Thist color exists !");
        EXPECT_EQ(alert->informativeText(), "100%s <b>%n</b>");
        EXPECT_EQ(alert->textFormat(), Qt::PlainText);
        ASSERT_EQ(alert->buttons().size(), 1);
        EXPECT_EQ(alert->buttons().front()->text(), "ok");
        alert->buttons().front()->click();
    });
    desktop.runAlert({"Thist color exists !", "100%s <b>%n</b>", "ok"});
    EXPECT_EQ(desktop.openAlert(), nullptr);
    ASSERT_EQ(desktop.alerts().size(), 1U);
    EXPECT_EQ(desktop.alerts().front().message, "Thist color exists !");
}

TEST_F(ModalTest, AnAlertWithoutAWindowTakesNothingForMarkup) {
    form.reset();
    later([&] {
        for (const QLabel* label : desktop.openAlert()->findChildren<QLabel*>())
            if (!label->text().isEmpty()) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
            }
        EXPECT_EQ(desktop.openAlert()->informativeText(), "<i>i</i>");
        desktop.openAlert()->reject();
    });
    desktop.runAlert({"<b>b</b>", "<i>i</i>", "ok"});
}

TEST_F(ModalTest, EscapeDismissesAnAlert) {
    later([&] { QTest::keyClick(desktop.openAlert(), Qt::Key_Escape); });
    desktop.runAlert({"m", "", "ok"});
    EXPECT_EQ(desktop.openAlert(), nullptr);
}

TEST_F(ModalTest, TheWindowThatWasActiveCarriesTheAlertAndGetsTheKeyboardBack) {
    panel = load("dialog", panelWindow);
    panelWindow->attachAsChildOf(*window);
    DialogWindow* asking = desktop.forms()[1]->window();
    later([&] {
        panelWindow->makeKeyAndOrderFront();
        EXPECT_TRUE(QTest::qWaitForWindowActive(asking));
        later([&] {
            EXPECT_EQ(desktop.openAlert()->parentWidget(), asking);
            EXPECT_TRUE(QTest::qWaitForWindowActive(desktop.openAlert()));
            QTest::keyClick(desktop.openAlert(), Qt::Key_Escape);
        });
        desktop.runAlert({"m", "", "ok"});
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == asking; }));
        desktop.stopModal(0);
    });
    desktop.runModal(*window);
}

class PanelTest : public ModalTest {
  protected:
    std::vector<std::optional<std::string>> answers;
    PanelAnswer answer = [this](std::optional<std::string> path) { answers.push_back(std::move(path)); };

    void write(const std::string& name) {
        QFile file(QString::fromStdString(folder / name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old");
    }
    void choose(const std::string& path) {
        desktop.panels()
            .current()
            ->findChild<QLineEdit*>("fileNameEdit")
            ->setText(QString::fromStdString(path));
        static_cast<QDialog*>(desktop.panels().current())->accept();
    }
};

TEST_F(PanelTest, AnOpenPanelIsASheetThatAnswersLater) {
    write("one.aco");
    window->makeKeyAndOrderFront();
    desktop.beginOpenPanel({{"aco", "ACO"}}, *window, answer);
    EXPECT_TRUE(answers.empty());
    QFileDialog* sheet = desktop.panels().current();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->parentWidget(), dialog());
    EXPECT_EQ(sheet->fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(sheet->nameFilters(), QStringList{"Swatch files (*.aco *.ACO)"});
    choose(folder / "one.aco");
    EXPECT_THAT(answers, ElementsAre(folder / "one.aco"));
    EXPECT_EQ(desktop.panels().current(), nullptr);
    EXPECT_EQ(desktop.panels().records().front().parent, "window");
}

TEST_F(PanelTest, ACancelledPanelAnswersWithNothing) {
    desktop.beginOpenPanel({{"aco"}}, *window, answer);
    desktop.panels().current()->reject();
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
}

TEST_F(PanelTest, APanelCanBeBegunFromAnAnswer) {
    desktop.beginOpenPanel({{"aco"}}, *window,
                           [&](auto) { desktop.beginOpenPanel({{"aco"}}, *window, answer); });
    desktop.panels().current()->reject();
    ASSERT_NE(desktop.panels().current(), nullptr);
    desktop.panels().current()->reject();
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(PanelTest, ASavePanelAsksAboutTheFileThatIsWritten) {
    write("colours.aco");
    desktop.beginSavePanel({"", "aco"}, *window, answer);
    QString asked;
    later([&] {
        auto* question = desktop.panels().current()->findChild<QMessageBox*>();
        ASSERT_NE(question, nullptr);
        asked = question->text();
        question->reject();
    });
    choose(folder / "colours.txt");
    EXPECT_THAT(asked.toStdString(), testing::HasSubstr("colours.aco"));
    EXPECT_TRUE(answers.empty()); // the panel stays
    choose(folder / "new.txt");
    EXPECT_THAT(answers, ElementsAre(folder / "new.aco"));
}

TEST_F(PanelTest, NamesGetTheExtension) {
    EXPECT_EQ(withExtension("/a.b/colours", "aco"), "/a.b/colours.aco");
    EXPECT_EQ(withExtension("/a/colours.txt", "aco"), "/a/colours.aco");
    EXPECT_EQ(withExtension("colours.tar.gz", "aco"), "colours.tar.aco");
    EXPECT_EQ(withExtension("/a/.hidden", "aco"), "/a/.hidden.aco");
    EXPECT_EQ(withExtension("/a/", "aco"), "/a/");
}

TEST_F(PanelTest, ThePanelGoesWithItsWindowUnanswered) {
    desktop.beginOpenPanel({{"aco"}}, *window, answer);
    form.reset();
    EXPECT_EQ(desktop.panels().current(), nullptr);
    EXPECT_TRUE(answers.empty());
}

TEST_F(PanelTest, PanelsLeaveNoFilesBehind) {
    const int before = folder.entries();
    desktop.beginOpenPanel({{"aco"}}, *window, answer);
    desktop.panels().current()->reject();
    form.reset();
    EXPECT_EQ(folder.entries(), before); // the toolkit's settings would lie here too
}

TEST_F(PanelTest, AnAnsweredPanelGoesAtOnce) {
    desktop.beginOpenPanel({{"aco"}}, *window, answer);
    const QPointer<QFileDialog> sheet = desktop.panels().current();
    sheet->reject();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet; }));
    EXPECT_TRUE(dialog()->findChildren<QFileDialog*>().isEmpty());
}

TEST_F(PanelTest, APanelOverAPanelOfTheDialogLeavesNoFilesBehind) {
    const int before = folder.entries();
    for (const bool answered : {true, false}) {
        panel = load("dialog", panelWindow);
        panelWindow->attachAsChildOf(*window);
        desktop.beginOpenPanel({{"aco"}}, *panelWindow, answer);
        if (answered) desktop.panels().current()->reject();
        form.reset(); // takes the panel's window and the sheet over it with it
        EXPECT_EQ(desktop.panels().current(), nullptr);
        EXPECT_EQ(folder.entries(), before) << answered;
        panel.reset();
        form = load("dialog", window);
    }
}

TEST_F(ModalTest, ATimerFiresOnceAndCanBeMoved) {
    std::vector<std::string> fired;
    const auto early = desktop.startTimer(0.02, [&] { fired.push_back("early"); });
    const auto moved = desktop.startTimer(0.01, [&] { fired.push_back("moved"); });
    moved->fireIn(0.06);
    QTest::qWait(40);
    EXPECT_THAT(fired, ElementsAre("early"));
    QTest::qWait(60);
    EXPECT_THAT(fired, ElementsAre("early", "moved"));
}

TEST_F(ModalTest, ADestroyedTimerDoesNotFireAndOneMayDestroyItself) {
    bool fired = false;
    desktop.startTimer(0.0, [&] { fired = true; }).reset();
    std::unique_ptr<Timer> own;
    int count = 0;
    own = desktop.startTimer(0.0, [&] {
        own.reset();
        ++count;
    });
    QTest::qWait(20);
    EXPECT_FALSE(fired);
    EXPECT_EQ(count, 1);
}

TEST_F(ModalTest, TimersEndWithTheDesktop) {
    bool fired = false;
    std::unique_ptr<Timer> timer;
    {
        QtDesktop shortLived{settings()};
        timer = shortLived.startTimer(0.0, [&] { fired = true; });
    }
    QTest::qWait(20);
    EXPECT_FALSE(fired);
    timer->fireIn(0);
}

} // namespace
