#pragma once

class QMenu;
class QString;
class QWidget;

namespace chromalog::drive {

/// The visible button that opens the menu, or null.
QWidget* buttonOf(const QMenu&);

/// Where the widget stands in a section that is folded, opens it as a person would: by its menu's button and
/// item. Nothing where it is hidden for another reason.
void unfold(QWidget&);

/// A control in a folded section that sends the operation, made visible; null where there is none.
QWidget* unfoldedControlSending(const QString& operation);

} // namespace chromalog::drive
