// Commands of the pointer: clicks, drags, menus.
#include "drive/commands.h"

#include "drive/command_error.h"
#include "drive/hand_over.h"
#include "drive/keyboard.h"
#include "drive/locate.h"
#include "drive/unfold.h"
#include "qt/driven_dialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QRadioButton>

#include <algorithm>
#include <utility>

namespace chromalog::drive {
namespace {

PointerTarget targetAt(const Command& c, std::size_t outlet) {
    return targetOf(reachableOutlet(c.text(outlet)), c.point(outlet + 1));
}

/// Where a person would click the control: in the middle; check boxes take clicks near their mark alone.
PointerTarget clickTarget(QWidget& control) {
    const bool mark = qobject_cast<QCheckBox*>(&control) || qobject_cast<QRadioButton*>(&control);
    return mark ? boxOf(control) : middleOf(control);
}

/// Of the menu itself, or of one that an item of it opens: then that item.
QAction* itemOf(const QMenu& menu, const QString& operation) {
    for (QAction* action : menu.actions())
        if (sends(*action, operation) || (action->menu() && itemOf(*action->menu(), operation)))
            return action;
    return nullptr;
}

void choose(QMenu& menu, const QString& operation) {
    QAction* item = itemOf(menu, operation);
    if (!item) throw CommandError{"no item of the open menu sends '" + fromQt(operation) + "'"};
    if (!item->isEnabled()) throw CommandError{"the menu item for '" + fromQt(operation) + "' is disabled"};
    QMenu* inner = sends(*item, operation) ? nullptr : item->menu();
    click({&menu, QRectF(menu.actionGeometry(item)).center()});
    if (!inner) return;
    const Qt::Key opens = menu.isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    if (!inner->isVisible()) strike(menu, {opens, Qt::NoModifier, {}}); // by the pointer it waits a little
    if (!inner->isVisible()) throw CommandError{"the menu with '" + fromQt(operation) + "' did not open"};
    choose(*inner, operation);
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

bool isList(const QWidget& outlet) {
    return outlet.objectName() == "swatch1" || outlet.objectName() == "swatch2";
}

/// The list that a menu of the dialog belongs to.
QString ownerOf(const QMenu& menu) {
    return menu.objectName().endsWith('2') ? "swatch2" : "swatch1";
}

} // namespace

void Commands::perform(const Command& c) {
    struct Row {
        Verb verb;
        void (Commands::*run)(const Command&);
    };
    static constexpr Row kRows[] = {
        {Verb::click, &Commands::clickAt},
        {Verb::clickwith, &Commands::clickHolding},
        {Verb::rclick, &Commands::rightClickAt},
        {Verb::dclick, &Commands::doubleClickAt},
        {Verb::clip, &Commands::clip},
        {Verb::dropfile, &Commands::dropFile},
        {Verb::dropfiles, &Commands::dropFile},
        {Verb::press, &Commands::press},
        {Verb::drag, &Commands::drag},
        {Verb::sweep, &Commands::sweep},
        {Verb::drop, &Commands::drop},
        {Verb::type, &Commands::type},
        {Verb::append, &Commands::append},
        {Verb::key, &Commands::key},
        {Verb::set, &Commands::set},
        {Verb::menu, &Commands::menu},
        {Verb::paper, &Commands::paper},
        {Verb::shot, &Commands::shot},
        {Verb::picture, &Commands::picture},
        {Verb::state, &Commands::state},
        {Verb::ok, &Commands::ok},
        {Verb::cancel, &Commands::cancel},
    };
    ++performed_;
    const auto* const row = std::ranges::find(kRows, c.verb, &Row::verb);
    if (row != std::end(kRows)) (this->*row->run)(c);
}

bool Commands::leavesMenuOpen(const Command& c) const {
    switch (c.verb) {
    case Verb::menu:
    case Verb::key:
    case Verb::state:
    case Verb::shot:
    case Verb::wait:
        return true;
    case Verb::press:
        return openMenu() && itemOf(*openMenu(), toQt(c.text(0)));
    default:
        return false;
    }
}

void Commands::clickWith(const PointerTarget& target, Qt::KeyboardModifiers held) {
    const auto before = dialog_.keyboard();
    if (held) dialog_.keyboard() = [held] { return held; };
    click(target, held);
    dialog_.keyboard() = before;
}

void Commands::clickAt(const Command& c) {
    clickWith(targetAt(c, 0), c.has(3) ? Qt::AltModifier : Qt::NoModifier);
}

void Commands::clickHolding(const Command& c) {
    clickWith(targetAt(c, 1), c.text(0) == "shift" ? Qt::ShiftModifier : Qt::ControlModifier);
}

void Commands::doubleClickAt(const Command& c) {
    doubleClick(targetAt(c, 0));
}

/// A view opens its menu at the press, other controls when the window system asks for one. A menu that opened
/// took the release as well.
void Commands::rightClick(const PointerTarget& target) {
    const auto before = std::pair(performed_, waitingFor_);
    const auto menuCame = [&] {
        return std::pair(performed_, waitingFor_) != before || QApplication::activePopupWidget();
    };
    drive::press(target, Qt::RightButton, Qt::NoModifier);
    if (!menuCame()) askForMenu(target);
    if (!menuCame()) drive::release(target, Qt::RightButton, Qt::NoModifier);
}

void Commands::rightClickAt(const Command& c) {
    rightClick(targetAt(c, 0));
}

void Commands::press(const Command& c) {
    if (findOutlet(toQt(c.text(0))))
        clickWith(clickTarget(reachableOutlet(c.text(0))), c.has(1) ? Qt::AltModifier : Qt::NoModifier);
    else
        pressOperation(toQt(c.text(0)), c.has(1));
}

void Commands::pressOperation(const QString& operation, bool alt) {
    const auto held = alt ? Qt::AltModifier : Qt::NoModifier;
    if (QWidget* control = controlSending(operation)) return clickWith(clickTarget(*control), held);
    if (QMenu* open = openMenu(); open && itemOf(*open, operation)) return choose(*open, operation);
    const auto [menu, action] = itemSending(operation);
    if (QWidget* button = menu ? buttonOf(*menu) : nullptr) return chooseFromButton(*button, operation);
    if (menu) return openContextMenu(reachableOutlet(fromQt(ownerOf(*menu))), operation);
    if (QWidget* folded = unfoldedControlSending(operation)) return clickWith(clickTarget(*folded), held);
    throw CommandError{"no outlet and no visible control or menu item for '" + fromQt(operation) + "'"};
}

void Commands::pressEither(const QString& operation, const QString& other) {
    QWidget* control = controlSending(operation);
    if (!control) control = controlSending(other);
    if (!control) throw CommandError{"no visible control sends '" + fromQt(operation) + "'"};
    clickWith(clickTarget(*control), Qt::NoModifier);
}

void Commands::ok(const Command&) {
    pressEither("okPressed:", "ok:");
}
void Commands::cancel(const Command&) {
    pressEither("cancelPressed:", "cancel:");
}

void Commands::menu(const Command& c) {
    const QString operation = toQt(c.text(1));
    QWidget& outlet = reachableOutlet(c.text(0));
    if (QMenu* open = openMenu()) return choose(*open, operation);
    openContextMenu(outlet, operation);
}

/// A right click on the selected row opens a list's menu without selecting another one; elsewhere it goes to
/// the middle. The item is chosen from the menu's own loop, before the click returns.
void Commands::openContextMenu(QWidget& outlet, const QString& operation) {
    const Rect row = dialog_.selectedRow(outlet);
    const double y = std::clamp(row.y + row.h / 2, 0.0, outlet.height() - 1.0);
    waitingFor_ = operation;
    rightClick(isList(outlet) ? targetOf(outlet, {outlet.width() / 2.0, y}) : middleOf(outlet));
    if (std::exchange(waitingFor_, std::nullopt))
        throw CommandError{fromQt(outlet.objectName()) + " opened no context menu"};
}

void Commands::chooseFromButton(QWidget& button, const QString& operation) {
    click({&button, button.property(kMenuSpot).toPointF()});
    QMenu* open = openMenu();
    if (!open) throw CommandError{fromQt(button.objectName()) + " opened no menu"};
    choose(*open, operation);
}

bool Commands::chooseWaitingItem() {
    QMenu* open = openMenu();
    if (!waitingFor_ || !open) return false;
    choose(*open, *std::exchange(waitingFor_, std::nullopt));
    return true;
}

void Commands::drag(const Command& c) {
    const PointerTarget from = targetAt(c, 0);
    QWidget& target = reachableOutlet(c.text(3));
    const auto to = [&target, at = c.point(4)] { return targetOf(target, at); };
    HandOver handOver(dialog_.dragLoop(), to);
    drive::press(from, Qt::LeftButton, Qt::NoModifier);
    const QPointF beyond = from.at + QPointF(QApplication::startDragDistance(), 0);
    moveTo({from.widget, beyond}, Qt::LeftButton, Qt::NoModifier);
    if (handOver.happened() || !from.widget) return; // a drag takes the release with it
    const PointerTarget end = to();
    const QPointF at = from.widget->mapFromGlobal(end.widget->mapToGlobal(end.at));
    moveTo({from.widget, at}, Qt::LeftButton, Qt::NoModifier);
    if (!handOver.happened()) drive::release({from.widget, at}, Qt::LeftButton, Qt::NoModifier);
}

void Commands::sweep(const Command& c) {
    QWidget& outlet = reachableOutlet(c.text(0));
    const Point from = c.point(1), to = c.point(3);
    const double steps = c.number(5);
    const PointerTarget start = targetOf(outlet, from);
    const auto at = [&](double step) {
        const Point p{from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps};
        return PointerTarget{start.widget, start.widget->mapFrom(&outlet, widgetPoint(outlet, p))};
    };
    HandOver handOver(dialog_.dragLoop(), [&] { return targetOf(outlet, to); });
    drive::press(start, Qt::LeftButton, Qt::NoModifier);
    for (double step = 1; step <= steps && !handOver.happened() && start.widget; ++step)
        moveTo(at(step), Qt::LeftButton, Qt::NoModifier);
    if (!handOver.happened() && start.widget) drive::release(at(steps), Qt::LeftButton, Qt::NoModifier);
}

} // namespace chromalog::drive
