#pragma once

#include <QString>

class QFileDialog;
class QMessageBox;
class QPrintDialog;
class QWidget;

namespace chromalog {
class DrivenDialog;
}

namespace chromalog::drive {

/// The alert that waits, one of the toolkit's own included; null where there is none.
QMessageBox* openAlert(const DrivenDialog&);
void dismiss(QMessageBox&);
QString textOf(const QMessageBox&); ///< in one line

/// Answers a file panel as if the path had been typed into it and confirmed. Where the toolkit's panel would
/// refuse it (no such file, a folder), it is answered all the same: panels of other desktops, and files that
/// vanish between the choice and the reading, make such answers possible.
void answer(QFileDialog&, const QString& path);

/// The question of a file panel or print dialog whether to replace a file; null where it does not ask, or
/// only tells that it finds no such file. A script that names a file means it.
QMessageBox* replaceQuestion();
void agree(QMessageBox&);

/// The print dialog that is open, or null.
QPrintDialog* openPrintDialog();
/// Prints to the file from the open dialog; false where the dialog has no way to do so.
bool printToFile(QPrintDialog&, const QString& path);

/// Closes the topmost thing that stands before the dialog: a menu, an alert, a panel or another modal window.
/// False where there is nothing but `dialog` itself.
bool closeTopmost(const QWidget* dialog);

} // namespace chromalog::drive
