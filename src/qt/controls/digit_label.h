#pragma once

#include "qt/form_names.h"

#include <QLabel>

namespace chromalog {

/// A number that is only shown, as wide as its number of digits, whatever it says.
class DigitLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(int digits MEMBER digits_)
  public:
    explicit DigitLabel(QWidget* parent = nullptr) : QLabel(parent) { setProperty(kClassName, "QLabel"); }
    QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance('0') * digits_ + 2, fontMetrics().height() + 2};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

  private:
    int digits_ = 3;
};

} // namespace chromalog
