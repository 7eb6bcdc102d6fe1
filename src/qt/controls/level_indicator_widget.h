#pragma once

#include <QProgressBar>

namespace chromalog {

/// Ten segments for 0..10. The value is kept as given; only what is drawn and announced is clamped to that
/// range.
class LevelIndicatorWidget : public QProgressBar {
    Q_OBJECT
    Q_PROPERTY(double level READ value)
  public:
    explicit LevelIndicatorWidget(QWidget* parent = nullptr);

    void setValue(double);
    double value() const { return value_; }
    int filledSegments() const; ///< 0..10

    QSize sizeHint() const override { return {120, 16}; }
    QSize minimumSizeHint() const override { return {60, 12}; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    double value_ = 0;
};

} // namespace chromalog
