// A screen of two device pixels a point: what is shown is sharp, what is picked stays the same.
#include "qt/desktop_fixture.h"

#include "qt/controls/list_scroll_area.h"

#include <QMouseEvent>

using namespace chromalog;
using namespace chromalog::test;

namespace {

struct ScaleOfTwo {
    ScaleOfTwo() { setenv("QT_SCALE_FACTOR", "2", 1); }
    ~ScaleOfTwo() { unsetenv("QT_SCALE_FACTOR"); }
};

class ScaleTest : ScaleOfTwo, public DesktopTest {
  protected:
    QtDesktop desktop{settings()};
    SpyView view;
    ViewWidget widget;

    void show(int side) {
        widget.resize(side, side);
        widget.setView(&view, &desktop);
        widget.show();
        ASSERT_EQ(widget.devicePixelRatioF(), 2);
    }
};

/// Every pixel of its own colour, so that a shift or a mixture shows.
Bitmap pattern(int side) {
    Bitmap bitmap{side, side, {}};
    for (int i = 0; i < side * side; ++i)
        bitmap.pixels.push_back(0xFF000000U | unsigned(i % side) * 4 << 16 | unsigned(i / side) * 4 << 8);
    return bitmap;
}

TEST_F(ScaleTest, TheCaptureIsOnePixelAPointAndExact) {
    const Bitmap source = pattern(32);
    view.draw = [&](Canvas& c) {
        EXPECT_EQ(c.deviceScale(), 1);
        EXPECT_TRUE(c.drawsToScreen());
        c.drawBitmap(source, {0, 0, 32, 32});
    };
    widget.resize(32, 32);
    widget.setView(&view, &desktop);
    const Bitmap captured = desktop.capture(view);
    EXPECT_EQ(captured.width, 32);
    EXPECT_EQ(captured.pixels, source.pixels);
}

TEST_F(ScaleTest, APictureOfTheDevicesSizeIsShownPixelByPixel) {
    const Bitmap source = pattern(64);
    view.draw = [&](Canvas& c) {
        EXPECT_EQ(c.deviceScale(), 2);
        c.drawBitmap(source, {0, 0, 32, 32});
    };
    show(32);
    widget.clearFocus();
    const QImage shown = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(shown.size(), QSize(64, 64));
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(shown.pixel(x, y), source.pixels[std::size_t(y) * 64 + x]) << x << ' ' << y;
}

TEST_F(ScaleTest, RectanglesAndLinesAreTwiceAsFine) {
    view.flipped = true;
    view.draw = [](Canvas& c) {
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillRect({0, 0, 20, 20});
        c.setStroke(Colour());
        c.strokeRect({5, 5, 10, 10});
    };
    show(20);
    widget.clearFocus();
    const QImage shown = widget.grab().toImage();
    const auto black = [&](int x) { return shown.pixelColor(x, 20) == QColor(Qt::black); };
    EXPECT_FALSE(black(8));
    EXPECT_TRUE(black(9) && black(10)); // one point, half outside the edge at 5
    EXPECT_FALSE(black(11));
    EXPECT_TRUE(black(29) && black(30));
    EXPECT_FALSE(black(31));
    EXPECT_EQ(shown.pixelColor(9, 9), QColor(Qt::black)); // the corner too
}

TEST_F(ScaleTest, PositionsStayPointsOfTheView) {
    show(40);
    const QPointF at(10.5, 20.25); // device pixels fall on half points
    QMouseEvent press(QEvent::MouseButtonPress, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      {});
    QApplication::sendEvent(&widget, &press);
    EXPECT_EQ(view.places.back(), (Point{10.5, 19.75}));
}

} // namespace
