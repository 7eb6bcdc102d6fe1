// The lines of a list are whole on screens whose scale is no whole number, wherever the list stands and
// however far it is scrolled.
#include "qt/desktop_fixture.h"
#include "support/list_delegate.h"

#include "qt/controls/list_scroll_area.h"
#include "qt/drags.h"

#include <QDrag>
#include <QScrollBar>

#include <cmath>
#include <memory>

using namespace chromalog;
using namespace chromalog::test;

namespace {

constexpr int rows = 30, selected = 4;
constexpr QRgb black = 0xFF000000, blue = 0xFF0000FF, white = 0xFFFFFFFF;

struct ScreenScale {
    explicit ScreenScale(const char* scale) { setenv("QT_SCALE_FACTOR", scale, 1); }
    ~ScreenScale() { unsetenv("QT_SCALE_FACTOR"); }
};

class ListFrames : ScreenScale, public DesktopTest, public testing::WithParamInterface<const char*> {
  protected:
    ListFrames() : ScreenScale(GetParam()), records(new FCOStruct[kListCapacity]()) {
        for (int i = 0; i < rows; ++i)
            records[i].SRed = 65535, records[i].SGreen = 2000 * i;
        list.setSwatchList(records.get());
        list.setNumberOfColors(rows);
        list.setSelectedColor(selected);
        area.setWidget(content);
        content->setView(&list, &desktop);
    }

    /// Lays the list out and shows it; positions in points.
    void show(const QRect& geometry) {
        window.resize(geometry.right() + 8, geometry.bottom() + 8);
        area.setGeometry(geometry);
        list.setScrollSize();
        window.show();
    }

    void scrollTo(int y) {
        area.verticalScrollBar()->setValue(y);
        picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect shown(area.viewport()->mapTo(&window, QPoint()), area.viewport()->size());
        const double scale = window.devicePixelRatioF();
        seen = QRectF(QPointF(shown.topLeft()) * scale, QSizeF(shown.size()) * scale);
    }

    /// The pixel of a point of the list.
    QPoint pixel(double x, double y) const {
        const QPointF at = QPointF(content->mapTo(&window, QPoint())) + QPointF(x, y);
        return (at * window.devicePixelRatioF()).toPoint();
    }
    bool shows(QPoint p) const { return seen.adjusted(2, 2, -2, -2).contains(p); }

    /// How far the colour at a pixel reaches in each direction.
    QRect areaOf(QPoint from) const {
        const QRgb colour = picture.pixel(from);
        const auto last = [&](int dx, int dy) {
            QPoint p = from;
            const QPoint step(dx, dy);
            while (picture.rect().contains(p + step) && picture.pixel(p + step) == colour)
                p += step;
            return p;
        };
        return {QPoint(last(-1, 0).x(), last(0, -1).y()), QPoint(last(1, 0).x(), last(0, 1).y())};
    }

    /// Whether every pixel between two corners has the colour.
    bool isAll(QRgb colour, const QRect& part) const {
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                if (picture.pixel(x, y) != colour) return false;
        return true;
    }
    QRect clipped(QRect part) const { return part & seen.toRect().adjusted(1, 1, -1, -1); }

    void checkPatch(int row) const {
        const QPoint middle = pixel(21, 22 * row + 13);
        if (!shows(middle)) return;
        const double scale = window.devicePixelRatioF();
        const QRect patch = areaOf(middle), outside = patch.adjusted(-1, -1, 1, 1);
        EXPECT_NEAR(patch.width(), 31 * scale, 2);
        EXPECT_TRUE(isAll(black, clipped({outside.topLeft(), outside.bottomLeft()}))) << "left";
        EXPECT_TRUE(isAll(black, clipped({outside.topRight(), outside.bottomRight()}))) << "right";
        EXPECT_TRUE(isAll(black, clipped({outside.topLeft(), outside.topRight()}))) << "top";
        EXPECT_TRUE(isAll(black, clipped({outside.bottomLeft(), outside.bottomRight()}))) << "bottom";
    }

