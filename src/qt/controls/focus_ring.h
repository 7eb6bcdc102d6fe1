#pragma once

#include <QPainter>
#include <QRect>
#include <QWidget>

namespace chromalog {

/// Whether the focus is to be seen: whoever presses the mouse sees where.
inline bool showsKeyboardFocus(const QWidget& widget) {
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

/// Black outside, white inside: one of the two stands out from any picture by more than 3:1.
inline void paintFocusRing(QPainter& painter, QRect around) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Qt::black);
    painter.drawRect(around.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(around.adjusted(1, 1, -2, -2));
}

} // namespace chromalog
