// Fields that a person types in.
#include "qt/desktop_fixture.h"

#include "qt/controls/clear_button.h"
#include "qt/controls/compact_field.h"
#include "qt/controls/field_control.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace chromalog;
using namespace chromalog::test;
using testing::ElementsAre;

namespace {

/// A dialog with a field, another one to go to, and an OK button.
class FieldTest : public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    DialogWindow dialog;
    QLineEdit edit, other;
    QPushButton ok;
    FieldControl field{&edit};
    std::vector<std::string> edits; ///< the text at every edit
    int oks = 0, closes = 0, ends = 0;

    void SetUp() override {
        auto* column = new QVBoxLayout(&dialog);
        for (QWidget* widget : std::initializer_list<QWidget*>{&edit, &other, &ok})
            column->addWidget(widget);
        ok.setDefault(true);
        QObject::connect(&ok, &QPushButton::clicked, [this] { ++oks; });
        dialog.onClose = [this] { ++closes; };
        field.whenEdited([this] { edits.push_back(field.text()); });
        field.whenEditingEnds([this] { ++ends; });
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        edit.setFocus();
    }

    void TearDown() override {
        for (QWidget* widget : std::initializer_list<QWidget*>{&edit, &other, &ok})
            widget->setParent(nullptr);
    }
};

TEST_F(FieldTest, EveryKeystrokeIsAnEditAndSettingIsNone) {
    field.setText("10");
    edit.selectAll();
    QTest::keyClicks(&edit, "255");
    EXPECT_THAT(edits, ElementsAre("2", "25", "255"));
    field.setText("7");
    EXPECT_EQ(edits.size(), 3U);
}

TEST_F(FieldTest, PasteCutUndoAndClearAreEdits) {
    field.setText("10");
    QGuiApplication::clipboard()->setText("42");
    edit.selectAll();
    QTest::keySequence(&edit, QKeySequence::Paste);
    edit.selectAll();
    QTest::keySequence(&edit, QKeySequence::Cut);
    QTest::keySequence(&edit, QKeySequence::Undo);
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    EXPECT_THAT(edits, ElementsAre("42", "", "42", ""));
}

TEST_F(FieldTest, WhileTypedInItKeepsItsTextAndThenShowsWhatWasSet) {
    edit.selectAll();
    QTest::keyClicks(&edit, "12abc");
    field.setText("11");
    field.setText("12");
    EXPECT_EQ(field.text(), "12abc");
    other.setFocus();
    EXPECT_EQ(field.text(), "12");
    field.setText("13"); // at once, nobody is typing
    EXPECT_EQ(field.text(), "13");
}

