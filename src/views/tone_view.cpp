#include "views/tone_view.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace chromalog {
namespace {

constexpr double sectorDegrees = 360.0 / toneSectors;
constexpr int sectorsPerColour = 4;
constexpr double outlineWidth = 1.5;
constexpr double radiansPerDegree = 0.017453292519943295;

ToneColour channels(const Colour& c) {
    return {static_cast<float>(c.red()), static_cast<float>(c.green()), static_cast<float>(c.blue())};
}

} // namespace

ToneCircle toneCircle(float t, const Colour& second, bool absolute) {
    const auto [r, g, b] = channels(second);
    const float rest = 1 - t;
    if (absolute) // the sixth repeats the fourth: kept
        return {{{t, 0, 0},
                 {t, t, 0},
                 {0, t, 0},
                 {0, t, t},
                 {0, 0, t},
                 {0, t, t},
                 {t, t, t},
                 {rest, rest, rest}}};
    return {{{t, g, b * t},
             {t, t, b * t},
             {r * t, t, b * t},
             {r * t, 1, 1},
             {r * t, g * t, t},
             {r * t, t, t},
             {t, t, t},
             {rest, rest, rest}}};
}

Colour toneCell(const ToneCircle& circle, const Colour& second, int ring, int sector) {
    const ToneColour& from = circle[sector / sectorsPerColour];
    const ToneColour& to = circle[(sector / sectorsPerColour + 1) % circle.size()];
    const int f = sector % sectorsPerColour;
    const ToneColour s = channels(second);
    std::array<double, 3> cell;
    for (int i = 0; i < 3; ++i) {
        const auto around = static_cast<float>(
            (static_cast<double>(from[i]) * (sectorsPerColour - f) + static_cast<double>(to[i]) * f) /
            sectorsPerColour);
        const float inner = s[i] * (toneRings - ring);
        cell[i] = (inner + static_cast<double>(around) * ring) / toneRings;
    }
    return Colour::rgb(cell[0], cell[1], cell[2]);
}

ToneCircle toneView::circle() const {
    const float tone = static_cast<float>(toneSlider->value());
    return toneCircle(tone / 100, middle(), absOrRel->state() == 1);
}

void toneView::drawRect(Canvas& canvas) {
    canvas.fillRect(bounds());           // in the canvas's current colour
    if (!canvas.drawsToScreen()) return; // paper gets pages of its own
    canvas.setFill(Colour::rgb(0.9, 0.9, 0.9));
    canvas.fillRect(bounds());
    canvas.setLineWidth(outlineWidth);
    const float radius = static_cast<float>(bounds().h / 2);
    const Point centre{radius, radius};
    const Colour second = middle();
    const ToneCircle circle = this->circle();
    std::vector<Canvas::Cell> cells;
    cells.reserve(toneRings * toneSectors + 1);
    for (int ring = toneRings; ring >= 1; --ring) {
        const double inner = radius * ring / 8;
        const double outer = radius * (ring + 1) / 8;
        for (int sector = toneSectors - 1; sector >= 0;
             --sector) { // where outlines overlap the later one shows
            const double start = sector * sectorDegrees;
            const double end = (sector + 1) * sectorDegrees;
            cells.push_back({Path(), toneCell(circle, second, ring, sector)});
            Canvas::Cell& cell = cells.back();
            cell.path.arc(centre, outer, start, end, false);
            cell.path.arc(centre, inner, end, start, true);
            cell.path.close();
        }
    }
    cells.push_back({Path(), Colour::rgb(second.red(), second.green(), second.blue())});
    cells.back().path.oval({radius - radius / 8, radius - radius / 8, radius / 4, radius / 4});
    canvas.drawCells(cells);
}

void toneView::moveCell(int right, int up) {
    ring_ = std::clamp(ring_ + up, 0, toneRings);
    sector_ = ((sector_ - right) % toneSectors + toneSectors) % toneSectors;
}

/// A ring has no ends: Home and End are the innermost and the outermost cell of the sector.
void toneView::moveToRowEnd(int direction) {
    ring_ = direction < 0 ? 0 : toneRings;
}

void toneView::standAt(Point p) {
    const double radius = bounds().h / 2;
    const double dx = p.x - radius, dy = p.y - radius;
    const double ring = radius > 0 ? std::hypot(dx, dy) / radius * 8 : 0;
    ring_ = static_cast<int>(std::min<double>(ring, toneRings));
    const double degrees = std::atan2(dy, dx) / radiansPerDegree;
    sector_ = static_cast<int>((degrees < 0 ? degrees + 360 : degrees) / sectorDegrees) % toneSectors;
}

Point toneView::cellCentre() const {
    const double radius = bounds().h / 2;
    const double distance = ring_ == 0 ? 0 : radius * (ring_ + 0.5) / 8;
    const double angle = (sector_ + 0.5) * sectorDegrees * radiansPerDegree;
    return {radius + distance * std::cos(angle), radius + distance * std::sin(angle)};
}

} // namespace chromalog
