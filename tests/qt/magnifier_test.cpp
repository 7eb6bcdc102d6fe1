#include "qt/desktop_fixture.h"

#include "qt/contrast.h"
#include "qt/screen/magnifier.h"

#include <QPainter>

#include <algorithm>

namespace chromalog::test {
namespace {

constexpr int kHalf = kMagnifiedSide / 2;

/// Every pixel has a colour of its own.
QImage picture(int width, int height, double scale) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, QColor(x & 255, y & 255, 16 * (x >> 8) + (y >> 8)));
    image.setDevicePixelRatio(scale);
    return image;
}

class MagnifierTest : public DesktopTest, public testing::WithParamInterface<double> {
  protected:
    static std::vector<QPoint> places(const QImage& image) {
        const int right = image.width() - 1, bottom = image.height() - 1;
        return {{0, 0},
                {right, 0},
                {0, bottom},
                {right, bottom},
                {right / 2, 0},
                {right, bottom / 2},
                {right / 2, bottom / 2},
                {right - 160, bottom - 160}};
    }
    QImage image = picture(960, 540, GetParam());
};

TEST_P(MagnifierTest, StandsOnTheScreenBesideWhatItShows) {
    for (const QPoint pixel : places(image))
        for (const std::vector<QColor>& taken : {std::vector<QColor>(), {Qt::red}}) {
            const QRect place = magnifierPlace({image, pixel, taken});
            EXPECT_TRUE(image.rect().contains(place)) << pixel.x() << ' ' << pixel.y();
            const QRect around(pixel - QPoint(kHalf, kHalf), QSize(kMagnifiedSide, kMagnifiedSide));
            EXPECT_FALSE(place.intersects(around)) << pixel.x() << ' ' << pixel.y();
        }
}

TEST_P(MagnifierTest, ShowsEachPixelAroundTheAimInACellOfItsOwn) {
    for (const QPoint pixel : places(image)) {
        QImage drawn(image.size(), QImage::Format_RGB32);
        drawn.fill(Qt::black);
        QPainter painter(&drawn);
        paintMagnifier(painter, {image, pixel, {}}, QPalette(QColor(240, 240, 240)));
        painter.end();
        const QRect place = magnifierPlace({image, pixel, {}});
        const double cell = (place.width() - 2.0) / kMagnifiedSide;
        for (int y = 0; y < kMagnifiedSide; ++y)
            for (int x = 0; x < kMagnifiedSide; ++x) {
                const QPoint source = pixel + QPoint(x - kHalf, y - kHalf);
                const QPoint middle =
                    place.topLeft() + QPoint(int(1 + (x + 0.5) * cell), int(1 + (y + 0.5) * cell));
                if (!image.rect().contains(source)) continue;
                EXPECT_EQ(drawn.pixelColor(middle).name(), image.pixelColor(source).name()) << x << ' ' << y;
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, MagnifierTest, testing::Values(1.0, 1.5, 2.0));

using Magnifier = DesktopTest;

TEST_F(Magnifier, ItsTextStandsOutInLightAndDark) {
    const QImage image = picture(400, 400, 1);
    for (const QColor& ground : {QColor(240, 240, 240), QColor(32, 32, 32)}) {
        QPalette palette(ground);
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::WindowText, ground.lightness() > 128 ? Qt::black : Qt::white);
        QImage drawn(image.size(), QImage::Format_RGB32);
        drawn.fill(Qt::magenta);
        QPainter painter(&drawn);
        paintMagnifier(painter, {image, {100, 100}, {}}, palette);
        painter.end();
        const QRect place = magnifierPlace({image, {100, 100}, {}});
        const QRect line(place.right() - 70, place.bottom() - 18, 64, 16);
        double most = 0;
        for (int y = line.top(); y < line.bottom(); ++y)
            for (int x = line.left(); x < line.right(); ++x)
                most = std::max(most, contrast(drawn.pixelColor(x, y), ground));
        EXPECT_GT(most, 7) << ground.name().toStdString();
        EXPECT_EQ(drawn.pixelColor(line.topLeft()), ground);
    }
}

} // namespace
} // namespace chromalog::test
