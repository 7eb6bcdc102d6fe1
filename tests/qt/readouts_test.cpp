// What the dialog shows of its own state, as a person and assistive technology meet it.
#include "support/swatch_files.h" // before the toolkit, which takes the word slots

#include "qt/dialog_fixture.h"

#include "print/list_printing.h"
#include "qt/controls/color_well_widget.h"
#include "qt/controls/fit_button.h"
#include "qt/controls/list_scroll_area.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTimer>
#include <QToolTip>

#include <memory>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class ShownReadouts : public WholeDialogTest {
  protected:
    void SetUp() override {
        makeDialog();
        window().show();
        window().grab(QRect(0, 0, 1, 1));
    }
    QWidget& window() { return *desktop.widget("chromalogWindow"); }
    template <typename T> T* find(const char* outlet) { return qobject_cast<T*>(desktop.widget(outlet)); }
    void fillList1(int count) {
        for (int i = 0; i < count; ++i)
            record->swatchList1[i].SRed = 500 * i;
        controler->panels().one.view.setNumberOfColors(static_cast<std::int16_t>(count));
        controler->panels().one.view.setScrollSize();
        controler->panels().one.redisplay();
    }
    QImage pictureOf(QWidget& widget) {
        return window().grab(QRect(widget.mapTo(&window(), QPoint()), widget.size())).toImage();
    }
    QAccessible::State stateOf(const char* outlet) {
        return QAccessible::queryAccessibleInterface(desktop.widget(outlet))->state();
    }
};

TEST_F(ShownReadouts, AStaleNearestSwatchIsPaintedFadedAndWorks) {
    fillList1(3);
    controler->colours().changeSecondColor(Colour::rgb(0.9, 0.1, 0.1));
    auto& name = *desktop.widget("nearR");
    auto& well = *find<ColorWellWidget>("nearColor");
    const QImage fresh = pictureOf(name), freshWell = pictureOf(well);
    fillList1(2);
    EXPECT_TRUE(name.isEnabled() && well.isEnabled());
    EXPECT_TRUE(name.property("dimmed").toBool());
    EXPECT_NE(pictureOf(name), fresh);
    EXPECT_NE(pictureOf(well), freshWell);
    fillList1(3);
    EXPECT_FALSE(name.property("dimmed").toBool());
    EXPECT_EQ(pictureOf(name), fresh) << "the list is again as it was asked";
    fillList1(2);
    QTest::mouseClick(&name, Qt::LeftButton); // a number takes no presses of its own
    EXPECT_FALSE(name.property("dimmed").toBool());
    fillList1(3);
    QTest::mouseClick(&well, Qt::LeftButton, {}, {9, 9});
    EXPECT_FALSE(name.property("dimmed").toBool());
    fillList1(2);
    QTest::mousePress(&name, Qt::LeftButton);
    QTest::mouseRelease(&name, Qt::LeftButton, {}, QPoint(5, -40));
    EXPECT_TRUE(name.property("dimmed").toBool()) << "released elsewhere";
}

TEST_F(ShownReadouts, AnEmptyListSaysSoInPlaceOfAName) {
    auto* none = find<QLabel>("nearNone");
    EXPECT_TRUE(none->isVisible());
    EXPECT_EQ(none->text(), "no swatches");
    EXPECT_EQ(none->geometry(), desktop.widget("nearName")->geometry());
    fillList1(1);
    EXPECT_FALSE(none->isVisible());
}

TEST_F(ShownReadouts, AModesButtonIsPressedForEveryone) {
    for (const char* button : {"triComplementOn", "triComplementOn", "complementOn"}) {
        QTest::mouseClick(desktop.widget(button), Qt::LeftButton);
        EXPECT_TRUE(find<FitButton>(button)->isChecked()) << button;
        EXPECT_TRUE(stateOf(button).checked) << button;
    }
    EXPECT_FALSE(stateOf("triComplementOn").checked);
    EXPECT_EQ(controler->colours().getHarmonyMode(), 1);
    QTest::mouseClick(desktop.widget("complementOn"), Qt::LeftButton);
    EXPECT_FALSE(stateOf("complementOn").checked);
    EXPECT_EQ(controler->colours().getHarmonyMode(), 0);
}

TEST_F(ShownReadouts, HarmoniesAreNamedInTheFieldsTermsToo) {
    const std::map<const char*, std::pair<const char*, const char*>> terms{
        {"complementOn", {"Complement", "Complement: "}},
        {"harmoniquesOn", {"Harmoniques", "Triad: "}},
        {"triComplementOn", {"Tri-complement", "Analogous ±55°: "}},
        {"quadriOn", {"Quadri", "Four colors: "}}};
    for (const auto& [outlet, texts] : terms) {
        auto* button = find<FitButton>(outlet);
        EXPECT_EQ(button->text().remove('&'), texts.first);
        EXPECT_TRUE(button->toolTip().startsWith(texts.second)) << outlet;
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(button)
                        ->text(QAccessible::Description)
                        .startsWith(texts.second));
        button->resize(400, button->height());
        const QImage with = button->grab().toImage();
        button->setProperty("terms", QString());
        EXPECT_NE(button->grab().toImage(), with) << outlet << " paints its term where there is room";
    }
}

