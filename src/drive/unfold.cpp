#include "drive/unfold.h"

#include "drive/locate.h"
#include "drive/pointer.h"
#include "qt/driven_dialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QMenu>

namespace chromalog::drive {
namespace {

/// The unchecked item that shows the box.
bool folds(const QAction& item, const QString& box) {
    const QStringList boxes = item.property(kShows).toString().split(' ');
    return !item.isChecked() && !box.isEmpty() && boxes.contains(box);
}

void openSection(const QWidget& box) {
    for (QMenu* menu : box.window()->findChildren<QMenu*>())
        for (QAction* item : menu->actions()) {
            QWidget* button = folds(*item, box.objectName()) ? buttonOf(*menu) : nullptr;
            if (!button || isBlocked(*button)) continue;
            click({button, button->property(kMenuSpot).toPointF()});
            click({menu, QRectF(menu->actionGeometry(item)).center()});
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        }
}

} // namespace

QWidget* buttonOf(const QMenu& menu) {
    for (auto* button : menu.parentWidget()->window()->findChildren<QAbstractButton*>())
        if (button->property(kMenuName).toString() == menu.objectName() && button->isVisible()) return button;
    return nullptr;
}

void unfold(QWidget& widget) {
    for (const QWidget* up = &widget; up && !up->isWindow(); up = up->parentWidget())
        if (up->isHidden()) openSection(*up);
}

QWidget* unfoldedControlSending(const QString& operation) {
    for (QDialog* form : forms())
        for (QWidget* widget : form->findChildren<QWidget*>()) {
            if (widget->isVisible() || !sends(*widget, operation)) continue;
            unfold(*widget);
            if (widget->isVisible()) return widget;
        }
    return nullptr;
}

} // namespace chromalog::drive
