#include "qt/controls/field_control.h"

#include "qt/controls/compact_field.h"
#include "qt/controls/plain_text.h"
#include "qt/controls/status_label.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace chromalog {

FieldControl::FieldControl(QLineEdit* edit) : WidgetControl(edit) {
    edit->installEventFilter(this);
    edit->setAcceptDrops(false);
    connect(edit, &QLineEdit::textEdited, this, [this] {
        pending_.reset();
        edited_ = isFocusOfItsDialog();
        if (onEdit_) guarded(onEdit_);
    });
    // A window that comes back may have lost the focus to another widget meanwhile: nothing else tells.
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (widget_ && edited_ && !isFocusOfItsDialog()) guarded([this] { endEditing(); });
    });
}

/// The focus widget of a window stays it while another window is active, or the field's own menu is open.
bool FieldControl::isFocusOfItsDialog() const {
    return widget_ && widget_->window()->focusWidget() == widget_;
}

bool FieldControl::editing() const {
    return edited_ && isFocusOfItsDialog();
}

void FieldControl::setText(std::string_view text) {
    if (!widget_) return;
    if (editing()) {
        pending_ = toQt(text);
        return;
    }
    pending_.reset();
    const QString shown = toQt(text);
    if (shown == widget_->text()) return;
    widget_->setText(shown);
    widget_->setCursorPosition(0); // a long text shows its beginning
}

std::string FieldControl::text() const {
    return widget_ ? fromQt(widget_->text()) : std::string();
}

void FieldControl::setFault(std::string_view why) {
    if (auto* field = qobject_cast<CompactField*>(widget_.data())) field->setFault(toQt(why));
}

void FieldControl::endEditing() {
    const bool edited = std::exchange(edited_, false);
    if (const auto shown = std::exchange(pending_, std::nullopt)) widget_->setText(*shown);
    if (edited && onEndEditing_) onEndEditing_();
}

bool FieldControl::returnPressed() {
    if (!onReturn_ && !editing()) return false;
    endEditing();
    if (onReturn_)
        onReturn_();
    else
        widget_->selectAll();
    return true;
}

bool FieldControl::escapePressed() {
    if (!onReturn_ || widget_->text().isEmpty()) return false;
    widget_->clear();
    Q_EMIT widget_->textEdited(QString());
    return true;
}

namespace {
bool isUndoOrRedo(const QKeyEvent& key) {
    const auto held = key.modifiers();
    if (key.key() == Qt::Key_Z)
        return held == Qt::ControlModifier || held == (Qt::ControlModifier | Qt::ShiftModifier);
    return key.key() == Qt::Key_Y && held == Qt::ControlModifier;
}
} // namespace

/// Undo and redo are the field's while it is typed in; else the field would swallow the lists'.
bool FieldControl::leavesToTheDialog(QKeyEvent& key) const {
    if (!isUndoOrRedo(key)) return false;
    key.setAccepted(editing());
    return true;
}

bool FieldControl::eventFilter(QObject*, QEvent* event) try {
    if (event->type() == QEvent::ShortcutOverride) return leavesToTheDialog(*static_cast<QKeyEvent*>(event));
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return returnPressed();
    if (onStep_ && (key == Qt::Key_Up || key == Qt::Key_Down))
        return onStep_(key == Qt::Key_Up ? -1 : 1), true;
    return key == Qt::Key_Escape && escapePressed();
} catch (...) {
    mishap();
    return event->type() == QEvent::KeyPress; // a Return that failed does not press OK
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
    if (auto* status = qobject_cast<StatusLabel*>(widget_.data())) status->announce();
}

std::string LabelControl::text() const {
    return widget_ ? fromQt(widget_->text()) : std::string();
}

} // namespace chromalog