TEST_F(ShownReadouts, EveryWellTellsItsColourOnHover) {
    for (auto* well : window().findChildren<ColorWellWidget*>()) {
        well->setColor(Colour::rgb(0.2, 0.4, 0.6));
        QHelpEvent hover(QEvent::ToolTip, {5, 5}, well->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(well, &hover);
        EXPECT_TRUE(QToolTip::text().startsWith("RGB 51 102 153, #336699\n" + well->toolTip()))
            << well->objectName().toStdString() << ": " << QToolTip::text().toStdString();
        QToolTip::hideText();
    }
}

TEST_F(ShownReadouts, APickInAChartTellsItsValueNearThePointer) {
    QToolTip::hideText();
    auto& chart = *desktop.widget("myDegrade");
    QTest::mouseClick(&chart, Qt::LeftButton, {}, {20, 20});
    const QString value = QString::fromStdString(controler->views().gradient.accessible().value);
    EXPECT_TRUE(value.startsWith("RGB "));
    EXPECT_EQ(QToolTip::text(), value);
    EXPECT_EQ(desktop.statusLine().text(), "");
    QToolTip::hideText();
    QTest::keyClick(&chart, Qt::Key_Up);
    EXPECT_TRUE(QToolTip::text().startsWith("RGB "));
    QToolTip::hideText();
}

TEST_F(ShownReadouts, AnEmptyListSaysHowToFillItOutsideItsPicture) {
    for (const char* name : {"swatch1Scroller", "swatch2scroller"}) {
        auto* area = find<ListScrollArea>(name);
        const auto* hint = area->viewport()->findChild<QLabel*>("captionEmpty");
        EXPECT_TRUE(hint->isVisible()) << name;
        EXPECT_TRUE(hint->text().contains("Load")) << name;
        EXPECT_EQ(area->viewport()->childAt(30, 30), area->content()) << "nothing to the mouse";
    }
    const Bitmap picture = desktop.capture(controler->panels().one.view);
    for (const std::uint32_t pixel : picture.pixels)
        ASSERT_EQ(pixel, picture.pixels.front()) << "the list's own picture is empty";
    const auto* hint =
        find<ListScrollArea>("swatch1Scroller")->viewport()->findChild<QLabel*>("captionEmpty");
    fillList1(1);
    EXPECT_FALSE(hint->isVisible());
    fillList1(0);
    EXPECT_TRUE(hint->isVisible());
    auto* area = find<ListScrollArea>("swatch1Scroller");
    area->setMinimumSize(1, 1);
    area->resize(40, 24);
    EXPECT_FALSE(hint->isVisible()) << "no room for any of its texts";
}

TEST_F(ShownReadouts, TheRowThatAnOpenMenuMeansIsMarkedOnTheScreenAlone) {
    fillList1(5);
    auto& list = *desktop.widget("swatch1");
    auto& view = controler->panels().one.view;
    const auto at = [&](int row) { return QPoint(30, 22 * row + 12); };
    view.setSelectedColor(3);
    view.setNeedsDisplay();
    const QImage before = pictureOf(list);
    const Bitmap own = desktop.capture(view);
    QImage meanwhile;
    QTimer::singleShot(0, &window(), [&] {
        meanwhile = pictureOf(list);
        EXPECT_EQ(desktop.capture(view).pixels, own.pixels);
        QApplication::activePopupWidget()->close();
    });
    QTest::mouseClick(&list, Qt::RightButton, {}, at(3));
    EXPECT_FALSE(meanwhile.isNull());
    EXPECT_NE(meanwhile, before);
    EXPECT_EQ(meanwhile.copy(0, 0, list.width(), 60), before.copy(0, 0, list.width(), 60)) << "other rows";
    EXPECT_EQ(pictureOf(list), before) << "the menu is closed";
}

TEST_F(ShownReadouts, TheHistoryPanelListsStepsAsPlainText) {
    controler->panels().commands.sortHue(controler->panels().one);
    controler->history().describeSteps("Load <b>x</b>.aco");
    auto* steps = find<QListWidget>("historySteps");
    ASSERT_EQ(steps->count(), 2);
    EXPECT_EQ(steps->item(1)->text(), "Undo: Load <b>x</b>.aco");
    for (const char* button : {"undoButton", "undoAction"}) {
        EXPECT_EQ(desktop.widget(button)->accessibleDescription(), "Undo: Load <b>x</b>.aco");
        EXPECT_FALSE(desktop.widget(button)->toolTip().contains("<b>"));
    }
}

/// Cancel, Escape and the close box of the print options; the last prints.
TEST_F(ShownReadouts, EscapeAndCancelOfThePrintOptionsPrintNothing) {
    const std::string pdf = folder / "list.pdf";
    const auto print = [&](const std::function<void(QWidget&)>& end) {
        desktop.printJobs().nextPdf = pdf;
        QTimer::singleShot(0, &window(), [&] { end(*desktop.widget("printOptionWindow")); });
        PrintOptions options;
        printSwatchList(controler->panels().one.view, options, nullptr, desktop);
        const bool printed = QFile::exists(QString::fromStdString(pdf));
        QFile::remove(QString::fromStdString(pdf));
        return printed;
    };
    fillList1(3);
    const auto press = [](const char* name) {
        return [name](QWidget& options) {
            QTest::mouseClick(options.findChild<QWidget*>(name), Qt::LeftButton);
        };
    };
    EXPECT_TRUE(print(press("okPrint")));
    EXPECT_FALSE(print(press("printCancel")));
    EXPECT_FALSE(print([](QWidget& options) { QTest::keyClick(options.windowHandle(), Qt::Key_Escape); }));
    EXPECT_TRUE(print([](QWidget& options) { options.close(); }));
    EXPECT_TRUE(print([](QWidget& options) { QTest::keyClick(options.windowHandle(), Qt::Key_Return); }));
}

} // namespace
