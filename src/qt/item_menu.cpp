#include "qt/item_menu.h"

#include "qt/convert.h"
#include "qt/mishap.h"

#include <QMenu>

namespace chromalog {

namespace {

/// A title is no mnemonic's: what stands in it may be a name from outside.
QString plainTitle(const MenuItem& item) {
    return toQt(item.title).replace('&', "&&");
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
    if (!item.checked) return;
    action->setCheckable(true);
    action->setChecked(*item.checked);
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
