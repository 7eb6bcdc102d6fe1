#include "qt/controls/stepper_widget.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

#include <algorithm>

namespace chromalog {

StepperWidget::StepperWidget(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    QToolButton* back = addArrow(Qt::UpArrow, toQt(translated("Previous")));
    QToolButton* forward = addArrow(Qt::DownArrow, toQt(translated("Next")));
    connect(back, &QToolButton::clicked, this, &StepperWidget::stepBackwards);
    connect(forward, &QToolButton::clicked, this, &StepperWidget::stepForwards);
    setFocusPolicy(Qt::StrongFocus);
}

QToolButton* StepperWidget::addArrow(Qt::ArrowType arrow, const QString& name) {
    auto* button = new QToolButton(this);
    button->setObjectName(arrow == Qt::UpArrow ? "qt_stepBackwards" : "qt_stepForwards");
    button->setArrowType(arrow);
    button->setAccessibleName(name);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(24, 24);
    layout()->addWidget(button);
    return button;
}

void StepperWidget::configure(double minimum, double maximum, double increment, double value, bool wraps) {
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    increment_ = increment;
    value_ = std::clamp(value, minimum_, maximum_);
    wraps_ = wraps;
}

void StepperWidget::step(int direction) {
    if (!isEnabled()) return;
    double next = value_ + direction * increment_;
    if (next > maximum_) next = wraps_ ? minimum_ : maximum_;
    if (next < minimum_) next = wraps_ ? maximum_ : minimum_;
    value_ = next;
    Q_EMIT stepped();
}

void StepperWidget::keyPressEvent(QKeyEvent* event) try {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Left) return stepBackwards();
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Right) return stepForwards();
    QWidget::keyPressEvent(event);
} catch (...) {
    mishap();
}

} // namespace chromalog
