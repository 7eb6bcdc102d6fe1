#include "swatches/swatch_list_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace chromalog::swatch_geometry {
namespace {

constexpr Rect kBounds{0, 0, 200, 462};

TEST(SwatchListGeometry, RowsStandTwentyTwoPointsApart) {
    EXPECT_EQ(patchRectForRow(kBounds, 0, 0), (Rect{5, 5, 32, 16}));
    EXPECT_EQ(patchRectForRow(kBounds, 0, 3), (Rect{5, 71, 32, 16}));
    EXPECT_EQ(textOriginForRow(kBounds, 0, 0), (Point{42, 18}));
    EXPECT_EQ(textOriginForRow(kBounds, 0, 3), (Point{42, 84}));
    EXPECT_EQ(textWidth(kBounds), 168);
    EXPECT_EQ(selectionRectForRow(kBounds, 0), (Rect{4, 4, 195, 18}));
    EXPECT_EQ(selectionRectForRow(kBounds, 3), (Rect{4, 70, 195, 18}));
}

TEST(SwatchListGeometry, PatchesFollowTheFrameAndTheSelectionTheBounds) {
    const Rect moved{10, 100, 200, 400};
    EXPECT_EQ(patchRectForRow(moved, 7, 1), (Rect{15, 34, 32, 16}));
    EXPECT_EQ(textOriginForRow(moved, 7, 1), (Point{52, 47}));
    EXPECT_EQ(selectionRectForRow(moved, 1), (Rect{14, 126, 195, 18}));
}

TEST(SwatchListGeometry, RowsAtPointsAreTruncatedAndUnchecked) {
    struct Row {
        double y;
        int row;
    };
    for (const Row& row :
         {Row{0, 0}, Row{3, 0}, Row{5, 0}, Row{26.9, 0}, Row{27, 1}, Row{48.999, 1}, Row{49, 2},
          Row{110'022, 5000}, Row{-16.9, 0}, Row{-17, -1}, Row{1e9, 32767}, Row{-1e9, -32768}})
        EXPECT_EQ(rowAtPoint({1, row.y}), row.row) << row.y;
    EXPECT_EQ(rowAtPoint({0, std::numeric_limits<double>::quiet_NaN()}), -32768);
}

TEST(SwatchListGeometry, OneSpareRowBelowTheLastSwatch) {
    EXPECT_EQ(contentHeight(0, 300), 300);
    EXPECT_EQ(contentHeight(20, 300), 462);
    EXPECT_EQ(contentHeight(0, 0), 22);
    EXPECT_EQ(contentHeight(5000, 400), 110'022);
    EXPECT_EQ(contentHeight(-5, 300), 300); // a count as told
}

TEST(SwatchListGeometry, RowsInAClip) {
    struct Row {
        Rect clip;
        double frameY;
        int count, first, end;
    };
    for (const Row& row :
         {Row{{0, 0, 200, 400}, 0, 5000, 0, 19}, Row{{0, 4400, 200, 100}, 0, 5000, 199, 205},
          Row{{0, 4400, 200, 100}, 0, 100, 100, 100}, Row{{0, -900, 200, 100}, 0, 5000, 0, 0},
          Row{{-1e9, -1e9, 2e9, 2e9}, 0, 5000, 0, 5000}, Row{{0, 0, 200, 400}, 0, 0, 0, 0},
          Row{{0, -50, 200, 400}, -5, 10, 1, 10}, Row{{0, -50, 200, 400}, -4.9, 10, 0, 10}}) {
        const RowRange rows = rowsInClip(row.clip, row.frameY, row.count);
        EXPECT_EQ(rows.first, row.first) << row.clip.y << " " << row.frameY;
        EXPECT_EQ(rows.end, row.end) << row.clip.y << " " << row.frameY;
    }
}

} // namespace
} // namespace chromalog::swatch_geometry
