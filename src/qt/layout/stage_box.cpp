#include "qt/layout/stage_box.h"

#include <algorithm>

namespace chromalog {

namespace {
constexpr int strip = 24;   ///< pixels wide
constexpr int gap = 8;      ///< wheel to strip, chart to controls
constexpr int wideGap = 16; ///< strip to chart
constexpr int around = gap + strip + wideGap;
constexpr int chartStep = 16; ///< the gradient has 16 columns
constexpr int mostSlack = 24;
constexpr int mostBetween = 96; ///< of spare width that goes between strip and chart; the rest stays outside
} // namespace

int StageBox::controlsHeight() const {
    const QWidget* controls = controls_.shownIn(*this);
    return controls ? controls->sizeHint().height() + gap : 0;
}

/// Of the chart beside a wheel; 0 while it is folded.
int StageBox::chartSide(int wheel, int controls, int width) const {
    if (!chart_.shownIn(*this)) return 0;
    return std::max(0, std::min(wheel - controls, width - wheel - around) / chartStep * chartStep);
}

/// The wheel may be a little higher than the chart with its controls, as the chart grows in steps.
int StageBox::usefulHeight(int width) const {
    if (!chart_.shownIn(*this)) return width - gap - strip;
    const int controls = controlsHeight();
    int side = width - around;
    while (side > kLeastSide && chartSide(side, controls, width) < side - controls - mostSlack)
        --side;
    return side;
}

QSize StageBox::minimumSizeHint() const {
    return {2 * kLeastSide, kLeastSide};
}

void StageBox::layOut() {
    const int controls = controlsHeight();
    const int side = std::min(usefulHeight(width()), height());
    const int chart = chartSide(side, controls, width());
    const int whole = side + gap + strip + (chart > 0 ? wideGap + chart : 0);
    const int spare = std::max(0, width() - whole), between = chart > 0 ? std::min(spare, mostBetween) : 0;
    const int left = (spare - between) / 2, top = (height() - side) / 2;
    const int chartLeft = left + side + around + between;
    const auto put = [this](const Part& part, const QRect& where) {
        if (QWidget* widget = part.in(*this)) place(*widget, where);
    };
    put(wheel_, {left, top, side, side});
    put(strip_, {left + side + gap, top, strip, side});
    put(chart_, {chartLeft, top, chart, chart});
    put(controls_, {chartLeft, top + side - controls + gap, chart, controls - gap});
}

} // namespace chromalog
