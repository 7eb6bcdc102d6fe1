// Painting is exact: which pixels a primitive covers, in flipped and unflipped views.
#include "qt/desktop_fixture.h"

#include "qt/convert.h"
#include "qt/fonts.h"
#include "qt/paint_canvas.h"
#include "qt/raster_canvas.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>

using namespace chromalog;
using namespace chromalog::test;

namespace {

constexpr std::uint32_t red = 0xFFFF0000, blue = 0xFF0000FF, black = 0xFF000000, none = 0;

class CanvasTest : public DesktopTest {
  protected:
    SpyView view;

    /// The view's picture, as rows of letters: '.' nothing, 'r' red, 'b' blue, 'k' black, '?' anything else.
    std::vector<std::string> picture(int width, int height, bool flipped, std::function<void(Canvas&)> draw) {
        view.flipped = flipped;
        view.draw = std::move(draw);
        view.layOut({0, 0, double(width), double(height)});
        const Bitmap bitmap = rasterPicture(view);
        std::vector<std::string> rows(height, std::string(width, '?'));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const std::uint32_t pixel = bitmap.pixels[std::size_t(y) * width + x];
                char& letter = rows[y][x];
                if (pixel == none) letter = '.';
                if (pixel == red) letter = 'r';
                if (pixel == blue) letter = 'b';
                if (pixel == black) letter = 'k';
            }
        return rows;
    }
};

using Rows = std::vector<std::string>;

TEST_F(CanvasTest, ARectangleCoversExactlyItsPixels) {
    const auto draw = [](Canvas& c) {
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillRect({1, 1, 2, 1});
    };
    EXPECT_EQ(picture(4, 4, false, draw), (Rows{"....", "....", ".rr.", "...."}));
    EXPECT_EQ(picture(4, 4, true, draw), (Rows{"....", ".rr.", "....", "...."}));
}

TEST_F(CanvasTest, AFrameLiesInsideItsRectangle) {
    const auto draw = [](Canvas& c) {
        c.setFill(Colour::rgb(1, 0, 0));
        c.frameRect({1, 1, 4, 3}, 1);
    };
    EXPECT_EQ(picture(6, 5, false, draw), (Rows{"......", ".rrrr.", ".r..r.", ".rrrr.", "......"}));
}

TEST_F(CanvasTest, AStrokedRectangleKeepsItsCornersAndStaysInTheView) {
    const auto draw = [](Canvas& c) {
        c.setStroke(Colour::rgb(0, 0, 1));
        c.setLineWidth(1);
        c.strokeRect({0, 0, 5, 4});
    };
    const Rows whole{"bbbbb", "b...b", "b...b", "bbbbb"};
    EXPECT_EQ(picture(5, 4, false, draw), whole);
    EXPECT_EQ(picture(5, 4, true, draw), whole);
}

TEST_F(CanvasTest, AStrokeOfTwoLiesHalfOutside) {
    const auto draw = [](Canvas& c) {
        c.setStroke(Colour());
        c.setLineWidth(2);
        c.strokeRect({2, 2, 3, 3});
    };
    EXPECT_EQ(picture(7, 7, true, draw),
              (Rows{".......", ".kkkkk.", ".kkkkk.", ".kk.kk.", ".kkkkk.", ".kkkkk.", "......."}));
}

TEST_F(CanvasTest, APictureIsDrawnPixelByPixelAndUpright) {
    Bitmap bitmap{2, 2, {red, blue, black, red}};
    const auto draw = [&](Canvas& c) { c.drawBitmap(bitmap, {0, 0, 2, 2}); };
    EXPECT_EQ(picture(2, 2, false, draw), (Rows{"rb", "kr"}));
    EXPECT_EQ(picture(2, 2, true, draw), (Rows{"rb", "kr"}));
}

