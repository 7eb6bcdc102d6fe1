// What scripts are played with: exact pointer events, keys, drags that are handed over, and the wait for
// rest.
#include "qt/desktop_fixture.h"

#include "drive/command_error.h"
#include "drive/hand_over.h"
#include "drive/keyboard.h"
#include "drive/locate.h"
#include "drive/pointer.h"
#include "drive/settle.h"
#include "drive/state_outlets.h"

#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>

using namespace chromalog;
using namespace chromalog::drive;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

class DriveParts : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    SpyView view;
    ViewWidget widget;

    void show() {
        widget.setView(&view, &desktop);
        widget.resize(100, 80);
        widget.show();
    }
};

TEST_F(DriveParts, PositionsAreExactAndReachTheEdges) {
    show();
    const Point places[] = {{0, 0}, {100, 80}, {10.25, 26.9}, {-3.5, 200}};
    for (const Point& place : places)
        click(targetOf(widget, place));
    view.flipped = true;
    click(targetOf(widget, {7.125, 0}));
    std::vector<Point> pressed;
    for (std::size_t i = 0; i < view.calls.size(); ++i)
        if (view.calls[i] == "down") pressed.push_back(view.places[pressed.size() * 2]);
    EXPECT_THAT(pressed, ElementsAre(places[0], places[1], Point{10.25, 80 - (80 - 26.9)}, places[3],
                                     Point{7.125, 0}));
}

TEST_F(DriveParts, AControlHasTheClassThatItWasGivenWhateverItsName) {
    writeDialog("dialog", "<widget class=\"QLineEdit\" name=\"firstR\"/>"
                          "<widget class=\"QLineEdit\" name=\"amount\"/>"
                          "<widget class=\"ColorWellWidget\" name=\"origFirstColor\"/>"
                          "<widget class=\"ColorWellWidget\" name=\"paint\"/>");
    Outlet<Window> window;
    Outlet<TextField> amount, firstR;
    Outlet<ColorWell> paint, origFirstColor;
    const auto form = desktop.loadForm("dialog", {{{"window", &window},
                                                   {"amount", &amount},
                                                   {"firstR", &firstR},
                                                   {"paint", &paint},
                                                   {"origFirstColor", &origFirstColor}},
                                                  {}});
    ASSERT_TRUE(form);
    amount->setClassName("amountText");
    paint->setClassName("paintWell");
    const QJsonObject outlets = outletsState();
    const auto classOf = [&](const char* name) {
        return outlets[QLatin1String(name)]["class"].toString().toStdString();
    };
    EXPECT_EQ(classOf("amount"), "amountText");
    EXPECT_EQ(classOf("paint"), "paintWell");
    EXPECT_EQ(classOf("firstR"), "QLineEdit");
    EXPECT_EQ(classOf("origFirstColor"), "ColorWellWidget");
}

TEST_F(DriveParts, APressGivesTheFocusAsAPersonsDoes) {
    show();
    click(middleOf(widget));
    EXPECT_EQ(widget.window()->focusWidget(), &widget);
}

TEST_F(DriveParts, ADropIsExactToo) {
    view.takesColours = true;
    show();
    ColourMime mime({true, false, Colour::rgb(0.1, 0.2, 0.3), std::nullopt});
    EXPECT_EQ(offer(mime, targetOf(widget, {1.5, 26.9})), Qt::CopyAction);
    EXPECT_EQ(view.lastDrop.location, (Point{1.5, 80 - (80 - 26.9)}));
    ColourMime text({false, true, std::nullopt, "no colour"});
    EXPECT_EQ(offer(text, targetOf(widget, {1, 1})), Qt::IgnoreAction);
}

TEST_F(DriveParts, ADragIsHandedToTheTargetAndThenNoMore) {
    view.takesColours = true;
    show();
    const DragRequest request{&view, {{20, 20}, Colour{}, false, {}}, {true, false, Colour{}, std::nullopt}};
    {
        HandOver handOver(desktop.drags().run, [&] { return targetOf(widget, {5, 6}); });
        EXPECT_FALSE(handOver.happened());
        desktop.beginDrag(request);
        EXPECT_TRUE(handOver.happened());
    }
    EXPECT_EQ(desktop.drags().last->result, Qt::CopyAction);
    EXPECT_EQ(view.lastDrop.source, &view);
    EXPECT_EQ(view.lastDrop.location, (Point{5, 6}));
    int own = 0;
    desktop.drags().run = [&](QDrag&) { return ++own, Qt::IgnoreAction; };
    {
        HandOver handOver(desktop.drags().run, [] { return PointerTarget{}; });
    }
    desktop.beginDrag(request);
    EXPECT_EQ(own, 1) << "the loop of before is back";
}

