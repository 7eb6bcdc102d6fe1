// The quiet line at the foot of the dialog.
#include "qt/dialog_fixture.h"

#include "qt/controls/simple_controls.h"
#include "qt/controls/status_label.h"

#include <QAccessible>
#include <QListWidget>

#include <map>
#include <memory>

using namespace chromalog;
using namespace chromalog::test;
using About = StatusLine::About;

namespace {

class StatusInDialog : public WholeDialogTest {
  protected:
    void SetUp() override { makeDialog(); }
    /// Where every widget of the dialog stands.
    std::map<const QWidget*, QRect> places() {
        QWidget* dialog = desktop.widget("chromalogWindow");
        dialog->grab(QRect(0, 0, 1, 1)); // lays everything out
        std::map<const QWidget*, QRect> all;
        for (const QWidget* widget : dialog->findChildren<QWidget*>())
            all[widget] = widget->geometry();
        all[dialog] = QRect(QPoint(), dialog->minimumSizeHint());
        return all;
    }
    StatusLabel* label() { return qobject_cast<StatusLabel*>(desktop.widget("statusLine")); }
};

TEST_F(StatusInDialog, AnyTextIsShownAsItStandsAndMovesNothing) {
    ASSERT_NE(label(), nullptr);
    const auto before = places();
    const std::string text = "<img src='file:///dev/zero'> " + std::string(3000, 'x');
    desktop.statusLine().say(About::files, text);
    EXPECT_EQ(label()->text().toStdString(), text);
    EXPECT_EQ(label()->textFormat(), Qt::PlainText);
    EXPECT_EQ(places(), before);
    EXPECT_GT(label()->width(), 200) << "room for a few words";
    EXPECT_EQ(label()->focusPolicy(), Qt::NoFocus);
}

TEST_F(StatusInDialog, AssistiveTechnologyIsToldOfANotificationOfThatName) {
    desktop.statusLine().say(About::files, "something was kept");
    const auto* told = QAccessible::queryAccessibleInterface(label());
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Notification);
    EXPECT_EQ(told->text(QAccessible::Name), "something was kept");
}

TEST_F(StatusInDialog, AfterTheDialogNobodyIsTold) {
    controler.reset();
    desktop.statusLine().say(About::files, "too late");
    EXPECT_EQ(desktop.statusLine().text(), "too late");
}

class RowListTest : public DesktopTest {};

TEST_F(RowListTest, RowsArePlainTextAndTheFirstIsSelected) {
    QListWidget widget;
    RowListControl list(&widget);
    EXPECT_EQ(list.selectedRow(), -1);
    list.setRows({"<b>one</b>", "two"});
    EXPECT_EQ(widget.item(0)->text(), "<b>one</b>");
    EXPECT_EQ(list.selectedRow(), 0);
    widget.setCurrentRow(1);
    EXPECT_EQ(list.selectedRow(), 1);
    list.setRows({});
    EXPECT_EQ(widget.count(), 0);
    EXPECT_EQ(list.selectedRow(), -1);
}

} // namespace
