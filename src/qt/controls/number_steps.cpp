#include "qt/controls/number_steps.h"

#include "base/number_text.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

namespace chromalog {

namespace {

constexpr int kLongStep = 10;

class NumberSteps : public QObject {
  public:
    explicit NumberSteps(QLineEdit& field) : QObject(&field), field_(field) {
        field.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override try {
        if (event->type() == QEvent::KeyPress) return stepByKey(*static_cast<QKeyEvent*>(event));
        return event->type() == QEvent::Wheel && stepByWheel(*static_cast<QWheelEvent*>(event));
    } catch (...) {
        mishap();
        return false;
    }

  private:
    bool stepByKey(const QKeyEvent& event) {
        const int direction = event.key() == Qt::Key_Up ? 1 : event.key() == Qt::Key_Down ? -1 : 0;
        const auto others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        if (direction == 0 || (event.modifiers() & others)) return false;
        step(direction, event.modifiers());
        return true;
    }

    /// Elsewhere the wheel scrolls what lies around the field.
    bool stepByWheel(QWheelEvent& event) {
        if (!field_.hasFocus()) return false;
        turned_ += event.angleDelta().y();
        const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
        turned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
        step(notches, event.modifiers());
        event.accept();
        return true;
    }

    /// By insertion, as typing would: the field's own undo keeps the number before.
    void step(int count, Qt::KeyboardModifiers held) {
        const std::int64_t most = field_.property(kMost).toInt();
        const std::int64_t length = held.testFlag(Qt::ShiftModifier) ? kLongStep : 1;
        const std::int64_t now = std::clamp<std::int64_t>(integerValue(fromQt(field_.text())), -1, most + 1);
        const QString next = QString::number(std::clamp<std::int64_t>(now + count * length, 0, most));
        if (count == 0 || next == field_.text()) return;
        field_.selectAll();
        field_.insert(next);
        field_.selectAll();
    }

    QLineEdit& field_; ///< the parent
    int turned_ = 0;   ///< eighths of a degree that make no step yet
};

} // namespace

void stepByKeys(QLineEdit& field) {
    new NumberSteps(field);
}

} // namespace chromalog
