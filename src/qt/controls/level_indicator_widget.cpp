#include "qt/controls/level_indicator_widget.h"

#include "qt/contrast.h"
#include "qt/mishap.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace chromalog {

namespace {
constexpr int segments = 10;
constexpr int gap = 2;     ///< pixels between segments
constexpr int steps = 100; ///< of the announced value
} // namespace

LevelIndicatorWidget::LevelIndicatorWidget(QWidget* parent) : QProgressBar(parent) {
    setRange(0, steps);
    setTextVisible(false);
}

int LevelIndicatorWidget::filledSegments() const {
    return std::isfinite(value_) ? int(std::lround(std::clamp(value_, 0.0, double(segments)))) : 0;
}

void LevelIndicatorWidget::setValue(double value) {
    value_ = value;
    const double clamped = std::isfinite(value) ? std::clamp(value, 0.0, double(segments)) : 0.0;
    setUpdatesEnabled(false); // the base class would paint at once, a frame of its own before the others'
    QProgressBar::setValue(int(std::lround(clamped * steps / segments)));
    setUpdatesEnabled(true); // and mark for redraw
}

void LevelIndicatorWidget::paintEvent(QPaintEvent*) try {
    QPainter painter(this);
    const QColor ground = palette().color(QPalette::Window), accent = palette().color(QPalette::Highlight);
    const QColor filled = contrast(accent, ground) >= 3 ? accent : palette().color(QPalette::WindowText);
    const double pitch = (width() + gap) / double(segments);
    for (int i = 0; i < segments; ++i) {
        const int left = int(std::lround(i * pitch));
        const QRect across(left, 0, int(std::lround((i + 1) * pitch)) - gap - left, height());
        const QRect box = QStyle::visualRect(layoutDirection(), rect(), across);
        painter.fillRect(box, i < filledSegments() ? filled : ground);
        painter.setPen(hairline(palette()));
        painter.drawRect(box.adjusted(0, 0, -1, -1));
    }
} catch (...) {
    mishap();
}

} // namespace chromalog
