// Exceptions in what the toolkit calls of ours: none crosses its frames.
#include "qt/desktop_fixture.h"

#include <QAccessible>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

#include <new>
#include <stdexcept>

using namespace chromalog;
using namespace chromalog::test;

namespace {

/// Throws from everything that a widget asks of it, once it is told to.
class ThrowingView : public SpyView {
  public:
    std::function<void()> thrower;
    int thrown = 0;

    void drawRect(Canvas&) override { toss(); }
    void sizeChanged() override { toss(); }
    void mouseDown(const MouseEvent&) override { toss(); }
    void mouseDragged(const MouseEvent&) override { toss(); }
    void mouseUp(const MouseEvent&) override { toss(); }
    void rightMouseDown(const MouseEvent&) override { toss(); }
    bool keyDown(const KeyEvent&) override { return toss(), true; }
    bool acceptsColourDrags() const override { return true; }
    DragOperation draggingEntered(const DragInfo&) override { return toss(), DragOperation::copy; }
    bool performDragOperation(const DragInfo&) override { return toss(), true; }
    Accessible accessible() const override { return const_cast<ThrowingView*>(this)->toss(), told; }
    int accessibleRowCount() const override { return 1; }
    AccessibleRow accessibleRow(int) const override {
        return const_cast<ThrowingView*>(this)->toss(), AccessibleRow{"row", "value", {}};
    }
    std::optional<int> accessibleSelectedRow() const override {
        return const_cast<ThrowingView*>(this)->toss(), 0;
    }
    void selectAccessibleRow(int) override { toss(); }

  private:
    void toss() {
        if (!thrower) return;
        ++thrown;
        thrower();
    }
};

/// As in a host that has an application object of the toolkit's own kind: ours would catch what it can.
struct PlainApplication : Offscreen {
    int argc = 1;
    char name[5] = "host";
    char* argv[2] = {name, nullptr};
    QApplication application{argc, argv};
};

class MishapTest : PlainApplication, public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    Outlet<Window> window;
    Outlet<Button> button;
    Outlet<TextField> field;
    std::function<void()> action; ///< of the button
    std::unique_ptr<Form> form;

    void SetUp() override {
        writeDialog("dialog",
                    "<widget class=\"QPushButton\" name=\"button\"><property name=\"action\" stdset=\"0\">"
                    "<string>act:</string></property></widget><widget class=\"QLineEdit\" name=\"field\"/>");
        FormOwner owner;
        owner.outlets = {{"window", &window}, {"button", &button}, {"field", &field}};
        owner.actions = {{"act:", [this] { action(); }}};
        form = desktop.loadForm("dialog", owner);
    }

    static void later(std::function<void()> run) { QTimer::singleShot(0, std::move(run)); }
    static void runOut() { throw std::bad_alloc(); }
    static void slip() { throw std::runtime_error("a slip"); }
    void inLoop(const std::function<void()>& run) {
        later([&] {
            run();
            desktop.stopModal(5);
        });
        EXPECT_EQ(desktop.runModal(*window), 5);
    }
    void press() { pushButton().click(); }
    QPushButton& pushButton() { return *qobject_cast<QPushButton*>(desktop.widget("button")); }
    int failures() const {
        return static_cast<int>(std::ranges::count_if(desktop.logRing().lines(), [](const std::string& line) {
            return line.starts_with("out of memory");
        }));
    }
};

struct Call {
    const char* name;
    std::function<void(ViewWidget&)> make;
};

void mouse(ViewWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void drag(ViewWidget& widget, bool drops) {
    QMimeData data;
    data.setColorData(QColor(Qt::red));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QEvent& event = drops ? static_cast<QEvent&>(drop) : enter;
    static_cast<QObject&>(widget).event(&event); // the application would ask for an accepted enter first
}

QAccessibleInterface* accessible(ViewWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget);
}

const Call kCalls[] = {
    {"paint", [](ViewWidget& w) { w.grab(); }},
    {"resize", [](ViewWidget& w) { w.resize(w.width() + 1, 50); }},
    {"press and move",
     [](ViewWidget& w) {
         mouse(w, QEvent::MouseButtonPress, {5, 5});
         mouse(w, QEvent::MouseMove, {9, 9});
     }},
    {"release",
     [](ViewWidget& w) {
         mouse(w, QEvent::MouseButtonPress, {5, 5});
         mouse(w, QEvent::MouseButtonRelease, {5, 5});
     }},
    {"right press",
     [](ViewWidget& w) {
         mouse(w, QEvent::MouseButtonPress, {5, 5}, Qt::RightButton);
     }},
    {"key",
     [](ViewWidget& w) {
         QKeyEvent event(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
         QApplication::sendEvent(&w, &event);
     }},
    {"menu key",
     [](ViewWidget& w) {
         QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), w.mapToGlobal(QPoint(5, 5)));
         QApplication::sendEvent(&w, &event);
     }},
    {"drag", [](ViewWidget& w) { drag(w, false); }},
    {"drop", [](ViewWidget& w) { drag(w, true); }},
    {"accessible name", [](ViewWidget& w) { accessible(w)->text(QAccessible::Name); }},
    {"accessible role", [](ViewWidget& w) { accessible(w)->role(); }},
    {"accessible value", [](ViewWidget& w) { accessible(w)->interface_cast(QAccessible::ValueInterface); }},
    {"accessible row", [](ViewWidget& w) { accessible(w)->child(0)->text(QAccessible::Name); }},
    {"accessible place", [](ViewWidget& w) { accessible(w)->child(0)->rect(); }},
    {"accessible state", [](ViewWidget& w) { accessible(w)->child(0)->state(); }},
    {"accessible action", [](ViewWidget& w) { accessible(w)->child(0)->actionInterface()->doAction({}); }},
};

