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

/// The first colour on the way between two that has that contrast to a third; the last one where none has.
inline QColor firstStandingOut(const QColor& from, const QColor& to, const QColor& against, double least) {
    constexpr int steps = 32;
    const auto between = [](int a, int b, int step) { return a + (b - a) * step / steps; };
    for (int step = 0; step < steps; ++step) {
        const QColor mixed(between(from.red(), to.red(), step), between(from.green(), to.green(), step),
                           between(from.blue(), to.blue(), step));
        if (contrast(mixed, against) >= least) return mixed;
    }
    return to;
}

/// The quietest colour on the way from the ground to its text that keeps that contrast to the ground; the
/// text's own where none does.
inline QColor quietOn(const QColor& ground, const QColor& text, double least) {
    return firstStandingOut(ground, text, ground, least);
}

/// The ground, moved away from the text that lies on it until they have that contrast; as it is where they
/// have it.
inline QColor carrying(const QColor& ground, const QColor& text, double least) {
    const bool darkens = relativeLuminance(text) > relativeLuminance(ground);
    return firstStandingOut(ground, darkens ? Qt::black : Qt::white, text, least);
}

/// Of frames around controls that lie on the window's ground. Found once for each pair of colours: every well
/// asks whenever it is painted.
inline QColor hairline(const QPalette& palette) {
    static QColor ground, text, line;
    const QColor window = palette.color(QPalette::Window), words = palette.color(QPalette::WindowText);
    if (!line.isValid() || window != ground || words != text) line = quietOn(window, words, 3);
    ground = window;
    text = words;
    return line;
}

/// What the lists' black names and blue frame lie on: white in a light window, else a light grey that does
/// not glare.
inline QColor listGround(const QColor& window) {
    return relativeLuminance(window) > 0.4 ? QColor(Qt::white) : QColor(0xb8, 0xb8, 0xb8);
}

} // namespace chromalog
