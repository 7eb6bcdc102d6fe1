// The dialog as a person gets it: the controllers on the compiled interface files.
#include "support/swatch_files.h" // before the toolkit, which takes the word slots

#include "qt/dialog_fixture.h"

#include "drive/locate.h"
#include "drive/prompts.h"
#include "qt/controls/color_well_widget.h"
#include "qt/controls/level_indicator_widget.h"
#include "qt/controls/tinted_button.h"
#include "qt/convert.h"
#include "qt/drags.h"

#include <QAccessible>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

#include <fstream>
#include <map>
#include <memory>
#include <set>

using namespace chromalog;
using namespace chromalog::test;
using testing::Each;
using testing::Not;
using testing::StartsWith;

namespace {

class DialogTest : public WholeDialogTest {
  protected:
    void SetUp() override {
        picker.pickParms.colorComponents[0] = 0x1200;
        picker.pickParms.colorComponents[1] = 0x3400;
        picker.pickParms.colorComponents[2] = 0xFF00;
        makeDialog();
    }
    template <typename T> T* find(const char* outlet) { return qobject_cast<T*>(desktop.widget(outlet)); }
    std::vector<std::string> log() const {
        return {desktop.logRing().lines().begin(), desktop.logRing().lines().end()};
    }
};

TEST_F(DialogTest, TheFormsAndTheControllersKnowTheSameNames) {
    for (const char* form : {"chromalogWindow: ", "ProtocolPanel: ", "SwatchPrintOptions: "})
        EXPECT_THAT(log(), Each(Not(StartsWith(form))));
}

TEST_F(DialogTest, TheHostsColourIsTheSecondOne) {
    EXPECT_EQ(find<QLineEdit>("secondR")->text(), "18");
    EXPECT_EQ(find<QLineEdit>("secondG")->text(), "52");
    EXPECT_EQ(find<QLineEdit>("secondB")->text(), "255");
    EXPECT_EQ(find<QLineEdit>("firstR")->text(), "229"); // the default
}

TEST_F(DialogTest, WheelAndGradientAreSquareAndTheGradientDividesIntoSixteen) {
    const auto* wheel = find<ViewWidget>("chromaView");
    const auto* gradient = find<ViewWidget>("myDegrade");
    EXPECT_EQ(wheel->width(), wheel->height());
    EXPECT_EQ(gradient->width(), gradient->height());
    EXPECT_EQ(gradient->width() % 16, 0);
    EXPECT_EQ(wheel->view()->bounds().w, wheel->width());
}

/// The places of what follows the window alone.
std::map<std::string, QRect> placesOf(const QWidget& window) {
    std::map<std::string, QRect> places;
    for (const char* name :
         {"chromaView",      "lumiView",       "myDegrade",       "myToneView", "swatch1Scroller",
          "swatch2scroller", "origFirstColor", "offeredColor",    "okButton",   "firstR",
          "secondK",         "complementOn",   "complementColor", "nearColor",  "nearR",
          "baterieSwatch",   "findColor1",     "seachStep2",      "statusLine", "undoButton"}) {
        const auto* widget = window.findChild<QWidget*>(name);
        places[name] = {widget->mapTo(&window, QPoint()), widget->size()};
    }
    return places;
}

constexpr QSize kSizes[] = {{960, 540}, {1024, 600}, {1280, 760}, {2560, 1440}};

/// The places once everything that waits for its turn is laid out.
std::map<std::string, QRect> settledPlacesOf(QWidget& window) {
    for (int floor = 0; floor < 6; ++floor) { // a request climbs one container a round
        QApplication::sendPostedEvents();
        window.grab(QRect(0, 0, 1, 1));
    }
    return placesOf(window);
}

/// What the next test relies on: labels that followed their texts would be seen to move something.
TEST_F(DialogTest, AWidgetThatGrowsMovesSomething) {
    QWidget& window = *desktop.widget("chromalogWindow");
    window.show();
    for (const QSize size : kSizes) {
        window.resize(size);
        for (const char* name : {"swatch1Name", "found2", "statusLine", "nearName", "nearG", "colorName",
                                 "undoButton", "complementOn", "toggleSecondColor"}) {
            auto* widget = find<QWidget>(name);
            const auto before = settledPlacesOf(window);
            const QSize least = widget->minimumSize();
            widget->setMinimumHeight(widget->height() + 3);
            EXPECT_TRUE(settledPlacesOf(window) != before) << name << ", " << size.width() << " pixels wide";
            widget->setMinimumSize(least);
            EXPECT_TRUE(settledPlacesOf(window) == before) << name;
        }
    }
}

TEST_F(DialogTest, WhatItHoldsAndSaysMovesNothing) {
    QWidget& window = *desktop.widget("chromalogWindow");
    window.show();
    for (const QSize size : kSizes) {
        window.resize(size);
        const auto places = settledPlacesOf(window);
        const auto expectSame = [&](const char* why) {
            EXPECT_EQ(settledPlacesOf(window), places) << why << ", " << size.width() << " pixels wide";
        };
        for (SwatchPanel* panel : controler->panels().both()) {
            panel->view.setNumberOfColors(5000);
            panel->nameField->setText("a list's name that is longer than any place for it \u4e00.aco");
            panel->found->setText("5000 found");
            panel->redisplay();
        }
        expectSame("5,000 swatches");
        desktop.statusLine().say(StatusLine::About::files, std::string(500, 'w') + "\u4e00");
        expectSame("a long status");
        find<QLabel>("nearName")->setText(QString(300, 'w'));
        find<QLineEdit>("colorName")->setText(QString(300, 'w'));
        controler->toggleSecondColor();
        expectSame("long names, the other title");
        for (const char* button : {"complementOn", "quadriOn", "sortHue1"})
            find<QAbstractButton>(button)->click();
        controler->colours().updateSecondColor();
        controler->history().describeSteps(std::string(300, 'w'));
        expectSame("a mode, a step with a long name, an asked readout");
        for (SwatchPanel* panel : controler->panels().both()) {
            panel->view.setNumberOfColors(0);
            panel->nameField->setText("");
            panel->redisplay();
        }
        desktop.statusLine().takeBack(StatusLine::About::files);
        controler->toggleSecondColor();
        expectSame("empty lists, a stale readout");
    }
}

TEST_F(DialogTest, TheSwitchAndTheOfferedColourWork) {
    desktop.widget("chromalogWindow")->show();
    auto* choice = find<QPushButton>("toggleSecondColor");
    EXPECT_FALSE(choice->isChecked());
    for (const int x : {5, choice->width() / 2, choice->width() - 5}) { // any press changes it
        const bool before = choice->isChecked();
        QTest::mouseClick(choice, Qt::LeftButton, {}, QPoint(x, 10));
        EXPECT_EQ(choice->isChecked(), !before);
        EXPECT_EQ(record->useSecondColor, before ? 0 : 1);
    }
    auto* offered = find<ColorWellWidget>("offeredColor");
    for (int way = 0; way < 3; ++way) {
        controler->colours().changeSecondColor(Colour::rgb(0.5, 0.25, 0.75));
        if (way == 0) QTest::mouseClick(offered, Qt::LeftButton, {}, QPoint(9, 9));
        if (way == 1) QTest::keyClick(offered, Qt::Key_Space);
        if (way == 2)
            QAccessible::queryAccessibleInterface(offered)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
        EXPECT_EQ(find<QLineEdit>("secondB")->text(), "255") << way;
        EXPECT_TRUE(find<ColorWellWidget>("origSecondColor")->color().sameRgb(offered->color())) << way;
    }
    QTest::mouseClick(find<QWidget>("origFirstColor"), Qt::LeftButton, {}, QPoint(9, 9)); // sends nothing
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(find<QWidget>("origFirstColor"))
                     ->actionInterface()
                     ->actionNames()
                     .contains(QAccessibleActionInterface::pressAction()));
}

