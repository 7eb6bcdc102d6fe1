#include "qt/panels/completions.h"

#include "qt/controls/window_control.h"
#include "qt/mishap.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

namespace chromalog {
namespace {

/// The object as a field of ours that completes what is typed, or null.
QLineEdit* completingField(QObject* object) {
    auto* field = qobject_cast<QLineEdit*>(object);
    const QWidget* widget = field && field->completer() ? field : nullptr;
    while (widget && !qobject_cast<const DialogWindow*>(widget))
        widget = widget->parentWidget();
    return widget ? field : nullptr;
}

} // namespace

Completions::Completions() {
    qApp->installEventFilter(this);
}

bool Completions::eventFilter(QObject* receiver, QEvent* event) try {
    if (event->type() == QEvent::Hide) end(*receiver);
    if (event->type() == QEvent::WindowBlocked)
        for (QLineEdit* field : receiver->findChildren<QLineEdit*>())
            if (field->window() == receiver) end(*field); // not those of the panel that blocks it
    return event->type() == QEvent::KeyPress && keyPressed(*receiver, static_cast<QKeyEvent&>(*event));
} catch (...) {
    mishap();
    return false;
}

/// The field takes its completions back as it gets the keyboard again.
void Completions::end(QObject& receiver) {
    if (const QLineEdit* field = completingField(&receiver)) field->completer()->setWidget(nullptr);
}

bool Completions::keyPressed(QObject& receiver, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
    auto* list = qobject_cast<QAbstractItemView*>(&receiver);
    QLineEdit* field = list && list->isWindow() ? completingField(list->focusProxy()) : nullptr;
    if (!field || list->currentIndex().isValid()) return false;
    list->hide();
    QCoreApplication::postEvent(field, event.clone());
    return true;
}

} // namespace chromalog