TEST_F(FieldTest, ItsOwnMenuDoesNotEndTheEdit) {
    edit.selectAll();
    QTest::keyClicks(&edit, "12abc");
    field.setText("12");
    QFocusEvent menuOpens(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&edit, &menuOpens);
    EXPECT_EQ(field.text(), "12abc");
    other.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(FieldTest, AnotherWindowDoesNotEndTheEdit) {
    edit.selectAll();
    QTest::keyClicks(&edit, "12abc");
    QWidget panel;
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    EXPECT_FALSE(edit.hasFocus());
    EXPECT_TRUE(field.editing());
    field.setText("12");
    EXPECT_EQ(field.text(), "12abc");
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(field.text(), "12abc");
    other.setFocus();
    EXPECT_EQ(field.text(), "12");
}

TEST_F(FieldTest, TheFocusCanLeaveItWhileAnotherWindowIsActive) {
    QTest::keyClicks(&edit, "1");
    field.setText("20");
    QWidget panel;
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    other.setFocus();
    EXPECT_FALSE(field.editing());
    field.setText("30"); // at once, and what was set before does not come back
    EXPECT_EQ(field.text(), "30");
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(field.text(), "30");
    EXPECT_EQ(ends, 1);
}

TEST_F(FieldTest, WhatWasSetBeforeTheLastEditDoesNotComeBack) {
    QTest::keyClicks(&edit, "1");
    field.setText("200");
    QTest::keyClicks(&edit, "2");
    other.setFocus();
    EXPECT_EQ(field.text(), "12");
}

TEST_F(FieldTest, AnEditElsewhereThanInTheFocusLeavesItFollowing) {
    addClearButton(edit);
    QTest::keyClicks(&edit, "x");
    other.setFocus();
    edit.actions().front()->trigger();
    EXPECT_THAT(edits, ElementsAre("x", ""));
    EXPECT_FALSE(field.editing());
    field.setText("7");
    EXPECT_EQ(field.text(), "7");
}

TEST_F(FieldTest, TheEndOfAnEditIsToldOnceTheFieldShowsWhatWasSet) {
    std::string shown;
    field.whenEditingEnds([&] { shown = field.text(), ++ends; });
    QTest::keyClicks(&edit, "300");
    field.setText("255");
    EXPECT_EQ(ends, 0);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(shown, "255");
    other.setFocus();
    edit.setFocus();
    other.setFocus();
    EXPECT_EQ(ends, 1) << "nobody typed again";
}

TEST_F(FieldTest, NothingCanBeDroppedIntoIt) {
    field.setText("name");
    QMimeData data;
    data.setText("dropped");
    const QPointF at = edit.mapTo(&dialog, edit.rect().center());
    QDragEnterEvent enters(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(dialog.windowHandle(), &enters);
    EXPECT_FALSE(enters.isAccepted());
    QDropEvent drops(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(dialog.windowHandle(), &drops);
    EXPECT_EQ(field.text(), "name");
    EXPECT_THAT(edits, testing::IsEmpty());
}

TEST_F(FieldTest, ATextThatNobodySetMeanwhileStaysAsTyped) {
    edit.selectAll();
    QTest::keyClicks(&edit, "red");
    other.setFocus();
    EXPECT_EQ(field.text(), "red");
}

TEST_F(FieldTest, AFieldThatOnlyHasTheFocusFollowsAtOnce) {
    field.setText("88");
    EXPECT_EQ(field.text(), "88");
}

TEST_F(FieldTest, TheFirstReturnEndsTheEditingTheSecondIsOk) {
    QTest::keyClicks(&edit, "300");
    field.setText("255");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(oks, 0);
    EXPECT_EQ(field.text(), "255");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(oks, 1);
}

TEST_F(FieldTest, EscapeClosesTheDialogOnce) {
    QTest::keyClicks(&edit, "3");
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_EQ(closes, 1);
}

TEST_F(FieldTest, ASearchFieldKeepsReturnAndEscapeClearsItFirst) {
    int returns = 0;
    field.whenReturnPressed([&] { ++returns; });
    QTest::keyClicks(&edit, "b");
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClick(&edit, Qt::Key_Enter);
    EXPECT_EQ(returns, 2);
    EXPECT_EQ(oks, 0);
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(closes, 0);
    EXPECT_THAT(edits, ElementsAre("b", ""));
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_EQ(closes, 1);
}

TEST_F(FieldTest, TheClearButtonIsAnEdit) {
    addClearButton(edit);
    auto* clear = edit.findChild<QToolButton*>();
    ASSERT_NE(clear, nullptr);
    EXPECT_FALSE(clear->isVisible());
    QTest::keyClicks(&edit, "x");
    EXPECT_TRUE(clear->isVisible());
    QTest::mouseClick(clear, Qt::LeftButton);
    EXPECT_THAT(edits, ElementsAre("x", ""));
    EXPECT_FALSE(clear->isVisible());
    EXPECT_TRUE(edit.hasFocus());
    QTest::keySequence(&edit, QKeySequence::Undo);
    EXPECT_EQ(field.text(), "x");
}

TEST_F(FieldTest, TheClearButtonsCrossIsPaintedInTheTextsColour) {
    addClearButton(edit);
    edit.setText("x");
    const QImage icon = edit.actions().front()->icon().pixmap(QSize(16, 16), 2.0).toImage();
    EXPECT_EQ(icon.size(), QSize(32, 32)); // sharp
    EXPECT_EQ(icon.pixelColor(16, 16), QApplication::palette().color(QPalette::Text));
    EXPECT_EQ(icon.pixelColor(16, 2).alpha(), 0);
}

TEST_F(FieldTest, LabelsShowTheirTextAndItsWholeAsATip) {
    QLabel label;
    LabelControl control(&label);
    control.setText("a name");
    EXPECT_EQ(control.text(), "a name");
    EXPECT_EQ(label.toolTip(), "a name");
}

TEST_F(FieldTest, LabelsTakeNothingForMarkup) {
    QLabel label;
    LabelControl control(&label);
    control.setText("a <b>name</b>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(control.text(), "a <b>name</b>");
    EXPECT_EQ(label.accessibleDescription(), "a <b>name</b>");
    EXPECT_FALSE(label.toolTip().contains("<b>"));
}

TEST_F(FieldTest, AFieldWhoseWidgetIsGoneDoesNothing) {
    auto* gone = new QLineEdit;
    FieldControl control(gone);
    delete gone;
    control.setText("x");
    EXPECT_EQ(control.text(), "");
    control.setHidden(true);
}

TEST_F(FieldTest, AFaultIsShownAndToldUntilItIsTakenBack) {
    CompactField marked(&dialog);
    marked.setAccessibleDescription("as ever");
    marked.resize(100, 24);
    const QImage plain = marked.grab().toImage();
    FieldControl control(&marked);
    control.setFault("no color");
    EXPECT_EQ(marked.accessibleDescription(), "no color");
    const QImage faulty = marked.grab().toImage();
    EXPECT_NE(plain.pixel(50, 0), faulty.pixel(50, 0)) << "a frame";
    EXPECT_NE(plain.pixel(90, 4), faulty.pixel(90, 4)) << "and a sign";
    control.setFault("");
    EXPECT_EQ(marked.accessibleDescription(), "as ever");
    EXPECT_EQ(marked.grab().toImage(), plain);
}

TEST_F(FieldTest, TheClickThatBringsTheFocusSelectsAllAndTheNextOneDoesNot) {
    auto* value = new CompactField(&dialog);
    value->setProperty("selectedByClick", true);
    value->setText("#336699");
    value->show();
    QTest::mouseClick(value, Qt::LeftButton, {}, {20, 12});
    EXPECT_EQ(value->selectedText(), "#336699");
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(value, Qt::LeftButton, {}, {20, 12});
    EXPECT_EQ(value->selectedText(), "");
}

} // namespace