TEST_F(MishapTest, NoEventOfAViewLetsAnythingOutAndTheDialogLivesOn) {
    ThrowingView view;
    ViewWidget widget;
    widget.resize(100, 50);
    widget.setView(&view, &desktop);
    widget.show();
    inLoop([&] {
        for (const Call& call : kCalls) {
            const int before = view.thrown, failuresBefore = failures();
            view.thrower = runOut;
            EXPECT_NO_THROW(call.make(widget)) << call.name;
            view.thrower = nullptr;
            EXPECT_GT(view.thrown, before) << call.name << " asks the view";
            EXPECT_EQ(failures() - failuresBefore, view.thrown - before) << call.name << " is told of";
            EXPECT_EQ(desktop.modalLoops().depth(), 1U) << call.name;
        }
    });
    widget.setView(nullptr);
}

TEST_F(MishapTest, NoSlotTimerOrAnswerOfAPanelLetsAnythingOut) {
    action = runOut;
    field->whenEdited(runOut);
    field->whenReturnPressed(runOut);
    window->whenClosed(runOut);
    inLoop([&] {
        EXPECT_NO_THROW(press());
        EXPECT_EQ(failures(), 1);
        EXPECT_NO_THROW(QTest::keyClicks(desktop.widget("field"), "a"));
        EXPECT_EQ(failures(), 2);
        EXPECT_NO_THROW(QTest::keyClick(desktop.widget("field"), Qt::Key_Return));
        EXPECT_EQ(failures(), 3);
        for (int twice = 0; twice < 2; ++twice)
            EXPECT_NO_THROW(desktop.widget("window")->close());
        EXPECT_EQ(failures(), 5);
        desktop.beginOpenPanel({{"aco"}}, *window, [](auto) { runOut(); });
        EXPECT_NO_THROW(desktop.panels().current()->reject());
        EXPECT_EQ(failures(), 6);
        const auto timer = desktop.startTimer(0.0, runOut);
        EXPECT_NO_THROW(QTest::qWait(20));
        EXPECT_EQ(failures(), 7);
    });
}

TEST_F(MishapTest, NoMemoryBeforeTheDialogRunsEndsThePick) {
    ThrowingView view;
    ViewWidget widget;
    widget.setView(&view, &desktop);
    view.thrower = runOut;
    EXPECT_NO_THROW(widget.grab());
    bool ran = false;
    later([&] { ran = true; });
    EXPECT_THROW(desktop.runModal(*window), std::bad_alloc);
    EXPECT_FALSE(ran);
    view.thrower = nullptr;
    widget.setView(nullptr);
    QTest::qWait(0);
}

TEST_F(MishapTest, AnythingElseEndsEveryLoopAndGoesOnFromThere) {
    action = slip;
    Outlet<Window> inner;
    FormOwner owner;
    owner.outlets = {{"window", &inner}};
    const auto innerForm = desktop.loadForm("dialog", owner);
    bool innerEnded = false;
    later([&] {
        later([&] {
            later([&] { press(); });
            desktop.runAlert({"message", "", "ok"});
        });
        EXPECT_THROW(desktop.runModal(*inner), std::runtime_error);
        innerEnded = true;
    });
    EXPECT_THROW(desktop.runModal(*window), std::runtime_error);
    EXPECT_TRUE(innerEnded);
    EXPECT_EQ(desktop.openAlert(), nullptr);
    EXPECT_EQ(desktop.modalLoops().depth(), 0U);
}

TEST_F(MishapTest, MenusAndPanelsAreClosedWithIt) {
    action = slip;
    std::vector<std::optional<std::string>> answers;
    later([&] {
        desktop.beginOpenPanel({{"aco"}}, *window, [&](auto path) { answers.push_back(path); });
        QMenu menu(desktop.widget("window"));
        menu.addAction("item");
        later([&] { press(); });
        menu.exec(QPoint(10, 10));
    });
    EXPECT_THROW(desktop.runModal(*window), std::runtime_error);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(MishapTest, WithoutADesktopThatStandsItIsDropped) {
    EXPECT_NO_THROW(guarded(slip));
    EXPECT_EQ(guarded(3, []() -> int { throw std::bad_alloc(); }), 3);
    EXPECT_EQ(guarded(3, [] { return 4; }), 4);
}

} // namespace
