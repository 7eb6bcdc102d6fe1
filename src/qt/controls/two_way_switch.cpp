#include "qt/controls/two_way_switch.h"

#include <QPainter>

#include <algorithm>

namespace chromalog {

namespace {
constexpr int padding = 5;
constexpr int leastDigits = 12;        ///< wide
constexpr double sideShare = 5.0 / 13; ///< of the width, for each way where a caption stands between
} // namespace

QSize TwoWaySwitch::sizeHint() const {
    return minimumSizeHint();
}

QSize TwoWaySwitch::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance('0') * leastDigits, std::max(24, fontMetrics().height() + 8)};
}

QString TwoWaySwitch::fitting(const QString& texts, int width) const {
    for (const QString& text : texts.split('|'))
        if (fits(text, width)) return text;
    return {};
}

void TwoWaySwitch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF all = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool captioned =
        !between_.isEmpty() && !fitting(between_, int(all.width() * (1 - 2 * sideShare)) - 4).isEmpty();
    const double side = !captioned ? all.width() / 2 : all.width() * sideShare;
    const QRectF halves[] = {{all.left(), all.top(), side, all.height()},
                             {all.right() - side, all.top(), side, all.height()}};
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.35F);
    painter.setPen(line);
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawRoundedRect(all, 3, 3);
    const int room = int(side) - 2 * padding;
    // both ways in words of the same length
    int words = 0;
    for (; words < left_.count('|'); ++words)
        if (fits(left_.section('|', words, words), room) && fits(right_.section('|', words, words), room))
            break;
    const auto mirrored = [&](const QRectF& part) {
        return isRightToLeft() ? QRectF(width() - part.right(), part.top(), part.width(), part.height())
                               : part;
    };
    for (int i = 0; i < 2; ++i) {
        const QRectF half = mirrored(halves[i]);
        const bool on = i == way_;
        if (on) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette().color(QPalette::Highlight));
            painter.drawRoundedRect(half.adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
        }
        const QString said = (i == 0 ? left_ : right_).section('|', words, words);
        painter.setPen(palette().color(on ? QPalette::HighlightedText : QPalette::ButtonText));
        painter.drawText(half, Qt::AlignCenter, said);
    }
    if (captioned) {
        QColor quiet = palette().color(QPalette::ButtonText);
        quiet.setAlphaF(0.75F);
        painter.setPen(quiet);
        const QRectF middle(halves[0].right(), all.top(), all.width() - 2 * side, all.height());
        painter.drawText(middle, Qt::AlignCenter, fitting(between_, int(middle.width()) - 4));
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        painter.drawRoundedRect(all.adjusted(3, 3, -3, -3), 2, 2);
    }
}

} // namespace chromalog
