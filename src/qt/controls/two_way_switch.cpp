#include "qt/controls/two_way_switch.h"

#include "qt/contrast.h"
#include "qt/controls/focus_ring.h"
#include "qt/mishap.h"

#include <QPainter>

#include <algorithm>

namespace chromalog {

namespace {
constexpr int padding = 5;             ///< pixels left and right of a way's words
constexpr int leastDigits = 12;        ///< wide
constexpr double sideShare = 5.0 / 13; ///< of the width, for each way where a caption stands between
} // namespace

QSize TwoWaySwitch::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance('0') * leastDigits, std::max(24, fontMetrics().height() + 8)};
}

QString TwoWaySwitch::fitting(const QString& texts, int width) const {
    for (const QString& text : texts.split('|'))
        if (fits(text, width)) return text;
    return {};
}

int TwoWaySwitch::wordsThatFit(int width) const {
    const auto last = int(left_.count('|'));
    for (int words = 0; words < last; ++words)
        if (fits(left_.section('|', words, words), width) && fits(right_.section('|', words, words), width))
            return words;
    return last;
}

void TwoWaySwitch::paintWay(QPainter& painter, bool second, const QRectF& half) const {
    const bool holds = second == isChecked();
    if (holds) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(half.adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    }
    const int words = wordsThatFit(int(half.width()) - 2 * padding);
    painter.setPen(palette().color(holds ? QPalette::HighlightedText : QPalette::ButtonText));
    painter.drawText(half, Qt::AlignCenter, (second ? right_ : left_).section('|', words, words));
}

void TwoWaySwitch::paintEvent(QPaintEvent*) try {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF all = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(hairline(palette()));
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawRoundedRect(all, 3, 3);

    const QString caption = fitting(between_, int(all.width() * (1 - 2 * sideShare)) - 4);
    const double side = all.width() * (caption.isEmpty() ? 0.5 : sideShare);
    const QRectF leftHalf(all.left(), all.top(), side, all.height());
    const QRectF rightHalf(all.right() - side, all.top(), side, all.height());
    paintWay(painter, false, isRightToLeft() ? rightHalf : leftHalf);
    paintWay(painter, true, isRightToLeft() ? leftHalf : rightHalf);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(QRectF(leftHalf.topRight(), rightHalf.bottomLeft()), Qt::AlignCenter, caption);
    if (!showsKeyboardFocus(*this)) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1, Qt::DotLine));
    painter.drawRoundedRect(all.adjusted(3, 3, -3, -3), 2, 2);
} catch (...) {
    mishap();
}

} // namespace chromalog
