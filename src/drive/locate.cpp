#include "drive/locate.h"

#include "drive/command_error.h"
#include "drive/unfold.h"
#include "qt/driven_dialog.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>

#include <algorithm>

namespace chromalog::drive {
namespace {

bool isReachable(const QWidget& widget) {
    return widget.isVisible() && !isBlocked(widget);
}

/// The windows above the widget in the tree of windows; a window is not blocked by a modal one above it.
bool isBelow(const QWidget& widget, const QWidget* modal) {
    for (const QWidget* up = &widget; up; up = up->parentWidget())
        if (up == modal) return true;
    return false;
}

} // namespace

bool sends(const QObject& object, const QString& operation) {
    const QString action = object.property("action").toString();
    return !action.isEmpty() && (action == operation || action == operation + ':');
}

bool isBlocked(const QWidget& widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal && !isBelow(widget, modal);
}

QList<QDialog*> forms() {
    QList<QDialog*> found;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits(kDialogClass)) found.append(qobject_cast<QDialog*>(window));
    const auto rank = [](const QDialog* form) { return form->isVisible() ? isBlocked(*form) : 2; };
    std::stable_sort(found.begin(), found.end(), [&](auto* a, auto* b) { return rank(a) < rank(b); });
    return found;
}

QWidget* findOutlet(const QString& name) {
    for (QDialog* form : forms())
        if (QWidget* outlet = outletIn(*form, name)) return outlet;
    return nullptr;
}

QWidget& reachableOutlet(const std::string& name) {
    QWidget* widget = findOutlet(QString::fromStdString(name));
    if (!widget) throw CommandError{"unknown outlet '" + name + "'"};
    if (!widget->isVisible()) unfold(*widget);
    if (!widget->isVisible()) throw CommandError{name + " is not on the screen"};
    if (isBlocked(*widget)) throw CommandError{name + " is behind a modal window"};
    return *widget;
}

QWidget* controlSending(const QString& operation) {
    for (QDialog* form : forms())
        for (QWidget* widget : form->findChildren<QWidget*>())
            if (widget->window() == form && sends(*widget, operation) && isReachable(*widget)) return widget;
    return nullptr;
}

MenuItem itemSending(const QString& operation) {
    for (QDialog* form : forms())
        for (QMenu* menu : form->findChildren<QMenu*>())
            for (QAction* action : menu->actions())
                if (sends(*action, operation)) return {menu, action};
    return {};
}

} // namespace chromalog::drive