TEST_F(CanvasTest, ACutPictureShowsWhatTheSamePixelsShowUncut) {
    Bitmap bitmap{3, 2, {red, 0, black, blue, 0, red}};
    const auto draw = [&](Canvas& c) {
        c.setFill(Colour::rgb(0, 0, 1));
        c.fillRect({0, 0, 2, 1});
        c.drawBitmap(bitmap, {0, 0, 3, 2});
    };
    const Rows uncut = picture(3, 2, true, draw);
    EXPECT_EQ(uncut, (Rows{"rbk", "b.r"}));
    bitmap.cut = true;
    EXPECT_EQ(picture(3, 2, true, draw), uncut);
}

TEST_F(CanvasTest, APictureMadeForItsPlaceIsNotMixedAtABrokenScale) {
    for (const int side : {166, 167}) { // of 166.67 pixels
        Bitmap halves{side, side, {}};
        for (int i = 0; i < side * side; ++i)
            halves.pixels.push_back(i % side < side / 2 ? red : blue);
        QImage device(170, 170, QImage::Format_RGB32);
        device.setDevicePixelRatio(5 / 3.0);
        device.fill(Qt::black);
        {
            QPainter painter(&device);
            PaintCanvas(painter, {{0, 0, 100, 100}, false, {0, 0, 100, 100}})
                .drawBitmap(halves, {0, 0, 100, 100});
        }
        for (int x = 0; x < 165; ++x) {
            const QRgb pixel = device.pixel(x, 80);
            EXPECT_TRUE(pixel == red || pixel == blue) << side << ": " << x << " is " << std::hex << pixel;
        }
    }
}

TEST_F(CanvasTest, EveryByteOfAColourSurvives) {
    for (int byte = 0; byte < 256; ++byte) {
        view.draw = [&](Canvas& c) {
            c.setFill(Colour::rgb(byte / 255.0, 0, (255 - byte) / 255.0));
            c.fillRect({0, 0, 1, 1});
        };
        view.layOut({0, 0, 1, 1});
        const std::uint32_t expected = 0xFF000000U | unsigned(byte) << 16 | unsigned(255 - byte);
        EXPECT_EQ(rasterPicture(view).pixels.front(), expected);
    }
}

/// A quarter of a disc, from 0 to 90 degrees, is up and right while y grows upwards, down and right while it
/// grows down.
TEST_F(CanvasTest, AnglesTurnFromXTowardsGrowingY) {
    const auto draw = [](Canvas& c) {
        Path quarter;
        quarter.moveTo({10, 10});
        quarter.arc({10, 10}, 9, 0, 90, false);
        quarter.close();
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillPath(quarter);
    };
    Rows rows = picture(20, 20, false, draw);
    EXPECT_EQ(rows[7][12], 'r');
    EXPECT_EQ(rows[12][12], '.');
    EXPECT_EQ(rows[7][7], '.');
    rows = picture(20, 20, true, draw);
    EXPECT_EQ(rows[12][12], 'r');
    EXPECT_EQ(rows[7][12], '.');
}

TEST_F(CanvasTest, ARingSectorIsAnArcForthAndAnArcBack) {
    const auto draw = [](Canvas& c) {
        Path sector;
        sector.arc({10, 10}, 9, 0, 90, false);
        sector.arc({10, 10}, 5, 90, 0, true);
        sector.close();
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillPath(sector);
    };
    const Rows rows = picture(20, 20, false, draw);
    EXPECT_EQ(rows[5][15], 'r'); // between the radii
    EXPECT_EQ(rows[8][11], '.'); // inside the inner one
    EXPECT_EQ(rows[14][15], '.');
}

TEST_F(CanvasTest, ThePictureOfAPickHasNoMixedColours) {
    const Rows rows = picture(21, 21, false, [](Canvas& c) {
        Path disc;
        disc.oval({1, 1, 19, 19});
        c.setFill(Colour::rgb(1, 0, 0));
        c.fillPath(disc);
        c.setStroke(Colour::rgb(1, 0, 0));
        c.setLineWidth(1.5);
        c.strokePath(disc);
    });
    for (const std::string& row : rows)
        EXPECT_EQ(row.find('?'), std::string::npos) << row;
}

