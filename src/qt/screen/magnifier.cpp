#include "qt/screen/magnifier.h"

#include "qt/contrast.h"
#include "qt/fonts.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chromalog {

namespace {

// Points; a picture's scale makes them whole device pixels.
constexpr int kCell = 9, kFrame = 1, kPad = 5, kLine = 20, kPatch = 12, kAway = 20;
constexpr std::size_t kPatchesShown = 8; ///< of the colours taken, the latest

struct Measures {
    explicit Measures(const Magnified& m) : scale(m.picture.devicePixelRatio()) {
        const int grid = kMagnifiedSide * cell;
        const int lines = m.taken.empty() ? 1 : 2;
        size = QSize(grid + 2 * frame, grid + lines * line + 2 * frame);
    }
    int of(int points) const { return std::max(1, int(std::lround(points * scale))); }

    double scale;
    int cell = of(kCell), frame = of(kFrame), pad = of(kPad), line = of(kLine);
    QSize size;
};

/// From the aim towards the end, or towards the start where that would leave the picture.
int start(int aim, int length, int away, int end) {
    const int after = aim + away;
    const int before = aim - away - length + 1;
    const int wanted = after + length <= end ? after : before;
    return std::clamp(wanted, 0, std::max(0, end - length));
}

void paintPixels(QPainter& painter, const Magnified& m, const Measures& is, const QRect& grid,
                 const QPalette& palette) {
    const QPoint corner = m.pixel - QPoint(kMagnifiedSide / 2, kMagnifiedSide / 2);
    for (int y = 0; y < kMagnifiedSide; ++y)
        for (int x = 0; x < kMagnifiedSide; ++x) {
            const QPoint at = corner + QPoint(x, y);
            const QRect cell(grid.x() + x * is.cell, grid.y() + y * is.cell, is.cell, is.cell);
            if (m.picture.rect().contains(at))
                painter.fillRect(cell, m.picture.pixelColor(at));
            else
                painter.fillRect(cell, QBrush(palette.color(QPalette::WindowText), Qt::BDiagPattern));
        }
}

/// Two frames, so that one of them shows on any colour.
void paintAim(QPainter& painter, const Measures& is, const QRect& grid) {
    const QRect middle(grid.x() + kMagnifiedSide / 2 * is.cell, grid.y() + kMagnifiedSide / 2 * is.cell,
                       is.cell, is.cell);
    const auto frame = [&](int by, const QColor& colour) {
        const QRect outer = middle.adjusted(-by, -by, by, by);
        const QRect inner = outer.adjusted(is.frame, is.frame, -is.frame, -is.frame);
        for (const QRect& part : QRegion(outer).subtracted(inner))
            painter.fillRect(part, colour);
    };
    frame(2 * is.frame, Qt::black);
    frame(is.frame, Qt::white);
}

void paintLine(QPainter& painter, const Measures& is, const QRect& line, const std::vector<QColor>& patches,
               const QString& text) {
    const QColor ink = painter.pen().color();
    const int side = is.of(kPatch);
    int x = line.x() + is.pad;
    for (const QColor& patch : patches) {
        const QRect place(x, line.y() + (line.height() - side) / 2, side, side);
        painter.fillRect(place, ink);
        painter.fillRect(place.adjusted(is.frame, is.frame, -is.frame, -is.frame), patch);
        x += side + is.of(1);
    }
    painter.drawText(line.adjusted(0, 0, -is.pad, 0), Qt::AlignRight | Qt::AlignVCenter, text);
}

} // namespace

QRect magnifierPlace(const Magnified& m) {
    const Measures is(m);
    const int away = std::max(is.of(kAway), kMagnifiedSide / 2 + 1);
    return {QPoint(start(m.pixel.x(), is.size.width(), away, m.picture.width()),
                   start(m.pixel.y(), is.size.height(), away, m.picture.height())),
            is.size};
}

void paintMagnifier(QPainter& painter, const Magnified& m, const QPalette& palette) {
    const Measures is(m);
    const QRect place = magnifierPlace(m);
    const QRect inside = place.adjusted(is.frame, is.frame, -is.frame, -is.frame);
    const QRect grid(inside.topLeft(), QSize(kMagnifiedSide, kMagnifiedSide) * is.cell);
    painter.fillRect(place, hairline(palette));
    painter.fillRect(inside, palette.color(QPalette::Window));
    paintPixels(painter, m, is, grid, palette);
    paintAim(painter, is, grid);

    QFont font = fontFor({Font::Face::label, 12});
    font.setPixelSize(is.of(font.pixelSize()));
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::WindowText));
    QRect line(inside.x(), grid.bottom() + 1, inside.width(), is.line);
    const QColor aimed = m.picture.pixelColor(m.pixel);
    paintLine(painter, is, line, {aimed}, aimed.name());
    if (m.taken.empty()) return;
    line.translate(0, is.line);
    const auto shown = std::min(kPatchesShown, m.taken.size());
    paintLine(painter, is, line, {m.taken.end() - std::ptrdiff_t(shown), m.taken.end()},
              QString::number(m.taken.size()));
}

} // namespace chromalog
