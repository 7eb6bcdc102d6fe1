#include "qt/name_editor.h"

#include "base/translated.h"
#include "qt/controls/plain_text.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTextCharFormat>
#include <QToolTip>

#include <utility>

namespace chromalog {

namespace {

constexpr const char* kName = "nameEditor";

/// Letters that would become others, as the toolkit wants ranges of a field marked: from the cursor on.
QList<QInputMethodEvent::Attribute> lostLetters(const QString& text, int cursor, const TextEdit& edit) {
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(Qt::red);
    format.setForeground(Qt::red);
    QList<QInputMethodEvent::Attribute> marks;
    for (int at = 0; at < text.size();) {
        const int length = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        const std::string letter = fromQt(text.mid(at, length));
        if (edit.kept(letter) != letter)
            marks.append({QInputMethodEvent::TextFormat, at - cursor, length, format});
        at += length;
    }
    return marks;
}

} // namespace

NameEditor* NameEditor::of(const QWidget& view) {
    for (QObject* child : view.children())
        if (auto* editor = dynamic_cast<NameEditor*>(child); editor && !editor->ended_) return editor;
    return nullptr;
}

NameEditor::NameEditor(QWidget& view, const QRect& where, TextEdit edit)
    : QLineEdit(&view), edit_(std::move(edit)) {
    setObjectName(kName);
    setAccessibleName(toQt(translated("Name of the swatch")));
    setAcceptDrops(false);
    setMaxLength(edit_.most);
    setText(toQt(edit_.text));
    setGeometry(where);
    selectAll();
    connect(this, &QLineEdit::textChanged, this, [this] { guarded([this] { markLost(); }); });
    show();
    setFocus(Qt::OtherFocusReason);
}

void NameEditor::markLost() {
    QInputMethodEvent marks({}, lostLetters(text(), cursorPosition(), edit_));
    QApplication::sendEvent(this, &marks);
    const std::string typed = fromQt(text()), kept = edit_.kept(typed);
    const bool whole = kept == typed;
    const QString hint = whole ? QString() : toQt(translated("Kept as: %1", kept));
    setAccessibleDescription(hint);
    if (whole)
        QToolTip::hideText();
    else
        QToolTip::showText(mapToGlobal(QPoint(0, height())), plainToolTip(hint), this);
}

void NameEditor::end(End how) {
    if (std::exchange(ended_, true)) return;
    QToolTip::hideText();
    setObjectName({}); // the next one may open before this one is gone
    if (hasFocus()) parentWidget()->setFocus(Qt::OtherFocusReason);
    hide();
    deleteLater();
    if (how == End::entered) edit_.entered(fromQt(text()));
}

void NameEditor::keyPressEvent(QKeyEvent* event) try {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return end(End::entered);
    case Qt::Key_Escape:
        return end(End::dropped);
    default:
        QLineEdit::keyPressEvent(event);
    }
} catch (...) {
    mishap();
}

/// The field's own menu and another window only borrow the focus.
void NameEditor::focusOutEvent(QFocusEvent* event) try {
    QLineEdit::focusOutEvent(event);
    const auto reason = event->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) end(End::entered);
} catch (...) {
    mishap();
}

} // namespace chromalog
