#pragma once

#include "qt/mishap.h"

#include <QWidget>

namespace chromalog {

/// Keeps its children square, centred and on top of one another; their side is a multiple of `step` pixels.
class SquareBox : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int step READ step WRITE setStep)
  public:
    using QWidget::QWidget;
    int step() const { return step_; }
    void setStep(int step) { step_ = step > 0 ? step : 1; }

  protected:
    void resizeEvent(QResizeEvent*) override try {
        const int side = qMin(width(), height()) / step_ * step_;
        for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            child->setGeometry((width() - side) / 2, (height() - side) / 2, side, side);
    } catch (...) {
        mishap();
    }

  private:
    int step_ = 1;
};

} // namespace chromalog
