#pragma once

#include <QMouseEvent>
#include <QWidget>

#include <functional>

namespace chromalog {

/// Runs something at a click anywhere on a widget, also on those of its children that take no presses of
/// their own.
class ClickArea : public QObject {
  public:
    ClickArea(QWidget& area, std::function<void()> run) : QObject(&area), run_(std::move(run)) {
        area.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* area, QEvent* event) override {
        const bool press = event->type() == QEvent::MouseButtonPress;
        if (!press && event->type() != QEvent::MouseButtonRelease) return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton) return false;
        const QRect inside = static_cast<QWidget*>(area)->rect();
        if (!press && inside.contains(mouse->position().toPoint())) run_();
        return true;
    }

  private:
    const std::function<void()> run_; ///< throws nothing
};

} // namespace chromalog
