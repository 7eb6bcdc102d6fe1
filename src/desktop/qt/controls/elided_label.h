#pragma once

#include "desktop/qt/mishap.h"

#include <QLabel>
#include <QPainter>

namespace chromalog {

/// A label that cuts a long text at its end instead of growing.
class ElidedLabel : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {20, QLabel::minimumSizeHint().height()}; }
    QSize sizeHint() const override { return {60, QLabel::sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent*) override try {
        QPainter painter(this);
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        painter.drawText(rect(), int(alignment()) | Qt::TextSingleLine,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    } catch (...) {
        mishap();
    }
};

} // namespace chromalog
