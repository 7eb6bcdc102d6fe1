#pragma once

#include <QImage>
#include <QPalette>
#include <QRect>

#include <vector>

class QPainter;

namespace chromalog {

/// What the magnifier shows: the pixels around one of a picture, that pixel's value, and what was taken.
/// Lengths are device pixels of the picture throughout.
struct Magnified {
    const QImage& picture; ///< of one screen; its device pixel ratio sizes the magnifier
    QPoint pixel;          ///< in the picture
    std::vector<QColor> taken;
};

constexpr int kMagnifiedSide = 15; ///< pixels that it shows in each direction, the aimed one in the middle

/// Beside the aimed pixel, whose surroundings stay uncovered, and within the picture as far as it fits.
QRect magnifierPlace(const Magnified&);

/// Paints it at that place; the painter's unit is a device pixel.
void paintMagnifier(QPainter&, const Magnified&, const QPalette&);

} // namespace chromalog