/// Text stands on its baseline in both kinds of views: ink above it, none below (the letters have no
/// descenders).
TEST_F(CanvasTest, TextIsUpright) {
    for (const bool flipped : {false, true}) {
        view.flipped = flipped;
        view.draw = [](Canvas& c) {
            c.setFill(Colour());
            c.drawText({2, 15}, "LLLL", {Font::Face::label, 12}, 0);
        };
        view.layOut({0, 0, 40, 30});
        const Bitmap bitmap = rasterPicture(view);
        const auto inkInRow = [&](int row) {
            int ink = 0;
            for (int x = 0; x < 40; ++x)
                ink += (bitmap.pixels[std::size_t(row) * 40 + x] >> 24) > 128;
            return ink;
        };
        EXPECT_GT(inkInRow(14), 12) << flipped; // the feet: four wide strokes on the baseline's row
        EXPECT_GT(inkInRow(8), 0);
        EXPECT_LT(inkInRow(8), 12);
        EXPECT_EQ(inkInRow(16), 0);
    }
}

TEST_F(CanvasTest, ControlCharactersInANameTakeNoRoom) {
    const auto drawn = [&](std::string_view text) {
        view.draw = [text](Canvas& c) {
            c.setFill(Colour());
            c.drawText({0, 15}, text, {Font::Face::label, 12}, 80);
        };
        view.flipped = true;
        view.layOut({0, 0, 100, 20});
        return rasterPicture(view).pixels;
    };
    EXPECT_EQ(drawn(std::string_view("\0Sk\x1Fy\0\x7F", 7)), drawn("Sky"));
    EXPECT_EQ(lineToQt("S\nk\xC2\x85\xE2\x80\xA8y\xE2\x80\xA9"), "Sky"); // nor do line ends
    EXPECT_EQ(drawn(std::string_view("\0\0\0\0\0\0\0\0\0", 9)), drawn(""));
}

TEST_F(CanvasTest, ALongNameEndsInTheEllipsis) {
    const auto widthOf = [&](double maxWidth) {
        view.draw = [&](Canvas& c) {
            c.setFill(Colour());
            c.drawText({0, 15}, "Process Magenta 50% tint", {Font::Face::label, 12}, maxWidth);
        };
        view.flipped = true;
        view.layOut({0, 0, 300, 20});
        const Bitmap bitmap = rasterPicture(view);
        int last = 0;
        for (int i = 0; i < 300 * 20; ++i)
            if (bitmap.pixels[i] >> 24) last = std::max(last, i % 300);
        return last;
    };
    const double whole = QFontMetricsF(fontFor({})).horizontalAdvance("Process Magenta 50% tint");
    EXPECT_EQ(widthOf(0), widthOf(whole));
    EXPECT_LE(widthOf(100), 100);
    EXPECT_GT(widthOf(100), 70);
    EXPECT_LT(widthOf(whole - 0.5), widthOf(whole));
}

TEST_F(CanvasTest, LabelsAreSizedInPixelsWithoutLigatures) {
    const QFont label = fontFor({Font::Face::label, 12});
    EXPECT_EQ(label.pixelSize(), 12);
    const QFontMetricsF metrics(label);
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance("fi"),
                     metrics.horizontalAdvance("f") + metrics.horizontalAdvance("i"));
    EXPECT_EQ(fontFor({Font::Face::message, 6}).pixelSize(), 6);
    EXPECT_EQ(fontFor({Font::Face::message, 6}).family(), QGuiApplication::font().family());
}

TEST_F(CanvasTest, AnEmptyViewHasAnEmptyPicture) {
    view.layOut({0, 0, 0, 10});
    EXPECT_TRUE(rasterPicture(view).empty());
}

} // namespace
