// What a view is told by the widget that shows it.
#include "qt/desktop_fixture.h"

#include "qt/contrast.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/controls/plain_text.h"
#include "qt/raster_canvas.h"
#include "qt/view_accessible.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

using namespace chromalog;
using namespace chromalog::test;
using testing::Contains;
using testing::ElementsAre;

namespace {

class ViewWidgetTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    SpyView view;
    ViewWidget widget;

    void show(int width = 100, int height = 50) {
        widget.resize(width, height);
        widget.setView(&view, &desktop);
        widget.show();
        view.calls.clear();
    }

    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
};

TEST_F(ViewWidgetTest, PositionsAreTheViewsOwnAndExact) {
    show();
    mouse(QEvent::MouseButtonPress, {10.25, 20.5});
    EXPECT_EQ(view.places.back(), (Point{10.25, 29.5}));
    view.flipped = true;
    mouse(QEvent::MouseButtonPress, {10.25, 20.5});
    EXPECT_EQ(view.places.back(), (Point{10.25, 20.5}));
    EXPECT_EQ(widget.toWidget(Point{3, 4}), QPointF(3, 4));
    view.flipped = false;
    EXPECT_EQ(widget.toWidget(Point{3, 4}), QPointF(3, 46));
}

TEST_F(ViewWidgetTest, EveryMoveIsADrag) {
    show();
    mouse(QEvent::MouseButtonPress, {10, 10});
    mouse(QEvent::MouseMove, {11, 10});
    mouse(QEvent::MouseMove, {300, -20}); // outside as well
    mouse(QEvent::MouseButtonRelease, {12, 10});
    EXPECT_THAT(view.calls, ElementsAre("down", "dragged", "dragged", "up"));
    EXPECT_EQ(view.places[2], (Point{300, 70}));
}

TEST_F(ViewWidgetTest, ADragAndDropStartsOncePastTheStartDistance) {
    view.drags = true;
    show();
    const int distance = QApplication::startDragDistance();
    mouse(QEvent::MouseButtonPress, {10, 10});
    mouse(QEvent::MouseMove, {9.0 + distance, 10});
    EXPECT_THAT(view.calls, ElementsAre("down"));
    mouse(QEvent::MouseMove, {10.0 + distance, 10});
    mouse(QEvent::MouseMove, {30.0 + distance, 10});
    EXPECT_THAT(view.calls, ElementsAre("down", "dragged"));
}

TEST_F(ViewWidgetTest, TheRightButtonOpensMenusAndNothingElse) {
    show();
    mouse(QEvent::MouseButtonPress, {10, 10}, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, {10, 10}, Qt::RightButton);
    EXPECT_THAT(view.calls, ElementsAre("right"));
}

TEST_F(ViewWidgetTest, KeysComeWithTheirModifiersAndUnusedOnesGoOn) {
    show();
    QTest::keyClick(&widget, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    QTest::keyClick(&widget, Qt::Key_A); // no key of views
    EXPECT_THAT(view.calls, ElementsAre("key " + std::to_string(int(Key::left)) + " shift",
                                        "key " + std::to_string(int(Key::deleteKey))));
    view.usesKeys = false;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(ViewWidgetTest, ATipIsWhatTheViewSaysThere) {
    show();
    view.help = "A <b>name</b>";
    const auto ask = [this](int x) {
        QHelpEvent event(QEvent::ToolTip, {x, 10}, widget.mapToGlobal(QPoint(x, 10)));
        QApplication::sendEvent(&widget, &event);
        return QToolTip::text();
    };
    EXPECT_EQ(ask(80), "");
    EXPECT_EQ(ask(10), plainToolTip("A <b>name</b>"));
    QToolTip::hideText();
}

TEST_F(ViewWidgetTest, TheViewFollowsTheWidgetsSize) {
    show();
    widget.resize(60, 70);
    EXPECT_EQ(view.frame().w, 60);
    EXPECT_EQ(view.bounds().h, 70);
    EXPECT_THAT(view.calls, ElementsAre("size"));
}

TEST_F(ViewWidgetTest, HidingTheViewHidesTheWidget) {
    show();
    view.setHidden(true);
    EXPECT_TRUE(widget.isHidden());
    view.setHidden(false);
    EXPECT_FALSE(widget.isHidden());
}

TEST_F(ViewWidgetTest, TheDisplayLayerStandsOverThePictureOnTheScreenAlone) {
    view.draw = [](Canvas& c) {
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillRect({0, 0, 100, 50});
    };
    view.drawLayer = [this](Canvas& c) {
        c.fillRect({0, 0, 10, 10}); // white, as on any new canvas
        c.setFill(view.surround());
        c.fillRect({10, 0, 10, 10});
    };
    show();
    widget.clearFocus();
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(12, 34, 56));
    widget.setPalette(palette);
    const QImage shown = widget.grab().toImage();
    EXPECT_EQ(shown.pixelColor(5, 45), QColor(Qt::white));
    EXPECT_EQ(shown.pixelColor(15, 45), QColor(12, 34, 56));
    EXPECT_EQ(shown.pixelColor(25, 45), QColor(Qt::red));
    const Bitmap picked = desktop.capture(view);
    EXPECT_THAT(picked.pixels, testing::Each(0xFFFF0000U));
}

TEST_F(ViewWidgetTest, OnPaperTheViewIsNotDrawnOnTheScreen) {
    int draws = 0;
    view.draw = [&](Canvas&) { ++draws; };
    show();
    view.setHost(nullptr);
    view.setFrame({0, 0, 540, 720});
    widget.grab();
    widget.resize(80, 80);
    EXPECT_EQ(draws, 0);
    EXPECT_EQ(view.frame().w, 540);
    view.setHost(&widget);
}

TEST_F(ViewWidgetTest, AssistiveTechnologyReadsRoleNameAndValue) {
    view.told = {Accessible::Role::slider, "Brightness", "40", "Arrow keys",
                 Accessible::Range{40, 0, 100, 1}};
    show();
    auto* accessible = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Brightness");
    EXPECT_EQ(accessible->text(QAccessible::Description), "Arrow keys");
    ASSERT_NE(accessible->valueInterface(), nullptr);
    EXPECT_EQ(accessible->valueInterface()->currentValue().toDouble(), 40);
    EXPECT_EQ(accessible->valueInterface()->maximumValue().toDouble(), 100);
    view.told.range.reset();
    EXPECT_EQ(accessible->valueInterface(), nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Description), "40. Arrow keys") << "a value in words comes first";
}

