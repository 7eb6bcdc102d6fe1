#pragma once

#include <QWidget>

class QToolButton;

namespace chromalog {

/// Two arrow buttons that walk a value up and down, past the ends where it wraps.
class StepperWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double value READ value)
    Q_PROPERTY(double minimum READ minimum)
    Q_PROPERTY(double maximum READ maximum)
    Q_PROPERTY(double increment READ increment)
  public:
    explicit StepperWidget(QWidget* parent = nullptr);

    void configure(double minimum, double maximum, double increment, double value, bool wraps);
    double value() const { return value_; }
    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    double increment() const { return increment_; }

    void stepForwards() { step(1); } ///< nothing while disabled
    void stepBackwards() { step(-1); }

  Q_SIGNALS:
    void stepped(); ///< by a person

  protected:
    void keyPressEvent(QKeyEvent*) override;

  private:
    QToolButton* addArrow(Qt::ArrowType, const QString& name);
    void step(int direction);

    double minimum_ = 0, maximum_ = 0, increment_ = 1, value_ = 0;
    bool wraps_ = false;
};

} // namespace chromalog