    /// Right of its patch the selected row is white inside its frame.
    void checkSelection() const {
        const QPoint middle = pixel(list.bounds().w - 4, 22 * selected + 13);
        if (!shows(pixel(20, 22 * selected)) || !shows(pixel(20, 22 * selected + 26))) return;
        const QRect inside = areaOf(middle), outside = inside.adjusted(0, -1, 1, 1);
        EXPECT_TRUE(isAll(blue, {outside.topLeft(), outside.topRight()})) << "top of the selection";
        EXPECT_TRUE(isAll(blue, {outside.bottomLeft(), outside.bottomRight()})) << "bottom of the selection";
        EXPECT_TRUE(isAll(blue, {outside.topRight(), outside.bottomRight()})) << "right of the selection";
    }

    /// The black frame around all rows, as far as it shows.
    void checkOutline(double scrolled) const {
        const double w = list.bounds().w, h = list.bounds().h, clip = area.viewport()->height();
        const QRect whole = seen.toRect();
        const bool atSelection = std::abs(scrolled + 60 - 22 * (selected + 0.5)) < 20;
        const double y = scrolled + (atSelection ? 110 : 60); // beside a row without the blue frame
        const int left = areaOf(pixel(2, y)).left() - 1;
        const int right = areaOf(pixel(w - 3, y)).right() + 1;
        EXPECT_NEAR(left, seen.left(), 1);
        EXPECT_NEAR(right, seen.right() - 1, 1);
        EXPECT_TRUE(isAll(black, {left, whole.top() + 2, 1, whole.height() - 4})) << "left";
        EXPECT_TRUE(isAll(black, {right, whole.top() + 2, 1, whole.height() - 4})) << "right";
        if (scrolled == 0) {
            const int top = areaOf(pixel(w / 2, 2)).top() - 1;
            EXPECT_NEAR(top, seen.top(), 1);
            EXPECT_TRUE(isAll(black, {left, top, right - left + 1, 1})) << "top";
        }
        if (scrolled + clip == h) {
            const int bottom = areaOf(pixel(w / 2, h - 3)).bottom() + 1;
            EXPECT_NEAR(bottom, seen.bottom() - 1, 1);
            EXPECT_TRUE(isAll(black, {left, bottom, right - left + 1, 1})) << "bottom";
        }
    }

    QtDesktop desktop{settings()};
    ListDelegate delegate;
    std::unique_ptr<FCOStruct[]> records;
    CSwatchList list{delegate};
    QWidget window;
    ListScrollArea area{&window};
    ViewWidget* content = new ViewWidget(&area);
    QImage picture;
    QRectF seen; ///< what shows of the list, in device pixels
};

TEST_P(ListFrames, AreWholeWhereverTheListStands) {
    for (int place = 0; place < 12; ++place) {
        show({place, place * 7 % 12, 150 + place * 5 % 12, 200 + place});
        const int end = area.verticalScrollBar()->maximum();
        for (int y : {0, 1, 2, 3, 5, 8, 13, 21, 34, 55, 77, 88, end - 1, end}) {
            scrollTo(y);
            SCOPED_TRACE("place " + std::to_string(place) + ", scrolled to " + std::to_string(y));
            checkOutline(y);
            checkSelection();
            for (int row = 0; row < rows; ++row)
                checkPatch(row);
            if (HasFailure()) return;
        }
    }
}

TEST_P(ListFrames, SurroundTheDraggedPatchToo) {
    QImage dragged;
    desktop.drags().run = [&](QDrag& drag) {
        dragged = drag.pixmap().toImage().convertToFormat(QImage::Format_RGB32);
        return Qt::IgnoreAction;
    };
    show({3, 3, 150, 200});
    desktop.beginDrag({&list, {{32, 16}, Colour::rgb(1, 0, 0), true, {}}, {}});
    ASSERT_FALSE(dragged.isNull());
    picture = dragged;
    const QRect whole = dragged.rect(), inside = areaOf(whole.center());
    EXPECT_EQ(inside.left(), std::floor(window.devicePixelRatioF()));
    EXPECT_EQ(inside.right(), whole.right() - inside.left());
    EXPECT_EQ(inside.bottom(), whole.bottom() - inside.top());
    for (const QRect& side : {QRect(0, 0, inside.left(), whole.height()),
                              QRect(inside.right() + 1, 0, inside.left(), whole.height()),
                              QRect(0, 0, whole.width(), inside.top()),
                              QRect(0, inside.bottom() + 1, whole.width(), inside.top())})
        EXPECT_TRUE(isAll(black, side));
}

INSTANTIATE_TEST_SUITE_P(Scales, ListFrames, testing::Values("1", "1.1", "1.25", "1.5", "1.75", "2", "2.5"));

} // namespace