/// A list of rows, for assistive technology and for scrolling.
class ListView : public SpyView {
  public:
    int rows = 3;
    int chosen = -1;
    mutable std::vector<int> asked; ///< rows
    ListView() { flipped = true; }
    int accessibleRowCount() const override { return rows; }
    AccessibleRow accessibleRow(int row) const override {
        asked.push_back(row);
        return {"row " + std::to_string(row), "value", {0, row * 22.0, bounds().w, 22}};
    }
    std::optional<int> accessibleSelectedRow() const override { return 1; }
    int accessibleRowAt(Point p) const override { return int(p.y / 22); }
    void selectAccessibleRow(int row) override { chosen = row; }
    void fit(double height) { setFrame({frame().x, frame().y, frame().w, height}); }
};

TEST_F(ViewWidgetTest, AListIsReadAsRows) {
    ListView list;
    list.told.role = Accessible::Role::list;
    widget.setView(&list, &desktop);
    auto* accessible = QAccessible::queryAccessibleInterface(&widget);
    EXPECT_EQ(accessible->role(), QAccessible::List);
    ASSERT_EQ(accessible->childCount(), 3);
    QAccessibleInterface* row = accessible->child(1);
    EXPECT_EQ(row, accessible->child(1));
    EXPECT_EQ(accessible->indexOfChild(row), 1);
    EXPECT_EQ(row->text(QAccessible::Name), "row 1");
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_TRUE(row->state().selected);
    EXPECT_FALSE(accessible->child(0)->state().selected);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(list.chosen, 1);
    list.rows = 1;
    EXPECT_FALSE(row->isValid()); // the row is gone
    EXPECT_EQ(accessible->child(1), nullptr);
    widget.setView(nullptr);
    EXPECT_EQ(accessible->childCount(), 0);
}

TEST_F(ViewWidgetTest, ARowIsFoundUnderAPointOfTheScreen) {
    ListView list;
    widget.move(50, 70);
    widget.resize(100, 120);
    widget.setView(&list, &desktop);
    widget.show();
    auto* accessible = QAccessible::queryAccessibleInterface(&widget);
    const auto nameAt = [&](int x, int y) {
        const QPoint at = widget.mapToGlobal(QPoint(x, y));
        const QAccessibleInterface* row = accessible->childAt(at.x(), at.y());
        return row ? row->text(QAccessible::Name).toStdString() : "none";
    };
    EXPECT_EQ(nameAt(0, 0), "row 0");
    EXPECT_EQ(nameAt(99, 21), "row 0");
    EXPECT_EQ(nameAt(5, 22), "row 1");
    EXPECT_EQ(nameAt(5, 65), "row 2");
    EXPECT_EQ(nameAt(5, 66), "none") << "below the last row";
    EXPECT_EQ(nameAt(100, 30), "none") << "beside the list";
    EXPECT_EQ(nameAt(5, -1), "none");
    const QRect second = accessible->child(1)->rect();
    EXPECT_EQ(second, QRect(widget.mapToGlobal(QPoint(0, 22)), QSize(100, 22)));
    EXPECT_EQ(accessible->childAt(second.center().x(), second.center().y()), accessible->child(1));
    widget.setView(nullptr);
}

TEST_F(ViewWidgetTest, TheMenuKeyOpensTheSelectedRowsMenu) {
    ListView list;
    widget.resize(100, 80);
    widget.setView(&list, &desktop);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
    QApplication::sendEvent(&widget, &byMouse);
    EXPECT_TRUE(list.places.empty()); // the press was told already
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QApplication::sendEvent(&widget, &byKey);
    ASSERT_EQ(list.places.size(), 1U);
    EXPECT_EQ(list.calls.back(), "right");
    EXPECT_EQ(int((list.places[0].y - 5) / 22), 1); // the row that a press there selects
    EXPECT_THAT(list.asked, ElementsAre(1)) << "no walk over all rows";
    widget.setView(nullptr);
}

