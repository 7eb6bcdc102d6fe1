// Colours that leave a view, a well or the clipboard, and those that come from elsewhere.
#include "qt/desktop_fixture.h"

#include "qt/controls/color_well_widget.h"
#include "qt/convert.h"
#include "qt/drags.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QPainter>

using namespace chromalog;
using namespace chromalog::test;

namespace {

const Colour exact = Colour::rgb(0.1, 1.0 / 3.0, 0.7071067811865476); // no 16-bit word holds these

class DragTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    SpyView source, target;
    ViewWidget sourceWidget, targetWidget;

    void SetUp() override {
        target.takesColours = true;
        targetWidget.resize(100, 100);
        sourceWidget.setView(&source, &desktop);
        targetWidget.setView(&target, &desktop);
        targetWidget.show();
    }

    DragRequest request(std::optional<std::string> text = std::nullopt) {
        return {&source, {{32, 16}, exact, true, {}}, {true, text.has_value(), exact, text}};
    }

    /// Enter and drop at (30, 40) from the top left; whether both were taken.
    static bool dropOn(QWidget& widget, const QMimeData* mime) {
        QDragEnterEvent enter({30, 40}, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop({30, 40}, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &drop);
        return drop.isAccepted();
    }
};

TEST_F(DragTest, ADragInsideTheProcessCarriesTheExactColourAndItsSource) {
    bool taken = false;
    desktop.drags().run = [&](QDrag& drag) {
        taken = dropOn(targetWidget, drag.mimeData());
        return Qt::CopyAction;
    };
    desktop.beginDrag(request("Sky"));
    EXPECT_TRUE(taken);
    EXPECT_EQ(target.lastDrop.source, &source);
    EXPECT_EQ(target.lastDrop.location, (Point{30, 60}));
    ASSERT_TRUE(target.lastDrop.pasteboard.colour);
    EXPECT_TRUE(target.lastDrop.pasteboard.colour->sameRgb(exact));
    EXPECT_EQ(target.lastDrop.pasteboard.text, "Sky");
    EXPECT_EQ(desktop.drags().last->result, Qt::CopyAction);
}

TEST_F(DragTest, WithoutDragsOnThePlatformTheDragIsStillTold) {
    desktop.beginDrag(request());
    ASSERT_TRUE(desktop.drags().last);
    EXPECT_EQ(desktop.drags().last->result, Qt::IgnoreAction);
    EXPECT_EQ(desktop.drags().last->request.source, &source);
}

TEST_F(DragTest, OtherProgramsGetTheColourAsWordsAndTheNameAlone) {
    const ColourMime withName({true, true, Colour::rgb(0x1234 / 65535.0, 0xABCD / 65535.0, 1), "Sky"});
    const QRgba64 words = qvariant_cast<QColor>(withName.colorData()).rgba64();
    EXPECT_EQ(words.red(), 0x1234);
    EXPECT_EQ(words.green(), 0xABCD);
    EXPECT_EQ(words.blue(), 0xFFFF);
    EXPECT_EQ(words.alpha(), 0xFFFF);
    EXPECT_EQ(withName.text(), "Sky");
    const ColourMime colourAlone({true, false, exact, std::nullopt});
    EXPECT_FALSE(colourAlone.hasText());
}

TEST_F(DragTest, EveryWordGoesOutAndComesBack) {
    for (int word = 0; word <= 0xFFFF; ++word) {
        const QColor out = toQt(Colour::rgb(word / 65535.0, 0, 0));
        ASSERT_EQ(out.rgba64().red(), word);
        ASSERT_EQ(fromQt(out).red(), word / 65535.0);
    }
}

TEST_F(DragTest, AForeignColourIsReadByItsWords) {
    QMimeData foreign;
    foreign.setColorData(QColor::fromRgba64(0x1234, 0xFFFE, 1, 0x8000));
    EXPECT_TRUE(dropOn(targetWidget, &foreign));
    EXPECT_EQ(target.lastDrop.source, nullptr);
    ASSERT_TRUE(target.lastDrop.pasteboard.colour);
    EXPECT_EQ(target.lastDrop.pasteboard.colour->red(), 0x1234 / 65535.0);
    EXPECT_EQ(target.lastDrop.pasteboard.colour->green(), 0xFFFE / 65535.0);
    EXPECT_EQ(target.lastDrop.pasteboard.colour->alpha(), 0x8000 / 65535.0);
    EXPECT_FALSE(target.lastDrop.pasteboard.textType);
}

TEST_F(DragTest, ATextAloneIsRefused) {
    QMimeData text;
    text.setText("#ff0000");
    EXPECT_FALSE(dropOn(targetWidget, &text));
}

TEST_F(DragTest, ATextIsSeenWhoseTypeNamesItsEncoding) {
    for (const char* type : {"text/plain;charset=utf-8", "text/plain; charset=UTF-8"}) {
        QMimeData foreign;
        foreign.setColorData(QColor(Qt::red));
        foreign.setData(type, "Caf\xc3\xa9");
        EXPECT_TRUE(dropOn(targetWidget, &foreign));
        EXPECT_TRUE(target.lastDrop.pasteboard.textType) << type;
        EXPECT_EQ(target.lastDrop.pasteboard.text, "Caf\xc3\xa9") << type;
    }
}

TEST_F(DragTest, ADeclaredColourThatCannotBeReadIsNoColour) {
    QMimeData broken;
    broken.setData("application/x-color", "abc");
    const Pasteboard read = pasteboardOf(&broken);
    EXPECT_TRUE(read.colourType);
    EXPECT_FALSE(read.colour);
}

TEST_F(DragTest, ADragWhoseSourceAllowsNothingSaysSo) {
    const ColourMime mime({true, false, exact, std::nullopt});
    QDragEnterEvent enter({1, 1}, Qt::IgnoreAction, &mime, Qt::LeftButton, Qt::NoModifier);
    EXPECT_FALSE(dragInfoOf(enter, {}).sourceAllows);
}

TEST_F(DragTest, TheClipboardHoldsTheExactColourAndTheName) {
    desktop.setGeneralPasteboard({true, true, exact, "Sky"});
    const Pasteboard& read = desktop.generalPasteboard();
    ASSERT_TRUE(read.colour);
    EXPECT_TRUE(read.colour->sameRgb(exact));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Sky");
}

TEST_F(DragTest, AfterThePickTheClipboardHoldsNothingOfOurs) {
    {
        QtDesktop pick{settings()};
        pick.setGeneralPasteboard({true, true, exact, "Sky"});
    }
    const QMimeData* left = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(dynamic_cast<const ColourMime*>(left), nullptr);
    EXPECT_EQ(left->text(), "Sky");
    EXPECT_EQ(qvariant_cast<QColor>(left->colorData()).rgba64(), toQt(exact).rgba64());
}

TEST_F(DragTest, AWellTakesADropAndTellsIt) {
    ColorWellWidget well;
    well.resize(40, 60);
    DragInfo told;
    well.whenDropped([&](const DragInfo& info) { told = info; });
    const ColourMime mime({true, false, exact, std::nullopt}, &source);
    EXPECT_TRUE(dropOn(well, &mime));
    EXPECT_TRUE(well.color().sameRgb(exact));
    EXPECT_EQ(told.source, &source);
    EXPECT_EQ(told.location, (Point{30, 20}));
    QMimeData text;
    text.setText("red");
    EXPECT_FALSE(dropOn(well, &text));
}

TEST_F(DragTest, ADroppedColourRemembersNoHueAndSaturation) {
    const Colour black = Colour::hsb(0.25, 0.5, 0);
    ASSERT_EQ(black.hue(), 0.25);
    ColorWellWidget well;
    well.whenDropped([](const DragInfo&) {});
    const ColourMime mime({true, false, black, std::nullopt}, &source);
    EXPECT_TRUE(dropOn(well, &mime));
    EXPECT_TRUE(well.color().sameRgb(black));
    EXPECT_EQ(well.color().hue(), 0);
    EXPECT_EQ(well.color().saturation(), 0);
}

TEST_F(DragTest, AWellDragsItsColourOutAndAClickOnlyFocuses) {
    ColorWellWidget well;
    well.setDrags(&desktop.drags());
    well.setColor(exact);
    well.resize(40, 30);
    well.show();
    QTest::mouseClick(&well, Qt::LeftButton, {}, {10, 10});
    EXPECT_FALSE(desktop.drags().last);
    QTest::mousePress(&well, Qt::LeftButton, {}, {10, 10});
    QMouseEvent move(QEvent::MouseMove, QPointF(30, 10), well.mapToGlobal(QPointF(30, 10)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&well, &move);
    ASSERT_TRUE(desktop.drags().last);
    EXPECT_EQ(desktop.drags().last->request.source, &well);
    EXPECT_TRUE(desktop.drags().last->request.pasteboard.colour->sameRgb(exact));
    EXPECT_FALSE(desktop.drags().last->request.pasteboard.textType);
}

TEST_F(DragTest, AWellDoesNotTakeItsOwnColour) {
    ColorWellWidget well;
    well.whenDropped([](const DragInfo&) {});
    const ColourMime mime({true, false, exact, std::nullopt}, &well);
    EXPECT_FALSE(dropOn(well, &mime));
}

} // namespace
