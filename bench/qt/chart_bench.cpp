// Redrawing the tone chart and the gradient beside as many plain filled paths and rectangles of the toolkit.
#include "qt/application_guard.h"
#include "qt/cell_picture.h"
#include "qt/paint_canvas.h"
#include "support/headless_colours.h"
#include "support/headless_desktop.h"
#include "views/degrade_view.h"
#include "views/tone_view.h"

#include <QImage>
#include <QPainterPath>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace chromalog {
namespace {

struct Offscreen {
    Offscreen() { setenv("QT_QPA_PLATFORM", "offscreen", 0); }
};

class Charts : Offscreen {
  private:
    ApplicationGuard application_;
    test::HeadlessDesktop desktop_;
    test::HeadlessColours colours_;
    test::HeadlessSlider slider_;

  public:
    toneView tone{colours_, desktop_};
    degradeView gradient{desktop_};

    Charts() {
        colours_.setSecondColor(Colour::rgb(0.2, 0.4, 0.8));
        slider_.setValue(60);
        tone.toneSlider.connect(&slider_);
    }
};

int sideOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

void redraw(benchmark::State& state, View& view) {
    const int side = sideOf(state);
    view.layOut({0, 0, double(side), double(side)});
    QImage screen(side, side, QImage::Format_RGB32);
    CellPicture cells;
    for (auto _ : state) {
        QPainter painter(&screen);
        PaintCanvas canvas(painter, {view.bounds(), false, view.bounds(), true, true, nullptr, &cells});
        view.drawRect(canvas);
    }
}

void toneChart(benchmark::State& state) {
    Charts charts;
    redraw(state, charts.tone);
}

void gradient(benchmark::State& state) {
    Charts charts;
    redraw(state, charts.gradient);
}

/// Each cell's outline twice, as the chart fills and strokes it.
void plainPaths(benchmark::State& state) {
    Charts charts;
    const int side = sideOf(state);
    QImage screen(side, side, QImage::Format_RGB32);
    const QPointF centre(side / 2, side / 2);
    const auto circle = [&](double r) { return QRectF(centre.x() - r, centre.y() - r, 2 * r, 2 * r); };
    for (auto _ : state) {
        QPainter painter(&screen);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int ring = toneRings; ring >= 1; --ring)
            for (int sector = 0; sector < toneSectors; ++sector) {
                const double angle = sector * 360.0 / toneSectors, sweep = 360.0 / toneSectors;
                const double unit = side / 16.0;
                QPainterPath path;
                path.arcMoveTo(circle(unit * (ring + 1)), angle);
                path.arcTo(circle(unit * (ring + 1)), angle, sweep);
                path.arcTo(circle(unit * ring), angle + sweep, -sweep);
                path.closeSubpath();
                for (int i = 0; i < 2; ++i)
                    painter.fillPath(path, QColor(ring * 30, sector * 7, 99 + i));
            }
    }
}

/// Each cell's square twice, as the gradient fills and frames it.
void plainRectangles(benchmark::State& state) {
    Charts charts;
    QImage screen(sideOf(state), sideOf(state), QImage::Format_RGB32);
    const double side = double(sideOf(state)) / gradientCells;
    for (auto _ : state) {
        QPainter painter(&screen);
        for (int row = 0; row < gradientCells; ++row)
            for (int column = 0; column < gradientCells; ++column)
                for (int i = 0; i < 2; ++i)
                    painter.fillRect(QRectF(column * side, row * side, side, side),
                                     QColor(row * 15, column * 15, i));
    }
}

#define AT_ALL_SIZES(what)                                                                                   \
    BENCHMARK(what)->RangeMultiplier(2)->Range(128, 1024)->Unit(benchmark::kMicrosecond)
AT_ALL_SIZES(toneChart);
AT_ALL_SIZES(plainPaths);
AT_ALL_SIZES(gradient);
AT_ALL_SIZES(plainRectangles);

} // namespace
} // namespace chromalog
