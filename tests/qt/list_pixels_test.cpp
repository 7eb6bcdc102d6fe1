// A swatch list shows the same pixels whatever part of it is painted, and text that was laid out once shows
// as text that is laid out anew.
#include "support/list_delegate.h"

#include "qt/application_guard.h"
#include "qt/line_cache.h"
#include "qt/paint_canvas.h"
#include "qt/raster_canvas.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace chromalog {
namespace {

constexpr int kWidth = 200;

struct Offscreen {
    Offscreen() { ::setenv("QT_QPA_PLATFORM", "offscreen", 0); }
};

class ListPixels : public testing::Test, Offscreen {
  protected:
    ListPixels() : records(new FCOStruct[kListCapacity]()) {
        // The tallest and the deepest characters that a name can hold, one that no font has, and a long name.
        const std::string_view names[] = {"\x81\x80\xE5\x85 \xCD\xEA", "gjpqy,;_|", "\xF0\xC3\xDE\xB9",
                                          "plain", "a name that is much too long for the width of a list"};
        for (int i = 0; i < 100; ++i) {
            const std::string_view name = names[i % 5];
            records[i].Namen[0] = static_cast<std::uint8_t>(name.size());
            std::copy(name.begin(), name.end(), records[i].Namen + 1);
            records[i].SRed = i * 600, records[i].SGreen = 65535 - i * 300, records[i].SBlue = 30000;
        }
        list.setSwatchList(records.get());
        list.setNumberOfColors(100);
        list.setSelectedColor(7);
        list.initWithFrame({0, 0, kWidth, 0});
    }

    /// The list from `top` down, painted with a clip of just that part.
    QImage picture(int top, int height, LineCache* lines, double scale = 1) {
        QImage image(int(kWidth * scale), int(height * scale), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(0, -top);
        PaintTarget target;
        target.bounds = list.bounds();
        target.flipped = true;
        target.clip = {0, double(top), kWidth, double(height)};
        target.lines = lines;
        PaintCanvas canvas(painter, target);
        list.drawRect(canvas);
        return image;
    }
    int height() const { return int(list.frame().h); }

    ApplicationGuard application;
    test::ListDelegate delegate;
    CSwatchList list{delegate};
    std::unique_ptr<FCOStruct[]> records;
    LineCache lines;
};

TEST_F(ListPixels, APartIsPixelEqualToPaintingAll) {
    for (LineCache* cache : {static_cast<LineCache*>(nullptr), &lines}) {
        const QImage all = picture(0, height(), cache);
        for (int top = 0; top + 60 <= height(); top += 7)
            ASSERT_EQ(picture(top, 60, cache), all.copy(0, top, kWidth, 60)) << top;
        for (int top = 0; top < height(); top += 3)
            ASSERT_EQ(picture(top, 1, cache), all.copy(0, top, kWidth, 1)) << top;
    }
}

TEST_F(ListPixels, APartIsPixelEqualAtTwiceTheScale) {
    const QImage all = picture(0, height(), &lines, 2);
    for (int top = 0; top + 60 <= height(); top += 31) {
        QImage part = all.copy(0, 2 * top, 2 * kWidth, 120);
        part.setDevicePixelRatio(2);
        ASSERT_EQ(picture(top, 60, &lines, 2), part) << top;
    }
}

/// How many pixels differ by more than the toolkit's own rounding of glyph positions.
int differing(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 96;
    return count;
}

TEST_F(ListPixels, KeptLinesShowAsLinesLaidOutAnew) {
    const QImage anew = picture(0, height(), nullptr);
    const QImage kept = picture(0, height(), &lines);
    EXPECT_EQ(picture(0, height(), &lines), kept); // the second time from the cache
    EXPECT_EQ(differing(anew, kept), 0);
}

TEST_F(ListPixels, AKeptLineFollowsItsNameAndTheWidth) {
    const QImage before = picture(0, 60, &lines);
    records[0].Namen[1] = 'W';
    EXPECT_NE(picture(0, 60, &lines), before);
    LineCache fresh;
    EXPECT_EQ(picture(0, 60, &lines), picture(0, 60, &fresh));
    const QImage wide = picture(88, 44, &lines); // the long name
    list.setFrame({0, 0, 120, list.frame().h});
    const QImage narrow = picture(88, 44, &lines);
    EXPECT_NE(narrow, wide);
    EXPECT_EQ(narrow, picture(88, 44, &fresh)) << "cut shorter";
}

TEST_F(ListPixels, APictureReachesAsFarAsThePainterPaints) {
    constexpr int count = 1488; // the next row would lie beyond
    std::copy_n(records.get(), 1, records.get() + count - 1);
    records[count - 1].SRed = 65535, records[count - 1].SGreen = 0, records[count - 1].SBlue = 0;
    list.setNumberOfColors(count);
    list.initWithFrame({0, 0, kWidth, 0});
    const Bitmap whole = rasterPicture(list);
    EXPECT_EQ(whole.height, 22 * (count + 1));
    const auto at = [&](int x, int y) { return whole.pixels[std::size_t(y) * whole.width + x]; };
    EXPECT_EQ(at(10, 22 * (count - 1) + 10), 0xFFFF0000U) << "the last patch";
    list.setNumberOfColors(count + 1);
    list.initWithFrame({0, 0, kWidth, 0});
    EXPECT_EQ(rasterPicture(list).height, kLongestSide);
}

} // namespace
} // namespace chromalog