TEST_F(DriveParts, KeysAreReadByName) {
    struct Case {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
    };
    const Case cases[] = {
        {"Return", Qt::Key_Return, {}, "\r"},
        {"Shift+Right", Qt::Key_Right, Qt::ShiftModifier, ""},
        {"a", Qt::Key_A, {}, "a"},
        {"A", Qt::Key_A, Qt::ShiftModifier, "A"},
        {"Ctrl+Shift+z", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, ""},
        {"Option+Return", Qt::Key_Return, Qt::AltModifier, ""},
        {"+", Qt::Key_Plus, {}, "+"},
        {"PageUp", Qt::Key_PageUp, {}, ""},
        {"PageDown", Qt::Key_PageDown, {}, ""},
    };
    for (const auto& expected : cases) {
        const auto stroke = readKey(expected.name);
        ASSERT_TRUE(stroke) << expected.name;
        EXPECT_EQ(stroke->key, expected.key) << expected.name;
        EXPECT_EQ(stroke->modifiers, expected.modifiers) << expected.name;
        EXPECT_EQ(stroke->text, QString(expected.text)) << expected.name;
    }
    for (const char* name : {"", "return", "Shift+", "Hyper+a", "ab"})
        EXPECT_FALSE(readKey(name)) << name;
}

TEST_F(DriveParts, TextIsTypedAKeystrokeAtATime) {
    QLineEdit field;
    std::vector<std::string> seen;
    QObject::connect(&field, &QLineEdit::textEdited, &field,
                     [&](const QString& text) { seen.push_back(text.toStdString()); });
    field.show();
    field.setFocus();
    typeText(field, "2\u00e95");
    EXPECT_THAT(seen, ElementsAre("2", "2\u00e9", "2\u00e95"));
}

TEST_F(DriveParts, RestComesAfterPaintsAndPostedCallsButDoesNotWaitForTimers) {
    std::vector<std::string> order;
    view.draw = [&](Canvas&) { order.push_back("painted"); };
    show();
    bool late = false;
    QTimer::singleShot(60'000, &widget, [&] { late = true; });
    std::function<void(int)> post = [&](int left) {
        order.push_back("call");
        if (left > 1) QTimer::singleShot(0, &widget, [&post, left] { post(left - 1); });
    };
    QTimer::singleShot(0, &widget, [&] { post(3); }); // each call posts the next
    widget.update();
    Settle settle([] { mishap(); });
    QEventLoop loop;
    settle.wait(Settle::Keyboard::asItIs, [&] {
        order.push_back("rest");
        loop.quit();
    });
    loop.exec();
    EXPECT_EQ(order.back(), "rest");
    EXPECT_EQ(std::count(order.begin(), order.end(), "call"), 3);
    EXPECT_GE(std::count(order.begin(), order.end(), "painted"), 1);
    EXPECT_FALSE(late);
}

TEST_F(DriveParts, WhatAPersonCannotReachIsAnError) {
    writeDialog("dialog",
                "<widget class=\"QPushButton\" name=\"shown\"/>"
                "<widget class=\"QPushButton\" name=\"_hidden\"><property name=\"visible\"><bool>false</bool>"
                "</property></widget>");
    Outlet<Window> window;
    FormOwner owner;
    owner.outlets = {{"window", &window}};
    const auto form = desktop.loadForm("dialog", owner);
    const auto why = [](const char* name) -> std::string {
        try {
            reachableOutlet(name);
        } catch (const CommandError& error) {
            return error.message;
        }
        return "";
    };
    EXPECT_EQ(why("shown"), "shown is not on the screen");
    window->makeKeyAndOrderFront();
    EXPECT_EQ(why("shown"), "");
    EXPECT_EQ(why("hidden"), "hidden is not on the screen")
        << "a leading underscore is no part of an outlet's name";
    EXPECT_EQ(why("none"), "unknown outlet 'none'");
    QDialog modal;
    modal.setModal(true);
    modal.show();
    EXPECT_EQ(why("shown"), "shown is behind a modal window");
}

} // namespace
