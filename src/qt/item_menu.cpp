#include "qt/item_menu.h"

#include "qt/convert.h"
#include "qt/mishap.h"

#include <QActionGroup>
#include <QMenu>

namespace chromalog {

namespace {

/// A title is no mnemonic's: what stands in it may be a name from outside.
QString plainTitle(const MenuItem& item) {
    return toQt(item.title).replace('&', "&&");
}

/// Of the choices of a menu, one is taken.
void showChecked(QMenu& menu, QAction& action, const MenuItem& item) {
    action.setCheckable(true);
    if (!item.alone) {
        auto* group = menu.findChild<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly);
        if (!group) group = new QActionGroup(&menu);
        action.setActionGroup(group);
    }
    action.setChecked(*item.checked);
}

void addItem(QMenu& menu, const MenuItem& item) {
    if (item.title.empty()) {
        menu.addSeparator();
        return;
    }
    QAction* action = nullptr;
    if (!item.items.empty()) {
        QMenu* inner = menu.addMenu(plainTitle(item));
        addItems(*inner, item.items);
        action = inner->menuAction();
    } else {
        action = menu.addAction(plainTitle(item));
        QObject::connect(action, &QAction::triggered, &menu, [run = item.run] {
            guarded([&run] {
                if (run) run();
            });
        });
    }
    action->setEnabled(item.enabled);
    action->setProperty("action", toQt(item.action));
    if (item.checked) showChecked(menu, *action, item);
}

} // namespace

void addItems(QMenu& menu, const MenuItems& items) {
    for (const MenuItem& item : items)
        addItem(menu, item);
}

QMenu* makeMenu(const MenuItems& items, QWidget& parent) {
    auto* menu = new QMenu(&parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addItems(*menu, items);
    return menu;
}

} // namespace chromalog