TEST_F(DialogTest, TheGradientShowsFirst) {
    EXPECT_TRUE(find<QWidget>("myToneView")->isHidden());
    EXPECT_TRUE(find<QWidget>("toneSlider")->isHidden());
    EXPECT_TRUE(find<QWidget>("absOrRel")->isHidden());
    EXPECT_FALSE(find<QWidget>("myDegrade")->isHidden());
    EXPECT_EQ(find<QSlider>("toneSlider")->value(), 50);
}

/// The others show what was computed from the second colour: a dropped colour would belong to nothing.
TEST_F(DialogTest, TheWellsOfTheWorkingColoursAloneTakeDrops) {
    const ColourMime mime({true, false, Colour::rgb(0.2, 0.4, 0.6), std::nullopt});
    std::vector<std::string> taking;
    for (auto* well : desktop.widget("chromalogWindow")->findChildren<ColorWellWidget*>()) {
        const Colour before = well->color();
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(well, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(well, &drop);
        EXPECT_EQ(enter.isAccepted(), drop.isAccepted()) << well->objectName().toStdString();
        if (enter.isAccepted())
            taking.push_back(well->objectName().toStdString());
        else
            EXPECT_TRUE(well->color().sameRgb(before)) << well->objectName().toStdString();
    }
    EXPECT_THAT(taking, testing::UnorderedElementsAre("origFirstColor", "origSecondColor"));
}

TEST_F(DialogTest, EveryWellGivesItsColourByDrag) {
    int wells = 0;
    desktop.widget("chromalogWindow")->show();
    for (auto* well : desktop.widget("chromalogWindow")->findChildren<ColorWellWidget*>()) {
        QTest::mousePress(well, Qt::LeftButton, {}, {9, 9});
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 9), well->mapToGlobal(QPointF(30, 9)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(well, &move);
        ASSERT_TRUE(desktop.drags().last);
        EXPECT_EQ(desktop.drags().last->request.source, well) << well->objectName().toStdString();
        EXPECT_TRUE(desktop.drags().last->request.pasteboard.colour->sameRgb(well->color()));
        ++wells;
    }
    EXPECT_EQ(wells, 16);
}

TEST_F(DialogTest, TypingMovesTheOkButtonsColour) {
    auto* field = find<QLineEdit>("firstR");
    field->selectAll();
    QTest::keyClicks(field, "0");
    const auto* ok = find<TintedButton>("okButton");
    EXPECT_EQ(ok->text(), "Use 1st color");
    ASSERT_TRUE(ok->tint());
    EXPECT_EQ(ok->tint()->red(), 0);
}

TEST_F(DialogTest, EscapeIsCancelOnce) {
    QTimer::singleShot(0, [&] { QTest::keyClick(desktop.widget("chromalogWindow"), Qt::Key_Escape); });
    EXPECT_EQ(controler->showWindow(), 0);
    EXPECT_EQ(picker.pickParms.colorComponents[0], 0x1200);
    EXPECT_FALSE(desktop.widget("chromalogWindow")->isVisible());
}

TEST_F(DialogTest, ReturnIsOk) {
    QTimer::singleShot(
        0, [&] { QTest::keyClick(desktop.widget("chromalogWindow")->focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(controler->showWindow(), 0);
    EXPECT_EQ(picker.pickParms.colorComponents[0], 58981); // 0.9, the first colour's default
}

TEST_F(DialogTest, ThePersonStartsInTheFirstField) {
    QTimer::singleShot(0, [&] {
        EXPECT_EQ(desktop.widget("chromalogWindow")->focusWidget(), find<QWidget>("firstR"));
        controler->cancelPressed();
    });
    controler->showWindow();
}

TEST_F(DialogTest, NoFieldTakesADrop) {
    for (const QLineEdit* field : desktop.widget("chromalogWindow")->findChildren<QLineEdit*>())
        EXPECT_FALSE(field->acceptDrops()) << field->objectName().toStdString();
}

TEST_F(DialogTest, SearchFieldsHaveAClearButtonOfTheirOwn) {
    for (const char* name : {"findColor1", "findColor2"}) {
        const auto* field = find<QLineEdit>(name);
        EXPECT_FALSE(field->isClearButtonEnabled()) << "it would look through the icon themes";
        EXPECT_EQ(field->actions().size(), 1) << name;
    }
}

/// Tells who is painted, and when.
class Paints : public QObject {
  public:
    std::map<QObject*, int> times;

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint && receiver->isWidgetType()) ++times[receiver];
        return false;
    }
};

/// What is painted at once comes on the screen by itself, beside what the others still show.
TEST_F(DialogTest, AnEventOfTheStripIsOneFrame) {
    QWidget* window = desktop.widget("chromalogWindow");
    FileBuilder file;
    file.header(1, 2).colour(0, 0x0B00, 0x2000, 0xA000).colour(0, 0, 0, 0); // one on the strip's way
    const std::string path = folder / "one.aco";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(file.bytes.data()), std::streamsize(file.bytes.size()));
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    qobject_cast<QAbstractButton*>(drive::controlSending("loadSwatch1:"))->click();
    drive::answer(*desktop.panels().current(), QString::fromStdString(path));
    QTest::qWait(0);

    Paints paints;
    qApp->installEventFilter(&paints);
    auto* strip = find<ViewWidget>("lumiView");
    auto* level = find<LevelIndicatorWidget>("baterieSwatch");
    std::set<int> levels;
    const auto send = [&](QEvent::Type type, int y) {
        const QPointF at(strip->width() / 2.0, y);
        QMouseEvent event(type, at, strip->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(strip, &event);
        EXPECT_TRUE(paints.times.empty()) << "painted inside the event, at " << y;
        paints.times.clear();
        QTest::qWait(0);
        for (const auto& [widget, times] : paints.times)
            EXPECT_EQ(times, 1) << fromQt(widget->objectName()) << " at " << y;
        levels.insert(static_cast<QProgressBar*>(level)->value());
        paints.times.clear();
    };
    send(QEvent::MouseButtonPress, 1);
    for (int y = 1; y < strip->height(); ++y)
        send(QEvent::MouseMove, y);
    EXPECT_GT(levels.size(), 10u);
}

/// However many moves arrive before the screen is painted, what is painted is the last one's, once.
TEST_F(DialogTest, ADragWithFullListsNeverShowsAnOlderFrame) {
    QWidget* window = desktop.widget("chromalogWindow");
    for (SwatchPanel* panel : controler->panels().both()) {
        for (int i = 0; i < kListCapacity; ++i)
            panel->records[static_cast<std::size_t>(i)].SRed = 13 * i;
        panel->view.setNumberOfColors(kListCapacity);
        panel->storedCount = kListCapacity;
        panel->view.setScrollSize();
        panel->redisplay();
    }
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QTest::qWait(0);

    Paints paints;
    qApp->installEventFilter(&paints);
    auto* second = find<QWidget>("origSecondColor");
    const auto send = [&](ViewWidget* view, QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view, &event);
    };
    const auto burst = [&](ViewWidget* view, QPointF from, QPointF step) {
        for (int i = 0; i < 3; ++i)
            send(view, QEvent::MouseMove, from + i * step);
        EXPECT_TRUE(paints.times.empty()) << "painted while moves are left";
        QTest::qWait(0);
        EXPECT_EQ(paints.times[second], 1);
        for (const auto& [widget, times] : paints.times)
            EXPECT_EQ(times, 1) << fromQt(widget->objectName());
        const QPoint middle(second->width() / 2, second->height() / 2);
        EXPECT_EQ(second->grab().toImage().pixelColor(middle).rgb(),
                  toQt(controler->colours().getSecondColor()).rgb());
        paints.times.clear();
    };
    auto* strip = find<ViewWidget>("lumiView");
    send(strip, QEvent::MouseButtonPress, {8, 2});
    QTest::qWait(0);
    paints.times.clear();
    for (int y = 3; y < strip->height() - 20; y += 20)
        burst(strip, QPointF(8, y), {0, 6});
    send(strip, QEvent::MouseButtonRelease, {8, strip->height() - 20.0});
    auto* wheel = find<ViewWidget>("chromaView");
    const double side = wheel->width();
    send(wheel, QEvent::MouseButtonPress, {side / 4, side / 2});
    QTest::qWait(0);
    paints.times.clear();
    for (double x = side / 4; x < side * 3 / 4; x += 20)
        burst(wheel, QPointF(x, side / 2), {5, 0});
}

TEST_F(DialogTest, EveryButtonTellsWhatItDoes) {
    for (const QPushButton* button : desktop.widget("chromalogWindow")->findChildren<QPushButton*>())
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
}

} // namespace
