#pragma once

#include "desktop/controls.h"

#include <QProgressBar>

namespace chromalog {

/// Ten segments for 0..10. The value is kept as given; only what is drawn and announced is held to that
/// range.
class LevelIndicatorWidget : public QProgressBar, public LevelIndicator {
    Q_OBJECT
    Q_PROPERTY(double level READ value)
  public:
    explicit LevelIndicatorWidget(QWidget* parent = nullptr);

    void setValue(double) override;
    double value() const override { return value_; }
    int filledSegments() const; ///< 0..10

    void setEnabled(bool on) override { QWidget::setEnabled(on); }
    bool enabled() const override { return isEnabled(); }
    void setHidden(bool hidden) override { QWidget::setHidden(hidden); }
    bool hidden() const override { return isHidden(); }

    QSize sizeHint() const override { return {120, 16}; }
    QSize minimumSizeHint() const override { return {60, 12}; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    double value_ = 0;
};

} // namespace chromalog