class ScrollTest : public ViewWidgetTest {
  protected:
    ListView list;
    ListScrollArea area;
    ViewWidget* content = new ViewWidget;

    void SetUp() override {
        area.setWidget(content);
        area.resize(200, 300);
        content->setView(&list, &desktop);
        area.show();
    }
    int clip() const { return area.viewport()->height(); }
};

TEST_F(ScrollTest, TheListIsAsWideAsTheClipAndKnowsIt) {
    EXPECT_EQ(list.frame().w, area.viewport()->width());
    const auto superview = list.superviewBounds();
    ASSERT_TRUE(superview);
    EXPECT_EQ(superview->h, clip());
    list.calls.clear();
    area.resize(220, 400);
    EXPECT_FALSE(list.calls.empty());
    EXPECT_EQ(list.frame().w, area.viewport()->width());
    EXPECT_EQ(list.superviewBounds()->h, clip());
}

TEST_F(ScrollTest, TheListIsToldOfAHigherClipOfTheSameWidth) {
    list.fit(1000); // its own height does not follow the clip's
    const double width = list.frame().w;
    list.calls.clear();
    area.resize(area.width(), area.height() + 50);
    EXPECT_THAT(list.calls, Contains("size"));
    EXPECT_EQ(list.frame().w, width);
    EXPECT_EQ(list.superviewBounds()->h, clip());
}

TEST_F(ScrollTest, TheGroundIsALightGreyOnADarkDesktop) {
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(30, 30, 30)));
    ListScrollArea dark;
    auto* shown = new ViewWidget;
    ListView unpainted;
    dark.setWidget(shown);
    dark.resize(200, 300);
    ASSERT_LT(dark.palette().color(QPalette::Window).lightness(), 50);
    shown->setView(&unpainted, &desktop);
    unpainted.fit(300);
    dark.show();
    const QImage picture = dark.viewport()->grab().toImage();
    const QColor ground = listGround(QColor(30, 30, 30));
    EXPECT_EQ(picture.pixelColor(1, 1), ground);
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() - 2), ground);
    shown->setView(nullptr);
    QApplication::setPalette(light);
}

TEST_F(ScrollTest, TheScrollerShowsTheContentAtItsShareOfTheWay) {
    list.fit(110022); // 5000 rows
    EXPECT_EQ(content->height(), 110022);
    for (const double v : {0.0, 0.25, 0.5, 1.0}) {
        area.setVerticalScroller(v);
        EXPECT_EQ(-content->y(), std::lround(v * (110022 - clip()))) << v;
        EXPECT_NEAR(area.verticalScroller(), v, 1e-5);
        EXPECT_EQ(list.superviewBounds()->y, -content->y());
        EXPECT_EQ(list.frame().y, 0); // the document stays where it is
    }
    area.setVerticalScroller(7);
    EXPECT_EQ(area.verticalScroller(), 1);
}

TEST_F(ScrollTest, APointIsScrolledToTheTopAsFarAsThereIsContent) {
    list.fit(1000);
    area.scrollToPoint({0, 333});
    EXPECT_EQ(-content->y(), 333);
    area.scrollToPoint({0, 5000});
    EXPECT_EQ(-content->y(), 1000 - clip());
    area.scrollToPoint({0, -4});
    EXPECT_EQ(content->y(), 0);
    area.scrollToPoint({0, std::nan("")});
    EXPECT_EQ(content->y(), 0);
}

TEST_F(ScrollTest, AShortListDoesNotScroll) {
    list.fit(clip());
    area.setVerticalScroller(0.5);
    EXPECT_EQ(area.verticalScroller(), 0);
    EXPECT_EQ(content->y(), 0);
}

TEST_F(ScrollTest, OnlyWhatIsSeenIsPainted) {
    std::vector<Rect> clips;
    list.draw = [&](Canvas& c) { clips.push_back(c.clipBounds()); };
    list.fit(110022);
    area.setVerticalScroller(0.5);
    clips.clear();
    area.grab();
    ASSERT_FALSE(clips.empty());
    EXPECT_LE(clips.back().h, clip());
    EXPECT_GE(clips.back().y, 54000);
}

TEST_F(ScrollTest, FarDownTheListIsPaintedAsSharplyAsAtItsTop) {
    list.draw = [](Canvas& c) {
        c.setStroke(Colour());
        for (int row = 0; row < 5000; ++row)
            c.strokeRect({5, row * 22.0 + 5, 32, 16});
    };
    list.fit(110022);
    const QImage top = area.viewport()->grab().toImage();
    area.scrollToPoint({0, 22.0 * 4900});
    const QImage bottom = area.viewport()->grab().toImage();
    EXPECT_EQ(top, bottom);
    EXPECT_EQ(top.pixelColor(5, 5), QColor(Qt::black));
}

} // namespace
