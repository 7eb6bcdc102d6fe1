#pragma once

#include <QPainter>
#include <QRect>

namespace chromalog {

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
