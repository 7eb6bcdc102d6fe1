#include "drive/prompts.h"

#include "drive/locate.h"
#include "drive/pointer.h"
#include "qt/driven_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>

namespace chromalog::drive {

QMessageBox* openAlert(const DrivenDialog& dialog) {
    if (QMessageBox* alert = dialog.openAlert()) return alert;
    auto* own = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return own && own != replaceQuestion() ? own : nullptr;
}

void dismiss(QMessageBox& alert) {
    QAbstractButton* button = alert.defaultButton();
    if (!button) button = alert.buttons().value(0);
    if (button)
        click(middleOf(*button));
    else
        alert.reject();
}

QString textOf(const QMessageBox& alert) {
    return (alert.text() + ' ' + alert.informativeText()).simplified();
}

void answer(QFileDialog& panel, const QString& path) {
    const QFileInfo file(QDir::current(), path);
    auto* name = panel.findChild<QLineEdit*>("fileNameEdit");
    if (name) name->setText(file.absoluteFilePath());
    const bool opens = panel.acceptMode() == QFileDialog::AcceptOpen;
    const bool refused = file.isDir() || (opens && !file.exists());
    if (refused)
        static_cast<QDialog&>(panel).done(QDialog::Accepted);
    else
        static_cast<QDialog&>(panel).accept();
}

QMessageBox* replaceQuestion() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return nullptr;
    const QWidget* asker = box->parentWidget();
    const bool panel = qobject_cast<const QFileDialog*>(asker) || qobject_cast<const QPrintDialog*>(asker);
    return panel && box->button(QMessageBox::Yes) ? box : nullptr;
}

void agree(QMessageBox& question) {
    click(middleOf(*question.button(QMessageBox::Yes)));
}

QPrintDialog* openPrintDialog() {
    return qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
}

bool printToFile(QPrintDialog& dialog, const QString& path) {
    auto* printers = dialog.findChild<QComboBox*>("printers");
    auto* name = dialog.findChild<QLineEdit*>("filename");
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    if (!printers || !name || !buttons) return false;
    printers->setCurrentIndex(printers->count() - 1); // the last one prints to a PDF file
    name->setText(QFileInfo(QDir::current(), path).absoluteFilePath());
    for (QAbstractButton* button : buttons->buttons()) {
        if (buttons->buttonRole(button) != QDialogButtonBox::AcceptRole) continue;
        click(middleOf(*button));
        return true;
    }
    return false;
}

bool closeTopmost(const QWidget* dialog) {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup->close();
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == dialog) return false;
    if (auto* question = replaceQuestion()) return question->reject(), true;
    if (auto* alert = qobject_cast<QMessageBox*>(modal)) return dismiss(*alert), true;
    if (QWidget* ok = controlSending("ok:")) return click(middleOf(*ok)), true;
    if (auto* other = qobject_cast<QDialog*>(modal)) return other->reject(), true;
    return modal->close();
}

} // namespace chromalog::drive
