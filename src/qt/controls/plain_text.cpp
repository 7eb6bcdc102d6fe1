#include "qt/controls/plain_text.h"

#include "qt/controls/window_control.h"
#include "qt/mishap.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QTextDocument>

namespace chromalog {

namespace {

/// Nothing outside our windows is touched: the process may have others.
bool isBelowOurs(const QWidget* widget) {
    while (widget && !qobject_cast<const DialogWindow*>(widget))
        widget = widget->parentWidget();
    return widget;
}

} // namespace

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void setPlainInformativeText(QMessageBox& box, const QString& text) {
    box.setInformativeText(" "); // makes the label
    if (auto* label = box.findChild<QLabel*>("qt_msgbox_informativelabel"))
        label->setTextFormat(Qt::PlainText);
    box.setInformativeText(text);
}

PlainLabels::PlainLabels() {
    qApp->installEventFilter(this);
}

bool PlainLabels::eventFilter(QObject* object, QEvent* event) try {
    if (event->type() != QEvent::Polish) return false;
    auto* label = qobject_cast<QLabel*>(object);
    if (label && label->windowType() != Qt::ToolTip && isBelowOurs(label))
        label->setTextFormat(Qt::PlainText);
    return false;
} catch (...) {
    mishap();
    return false;
}

} // namespace chromalog
