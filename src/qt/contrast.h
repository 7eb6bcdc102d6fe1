#pragma once

#include "qt/convert.h"

#include <QColor>
#include <QPalette>

#include <algorithm>

namespace chromalog {

inline double relativeLuminance(const QColor& c) {
    return relativeLuminance(fromQt(c));
}

/// 1..21; texts want 4.5, marks and lines 3.
inline double contrast(const QColor& a, const QColor& b) {
    const double first = relativeLuminance(a), second = relativeLuminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// The quietest colour on the way from the ground to its text that keeps that contrast to the ground; the
/// text's own where none does.
inline QColor quietOn(const QColor& ground, const QColor& text, double least) {
    constexpr int steps = 32;
    const auto between = [](int from, int to, int step) { return from + (to - from) * step / steps; };
    for (int step = 1; step < steps; ++step) {
        const QColor mixed(between(ground.red(), text.red(), step),
                           between(ground.green(), text.green(), step),
                           between(ground.blue(), text.blue(), step));
        if (contrast(mixed, ground) >= least) return mixed;
    }
    return text;
}

/// Of frames around controls that lie on the window's ground.
inline QColor hairline(const QPalette& palette) {
    return quietOn(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 3);
}

/// What the lists' black names and blue frame lie on: white in a light window, else a light grey that does
/// not glare.
inline QColor listGround(const QColor& window) {
    return relativeLuminance(window) > 0.4 ? QColor(Qt::white) : QColor(0xb8, 0xb8, 0xb8);
}

} // namespace chromalog
