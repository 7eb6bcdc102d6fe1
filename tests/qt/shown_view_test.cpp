// What a view's widget does for it while it is shown, and after.
#include "qt/desktop_fixture.h"

#include <QMimeData>
#include <QTest>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class ShownView : public DesktopTest {
  protected:
    void show(ViewWidget& widget, View& shown) {
        widget.resize(100, 50);
        widget.setView(&shown, &desktop);
        widget.show();
        QApplication::processEvents();
    }
    QtDesktop desktop{settings()};
    SpyView view;
};

TEST_F(ShownView, AViewIsPaintedWhereItAsksForIt) {
    int paints = 0;
    view.draw = [&paints](Canvas&) { ++paints; };
    ViewWidget widget;
    show(widget, view);
    const int before = paints;
    view.setNeedsDisplay();
    QApplication::processEvents();
    EXPECT_GT(paints, before);
}

TEST_F(ShownView, AViewOutlivesItsWidget) {
    {
        ViewWidget gone;
        gone.setView(&view, &desktop);
        EXPECT_EQ(view.host(), &gone);
    }
    EXPECT_EQ(view.host(), nullptr);
    view.setNeedsDisplay();
}

/// Where the keyboard stands in it.
struct MarkedView : SpyView {
    std::optional<Rect> focusMark() const override { return Rect{20, 10, 40, 20}; }
};

TEST_F(ShownView, WhereTheKeyboardStandsIsSeenWhileKeysAreUsed) {
    MarkedView marked;
    ViewWidget target;
    show(target, marked);
    target.activateWindow();
    target.setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(target.hasFocus());
    const auto shown = [&target] { return target.grab().toImage(); };
    const QImage byMouse = shown();
    target.window()->setAttribute(Qt::WA_KeyboardFocusChange);
    EXPECT_NE(shown(), byMouse);
}

/// Takes files, and tells the key.
struct FileTaker : SpyView {
    bool acceptsFiles() const override { return true; }
    bool filesDropped(const std::vector<std::string>& files, bool shift) override {
        calls.push_back(files.at(0) + (shift ? " shift" : ""));
        return true;
    }
};

TEST_F(ShownView, AFileIsDroppedWithItsKey) {
    FileTaker taker;
    taker.takesColours = true;
    ViewWidget target;
    show(target, taker);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/a.aco")});
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&target, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&target, &drop);
    }
    EXPECT_THAT(taker.calls, testing::IsSupersetOf({"/a.aco", "/a.aco shift"}));
}

} // namespace
