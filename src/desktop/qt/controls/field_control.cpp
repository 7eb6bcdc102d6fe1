#include "desktop/qt/controls/field_control.h"

#include "desktop/qt/controls/plain_text.h"
#include "desktop/qt/convert.h"

#include <QKeyEvent>

namespace chromalog {

FieldControl::FieldControl(QLineEdit* edit) : WidgetControl(edit) {
    edit->installEventFilter(this);
    QObject::connect(edit, &QLineEdit::textEdited, this, [this] {
        editing_ = true;
        if (onEdit) onEdit();
    });
}

void FieldControl::setText(std::string_view text) {
    if (!widget_) return;
    if (editing_) {
        pending_ = toQt(text);
    } else if (const QString shown = toQt(text); shown != widget_->text()) {
        widget_->setText(shown);
        widget_->setCursorPosition(0); // a long text shows its beginning
    }
}

std::string FieldControl::text() const {
    return widget_ ? fromQt(widget_->text()) : std::string();
}

void FieldControl::endEditing() {
    editing_ = false;
    if (pending_) widget_->setText(*pending_);
    pending_.reset();
}

bool FieldControl::returnPressed() {
    if (!onReturn && !editing_) return false;
    endEditing();
    if (onReturn)
        onReturn();
    else
        widget_->selectAll();
    return true;
}

bool FieldControl::escapePressed() {
    if (!onReturn || widget_->text().isEmpty()) return false;
    widget_->clear();
    if (onEdit) onEdit();
    return true;
}

bool FieldControl::eventFilter(QObject*, QEvent* event) {
    // The field's own menu takes the keyboard for a moment: what is pasted from it is still the same edit.
    const bool leaves = event->type() == QEvent::FocusOut &&
                        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
    if (leaves) endEditing();
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return returnPressed();
    return key == Qt::Key_Escape && escapePressed();
}

LabelControl::LabelControl(QLabel* label) : WidgetControl(label) {
    label->setTextFormat(Qt::PlainText);
}

void LabelControl::setText(std::string_view text) {
    if (!widget_) return;
    const QString shown = toQt(text);
    widget_->setText(shown);
    widget_->setToolTip(plainToolTip(shown));
    widget_->setAccessibleDescription(shown); // left out, it would be the tool tip with its escapes
}

std::string LabelControl::text() const {
    return widget_ ? fromQt(widget_->text()) : std::string();
}

} // namespace chromalog
