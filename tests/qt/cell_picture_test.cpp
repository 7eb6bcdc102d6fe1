// Cells whose covers are kept look exactly as when each is painted.
#include "qt/desktop_fixture.h"

#include "qt/cell_picture.h"
#include "qt/convert.h"
#include "qt/paint_canvas.h"

#include <QImage>

#include <cmath>

using namespace chromalog;
using namespace chromalog::test;

namespace {

struct Drawing {
    Rect bounds;
    double scale = 1;
    bool flipped = false;
    double lineWidth = 1.5;
    double sliceDegrees = 30;
};

Colour someColour(int seed) {
    const auto channel = [seed](int i) { return std::fmod((3 * seed + i) * 0.6180339887, 1.0); };
    return Colour::rgb(channel(0), channel(1), channel(2));
}

std::vector<Canvas::Cell> cellsOf(const Drawing& drawing, int seed) {
    const double radius = drawing.bounds.h / 2;
    const Point centre{drawing.bounds.x + radius, drawing.bounds.y + radius};
    std::vector<Canvas::Cell> cells;
    for (int ring = 3; ring >= 1; --ring)
        for (double start = 0; start < 360; start += drawing.sliceDegrees) {
            Path& path = cells.emplace_back(Path(), someColour(seed++)).path;
            path.arc(centre, radius * (ring + 1) / 4, start, start + drawing.sliceDegrees, false);
            path.arc(centre, radius * ring / 4, start + drawing.sliceDegrees, start, true);
            path.close();
        }
    const double inner = radius / 4;
    cells.emplace_back(Path(), someColour(seed++))
        .path.oval({centre.x - inner, centre.y - inner, 2 * inner, 2 * inner});
    return cells;
}

class CellPictureTest : public DesktopTest {
  protected:
    CellPicture kept;

    static QImage paint(const Drawing& drawing, std::span<const Canvas::Cell> cells, CellPicture* kept) {
        const Rect& bounds = drawing.bounds;
        QImage screen(int(bounds.w * drawing.scale), int(bounds.h * drawing.scale), QImage::Format_RGB32);
        screen.fill(Qt::magenta);
        screen.setDevicePixelRatio(drawing.scale);
        QPainter painter(&screen);
        PaintCanvas canvas(painter, {bounds, drawing.flipped, bounds, true, true, nullptr, kept});
        canvas.setFill(Colour::rgb(0.9, 0.9, 0.9));
        canvas.fillRect(bounds);
        canvas.setLineWidth(drawing.lineWidth);
        canvas.drawCells(cells);
        return screen;
    }
    void expectTheSame(const Drawing& drawing) {
        for (int seed = 1; seed < 5; ++seed) { // the first is painted, the second learnt
            const auto cells = cellsOf(drawing, seed * 1000);
            EXPECT_EQ(paint(drawing, cells, &kept), paint(drawing, cells, nullptr)) << seed;
        }
    }
    bool learnt(const Drawing& drawing) {
        std::vector<Path> paths;
        for (const Canvas::Cell& cell : cellsOf(drawing, 1))
            paths.push_back(cell.path);
        const QSize size(int(drawing.bounds.w * drawing.scale), int(drawing.bounds.h * drawing.scale));
        return kept.knows({paths, drawing.lineWidth, size, drawing.scale, drawing.flipped});
    }
};

TEST_F(CellPictureTest, EveryPixelIsAsWhenEachCellIsPainted) {
    for (const double side : {40.0, 233.0, 400.0}) {
        expectTheSame({{0, 0, side, side}});
        EXPECT_TRUE(learnt({{0, 0, side, side}}));
    }
}

TEST_F(CellPictureTest, AtTwoPixelsAPointToo) {
    expectTheSame({{0, 0, 151, 151}, 2});
    EXPECT_TRUE(learnt({{0, 0, 151, 151}, 2}));
}

TEST_F(CellPictureTest, InAViewWithAnOriginOfItsOwnUpsideDownOrWide) {
    expectTheSame({{30, -20, 120, 120}});
    expectTheSame({{0, 0, 120, 120}, 1, true});
    expectTheSame({{0, 0, 300, 90}});
}

TEST_F(CellPictureTest, OtherShapesAreLearntAnew) {
    expectTheSame({{0, 0, 100, 100}});
    expectTheSame({{0, 0, 100, 100}, 1, false, 4});
    expectTheSame({{0, 0, 100, 100}, 1, false, 4, 45});
    expectTheSame({{0, 0, 100, 100}});
}

TEST_F(CellPictureTest, AFractionOfAPixelIsPaintedEachTime) {
    expectTheSame({{0, 0, 100, 100}, 1.5});
    EXPECT_FALSE(learnt({{0, 0, 100, 100}, 1.5}));
}

TEST_F(CellPictureTest, WhatShowsThroughIsPaintedEachTime) {
    const Drawing drawing{{0, 0, 100, 100}};
    for (int seed = 1; seed < 4; ++seed) {
        auto cells = cellsOf(drawing, seed);
        cells[5].colour = Colour::rgb(1, 0, 0, 0.5);
        EXPECT_EQ(paint(drawing, cells, &kept), paint(drawing, cells, nullptr));
    }
    EXPECT_FALSE(learnt(drawing));
}

} // namespace
