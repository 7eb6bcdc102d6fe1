// What assistive technology is told of the dialog, and whether everything in it can be reached, hit and read.
#include "qt/keyboard_fixture.h"

#include "qt/controls/stepper_widget.h"
#include "qt/shortcut_sheet.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <map>
#include <set>

using namespace chromalog;
using namespace chromalog::test;
using testing::Contains;
using testing::IsEmpty;

namespace {

std::string nameOf(const QAccessibleInterface& node) {
    return node.text(QAccessible::Name).toStdString();
}

/// The node and all below it that a person could see.
void collect(QAccessibleInterface* node, std::vector<QAccessibleInterface*>& found) {
    if (!node || node->state().invisible) return;
    found.push_back(node);
    for (int i = 0; i < node->childCount(); ++i)
        collect(node->child(i), found);
}

std::vector<QAccessibleInterface*> treeOf(QWidget& window) {
    std::vector<QAccessibleInterface*> found;
    collect(QAccessible::queryAccessibleInterface(&window), found);
    return found;
}

bool isControl(QAccessible::Role role) {
    static const std::set<QAccessible::Role> controls = {
        QAccessible::Button,       QAccessible::ButtonMenu,   QAccessible::CheckBox, QAccessible::RadioButton,
        QAccessible::EditableText, QAccessible::Slider,       QAccessible::SpinBox,  QAccessible::ComboBox,
        QAccessible::List,         QAccessible::ColorChooser, QAccessible::Chart,    QAccessible::ListItem};
    return controls.count(role) != 0;
}

/// All that Tab walks from where the focus is.
std::set<const QObject*> walkedIn(QWidget& window) {
    std::set<const QObject*> walked;
    while (window.focusWidget() && walked.insert(window.focusWidget()).second)
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    return walked;
}

/// What is wrong with the window for a person who neither sees nor points; a line a fault.
std::vector<std::string> faultsOf(QWidget& window) {
    std::vector<std::string> faults;
    const auto walked = walkedIn(window);
    for (QAccessibleInterface* node : treeOf(window)) {
        const QObject* object = node->object();
        const std::string who =
            (object ? object->objectName().toStdString() : "a row") + " '" + nameOf(*node) + "'";
        const bool focusable = node->state().focusable;
        if (focusable && !isControl(node->role()) && node->role() != QAccessible::Dialog &&
            !object->inherits("QAbstractScrollArea"))
            faults.push_back(who + " takes the focus and has no role");
        if (!isControl(node->role()) && !focusable) continue;
        if (nameOf(*node).empty()) faults.push_back(who + " has no name");
        bool reached = false; // itself, or by the keys of what it is a part of
        for (QAccessibleInterface* up = node; up && !reached; up = up->parent())
            reached = up->object() && walked.count(up->object());
        const bool disabled = node->state().disabled;
        if (!reached && !disabled && isControl(node->role()))
            faults.push_back(who + " is not reached by Tab");
    }
    return faults;
}

TEST_F(KeyboardTest, EveryControlHasARoleANameAndAWayByKeys) {
    for (const char* name : {"undoButton", "redoButton", "seachStep1", "seachStep2"})
        widget(name).setEnabled(true);
    widget("firstR").setFocus();
    EXPECT_THAT(faultsOf(window()), IsEmpty());
    find<QAbstractButton>("toneOrDegrade").click();
    widget("firstR").setFocus();
    EXPECT_THAT(faultsOf(window()), IsEmpty()) << "with the tones";
}

TEST_F(KeyboardTest, TheWalkFindsWhatIsMissing) {
    QPushButton unnamed(&window());
    QWidget roleless(&window());
    roleless.setFocusPolicy(Qt::StrongFocus);
    QPushButton unreached("Unreached", &window());
    unreached.setFocusPolicy(Qt::NoFocus);
    for (QWidget* widget : std::initializer_list<QWidget*>{&unnamed, &roleless, &unreached}) {
        widget->setObjectName("caption" + QString::number(reinterpret_cast<quintptr>(widget)));
        widget->show();
    }
    widget("firstR").setFocus();
    EXPECT_THAT(faultsOf(window()),
                testing::IsSupersetOf({testing::EndsWith("'' has no name"), testing::EndsWith("has no role"),
                                       testing::EndsWith("'Unreached' is not reached by Tab")}));
}

TEST_F(KeyboardTest, TheSheetOfKeysIsReadAsWell) {
    showShortcutSheet(window());
    auto* sheet = window().findChild<QDialog*>("shortcutSheet");
    ASSERT_TRUE(QTest::qWaitForWindowActive(sheet));
    EXPECT_THAT(faultsOf(*sheet), IsEmpty());
}

TEST_F(KeyboardTest, GroupsAreNamedOnce) {
    std::vector<std::string> groups;
    for (const QAccessibleInterface* node : treeOf(window()))
        if (node->role() == QAccessible::Grouping) groups.push_back(nameOf(*node));
    for (const char* name :
         {"List 1", "List 2", "First color", "Second color", "Colors: first, offered, second",
          "Tones and gradient", "Harmonies of the second color", "Nearest swatch in list 1",
          "History of the lists", "Page and view"})
        EXPECT_EQ(std::count(groups.begin(), groups.end(), name), 1) << name;
    EXPECT_EQ(std::set(groups.begin(), groups.end()).size(), groups.size());
}

QAccessibleInterface& readingOf(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

TEST_F(KeyboardTest, EitherListHasANameAndASelectionOfRows) {
    EXPECT_EQ(nameOf(readingOf(widget("swatch1"))), "Swatch list 1");
    EXPECT_EQ(nameOf(readingOf(widget("swatch1Name"))), "Name of list 1");
    EXPECT_EQ(nameOf(readingOf(widget("swatch2Name"))), "Name of list 2");
    controler->panels().two.view.setName("nord.aco");
    QAccessibleInterface& list = readingOf(widget("swatch2"));
    EXPECT_EQ(nameOf(list), "Swatch list 2 nord.aco");
    EXPECT_EQ(list.role(), QAccessible::List);
    QAccessibleTableInterface* table = list.tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->columnCount(), 1);
    EXPECT_TRUE(table->selectRow(2));
    EXPECT_EQ(controler->panels().two.view.getSelected(), 2);
    EXPECT_EQ(table->selectedRows(), QList<int>{2});
    EXPECT_TRUE(table->isRowSelected(2));
    EXPECT_FALSE(table->isRowSelected(0));
    ASSERT_EQ(table->selectedCells().size(), 1);
    QAccessibleInterface* row = table->selectedCells().first();
    EXPECT_EQ(nameOf(*row), "c&");
    ASSERT_NE(row->tableCellInterface(), nullptr);
    EXPECT_EQ(row->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(row->tableCellInterface()->table(), &list);
    EXPECT_TRUE(row->tableCellInterface()->isSelected());
    EXPECT_FALSE(table->selectRow(3)) << "past the last one";
    EXPECT_FALSE(table->selectRow(-1));
    EXPECT_EQ(table->cellAt(0, 1), nullptr);
    EXPECT_EQ(readingOf(widget("chromaView")).tableInterface(), nullptr);
}

TEST_F(KeyboardTest, UndoAndRedoAreSaidInPlaceOfTheStatus) {
    QAccessibleInterface& status = readingOf(widget("statusLine"));
    EXPECT_EQ(status.role(), QAccessible::Notification);
    widget("swatch1").setFocus();
    strike(Qt::Key_Delete);
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(nameOf(status), "Undone. List 1: 5. List 2: 3");
    strike(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(nameOf(status), "Redone. List 1: 4. List 2: 3");
    EXPECT_EQ(find<QLabel>("statusLine").text(), "") << "what is shown stays";
    desktop.statusLine().say(StatusLine::About::files, "nord.aco could not be read");
    EXPECT_EQ(nameOf(status), "nord.aco could not be read");
}

TEST_F(KeyboardTest, AStepperIsASpinButtonAndTheMenusButtonSaysSo) {
    auto& stepper = find<StepperWidget>("seachStep1");
    stepper.setEnabled(true);
    stepper.configure(0, 4, 1, 1, true);
    QAccessibleInterface& reading = readingOf(stepper);
    EXPECT_EQ(reading.role(), QAccessible::SpinBox);
    ASSERT_NE(reading.valueInterface(), nullptr);
    EXPECT_EQ(reading.valueInterface()->currentValue().toDouble(), 1);
    EXPECT_EQ(reading.valueInterface()->maximumValue().toDouble(), 4);
    reading.valueInterface()->setCurrentValue(3);
    EXPECT_EQ(stepper.value(), 3);
    reading.valueInterface()->setCurrentValue(-9);
    EXPECT_EQ(stepper.value(), 0) << "no way round past the end";
    QAccessibleInterface& menu = readingOf(widget("viewMenuButton"));
    EXPECT_EQ(menu.role(), QAccessible::ButtonMenu);
    EXPECT_EQ(nameOf(menu), "View");
    EXPECT_TRUE(menu.state().hasPopup);
    EXPECT_THAT(menu.actionInterface()->actionNames(),
                Contains(QAccessibleActionInterface::showMenuAction()));
}

TEST_F(KeyboardTest, EveryTargetIsTwentyFourPixelsHighAndWide) {
    const QSize sizes[] = {{960, 540}, {1280, 760}};
    for (const QSize size : sizes) {
        window().resize(size);
        window().grab(QRect(0, 0, 1, 1));
        for (QWidget* control : window().findChildren<QWidget*>()) {
            const bool target =
                qobject_cast<QAbstractButton*>(control) || (control->focusPolicy() & Qt::ClickFocus);
            if (!target || !control->isVisible() || control->objectName().startsWith("qt_edit")) continue;
            if (qobject_cast<QLineEdit*>(control->parentWidget()))
                continue; // the field itself is the larger target
            EXPECT_GE(std::min(control->width(), control->height()), 24)
                << control->objectName().toStdString() << ' ' << control->width() << 'x' << control->height();
        }
    }
}

} // namespace
