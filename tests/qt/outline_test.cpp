// Outlines in the colour of what was just filled are painted a cheaper way, and look as the toolkit's own.
#include "qt/desktop_fixture.h"

#include "qt/paint_canvas.h"

#include <QImage>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class OutlineTest : public DesktopTest {
  protected:
    static constexpr int side = 160;

    static QImage painted(bool flipped, const std::function<void(Canvas&)>& draw) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const Rect all{0, 0, side, side};
        PaintCanvas canvas(painter, {all, flipped, all, true, true});
        draw(canvas);
        return image;
    }

    static Path cell(int ring, int sector) {
        Path path;
        path.arc({80, 80}, 10.0 * (ring + 1), sector * 11.25, (sector + 1) * 11.25, false);
        path.arc({80, 80}, 10.0 * ring, (sector + 1) * 11.25, sector * 11.25, true);
        path.close();
        return path;
    }

    /// Fills and outlines a cell; something invisible between the two makes the toolkit stroke.
    static void draw(Canvas& canvas, const Path& path, const Colour& outline, bool byTheToolkit) {
        canvas.setLineWidth(1.5);
        canvas.setFill(Colour::rgb(0, 0, 0));
        canvas.fillPath(path);
        if (byTheToolkit) canvas.fillRect({0, 0, 0, 0});
        canvas.setStroke(outline);
        canvas.strokePath(path);
    }

    static int largestDifference(const QImage& a, const QImage& b) {
        int largest = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                largest = std::max(largest, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
        return largest;
    }
};

TEST_F(OutlineTest, ACellsOutlineInItsOwnColourLooksAsTheToolkitsStroke) {
    for (bool flipped : {false, true})
        for (int ring : {1, 2, 4, 7})
            for (int sector : {0, 5, 15, 16, 31}) {
                const Path path = cell(ring, sector);
                const auto image = [&](bool byTheToolkit) {
                    return painted(flipped, [&](Canvas& c) { draw(c, path, Colour(), byTheToolkit); });
                };
                const QImage fill = painted(flipped, [&](Canvas& c) {
                    c.setFill(Colour());
                    c.fillPath(path);
                });
                EXPECT_LT(largestDifference(image(false), image(true)), 64) << ring << ' ' << sector;
                EXPECT_GT(largestDifference(image(false), fill), 100) << "the outline shows";
            }
}

TEST_F(OutlineTest, AnOutlineInAnotherColourIsOnlyAnOutline) {
    const QImage image = painted(false, [&](Canvas& c) { draw(c, cell(5, 0), Colour::rgb(1, 0, 0), false); });
    EXPECT_EQ(image.pixel(80 + 55, 80 - 5), 0xFF000000) << "the middle keeps the fill";
    EXPECT_GT(qRed(image.pixel(80 + 55, 80)), 100) << "an edge is red";
}

TEST_F(OutlineTest, AFrameIsPaintedUnlessItsRectangleHasThatColour) {
    const Rect r{2, 2, 6, 6};
    const auto corner = [&](const std::function<void(Canvas&)>& between) {
        return painted(false,
                       [&](Canvas& c) {
                           c.setFill(Colour::rgb(1, 0, 0));
                           c.fillRect(r);
                           between(c);
                           c.frameRect(r, 1);
                       })
            .pixel(2, side - 3);
    };
    EXPECT_EQ(corner([](Canvas&) {}), 0xFFFF0000);
    EXPECT_EQ(corner([](Canvas& c) { c.setFill(Colour::rgb(0, 0, 1)); }), 0xFF0000FF);
    EXPECT_EQ(corner([](Canvas& c) {
                  c.setFill(Colour::rgb(0, 0, 1));
                  c.fillRect({0, 0, 20, 20});
                  c.setFill(Colour::rgb(1, 0, 0));
              }),
              0xFFFF0000)
        << "painted over meanwhile";
}

} // namespace
