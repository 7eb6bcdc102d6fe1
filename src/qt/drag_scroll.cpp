#include "qt/drag_scroll.h"

#include "qt/controls/list_scroll_area.h"
#include "qt/mishap.h"

#include <QScrollBar>

#include <algorithm>

namespace chromalog {

namespace {
constexpr int kEdge = 22;       ///< pixels from an edge, a row
constexpr int kInterval = 40;   ///< milliseconds between two steps
constexpr int kMostPixels = 18; ///< a step: 20 rows a second
} // namespace

DragScroll::DragScroll(ListScrollArea& area, std::function<void(int)> scrolled)
    : area_(area), scrolled_(std::move(scrolled)) {
    timer_.setInterval(kInterval);
    connect(&timer_, &QTimer::timeout, this, [this] { guarded([this] { step(); }); });
}

void DragScroll::over(int y) {
    const int below = y - (area_.viewport()->height() - kEdge);
    const int depth = y < kEdge ? y - kEdge : std::max(below, 0);
    pixels_ = std::clamp(depth, -kEdge, kEdge) * kMostPixels / kEdge;
    if (pixels_ == 0)
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start();
}

void DragScroll::stop() {
    timer_.stop();
}

void DragScroll::step() {
    QScrollBar& bar = *area_.verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + pixels_);
    if (bar.value() != before) scrolled_(bar.value() - before);
}

} // namespace chromalog
