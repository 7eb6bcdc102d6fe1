#pragma once

#include <QList>
#include <QString>
#include <QWidget>

class QAction;
class QDialog;
class QMenu;

namespace chromalog::drive {

/// Every loaded form's window, the one that has the input first, then those on the screen.
QList<QDialog*> forms();

/// The outlet of that name in any form; null where there is none.
QWidget* findOutlet(const QString& name);

/// The outlet, which must be one that a person could reach: on the screen and not behind a modal window.
/// Throws CommandError.
QWidget& reachableOutlet(const std::string& name);

/// Whether a control or menu item sends the operation. Its closing colon may be left out.
bool sends(const QObject&, const QString& operation);

/// The control on the screen that sends the operation; null where there is none that could be reached.
QWidget* controlSending(const QString& operation);

/// A menu item and the menu that holds it.
struct MenuItem {
    QMenu* menu = nullptr;
    QAction* action = nullptr;
};

/// The item that sends the operation, in any menu of the forms; empty where there is none.
MenuItem itemSending(const QString& operation);

/// Whether a modal window stands between a person and the widget.
bool isBlocked(const QWidget&);

} // namespace chromalog::drive
