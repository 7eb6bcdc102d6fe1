#include "views/degrade_view.h"

#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::Primitive;

class DegradeView : public testing::Test {
  protected:
    void SetUp() override {
        view.setHost(&host);
        view.layOut({0, 0, 160, 160});
    }
    std::vector<Primitive> drawing() {
        test::RecordingCanvas canvas;
        view.drawRect(canvas);
        return canvas.primitives;
    }
    static DragInfo drop(double x, double y, std::optional<Colour> colour) {
        DragInfo info;
        info.location = {x, y};
        info.pasteboard.colourType = colour.has_value();
        info.pasteboard.colour = colour;
        return info;
    }

    test::HeadlessDesktop desktop;
    test::HeadlessViewHost host;
    degradeView view{desktop};
};

void expectNear(const Colour& c, double r, double g, double b) {
    EXPECT_NEAR(c.red(), r, 1e-6);
    EXPECT_NEAR(c.green(), g, 1e-6);
    EXPECT_NEAR(c.blue(), b, 1e-6);
    EXPECT_EQ(c.alpha(), 1.0);
}

const Colour newColour = Colour::rgb(0.25, 0.5, 0.75);

TEST_F(DegradeView, CornersShowMirroredAgainstTheirNames) {
    const GradientCorners corners;
    expectNear(gradientCell(corners, 0, 0), 0.9, 0.1, 1.0);   // bottom left: LR
    expectNear(gradientCell(corners, 0, 15), 0.1, 0.1, 0.9);  // bottom right: LL
    expectNear(gradientCell(corners, 15, 0), 0.1, 0.9, 0.1);  // top left: UR
    expectNear(gradientCell(corners, 15, 15), 0.9, 0.1, 0.1); // top right: UL
}

TEST_F(DegradeView, CellsBlendInFifteenthsWithTheStatedRoundings) {
    const GradientCorners c = view.corners();
    for (int i = 0; i < 16; ++i)
        for (int j = 0; j < 16; ++j) {
            const float left = (float)((c.UL.red() * i + c.LL.red() * (15 - i)) / 15);
            const float right = (float)((c.UR.red() * i + c.LR.red() * (15 - i)) / 15);
            const float cell = (left * (float)j + right * (float)(15 - j)) / 15.0f;
            EXPECT_EQ(gradientCell(c, i, j).red(), (double)cell) << i << ' ' << j;
        }
    expectNear(gradientCell(c, 0, 5), (0.1 * 5 + 0.9 * 10) / 15, 0.1, (0.9 * 5 + 1.0 * 10) / 15);
}

TEST_F(DegradeView, DrawsSixteenRowsFromTheBottomEachFromTheLeft) {
    const auto primitives = drawing();
    ASSERT_EQ(primitives.size(), 2u * 256);
    for (int i = 0; i < 16; ++i)
        for (int j = 0; j < 16; ++j) {
            const Primitive& fill = primitives[2 * (16 * i + j)];
            const Primitive& frame = primitives[2 * (16 * i + j) + 1];
            ASSERT_EQ(fill.kind, Primitive::Kind::fillRect);
            ASSERT_EQ(frame.kind, Primitive::Kind::frameRect);
            EXPECT_EQ(fill.rect, (Rect{10.0 * j, 10.0 * i, 10, 10}));
            EXPECT_EQ(frame.rect, fill.rect);
            EXPECT_EQ(frame.width, 1);
            EXPECT_TRUE(fill.colour.sameRgb(gradientCell(view.corners(), i, j)));
            EXPECT_TRUE(frame.colour.sameRgb(fill.colour));
        }
}

TEST_F(DegradeView, CellsAreSquareWhateverTheHeight) {
    view.layOut({0, 0, 320, 100});
    EXPECT_EQ(drawing().back().rect, (Rect{300, 300, 20, 20}));
}

TEST_F(DegradeView, ADropReplacesTheCornerOfItsQuarter) {
    struct Row {
        double x, y;
        Colour GradientCorners::*corner;
    };
    for (const Row& row : {Row{150, 150, &GradientCorners::UL}, Row{10, 150, &GradientCorners::UR},
                           Row{150, 10, &GradientCorners::LL}, Row{10, 10, &GradientCorners::LR}}) {
        degradeView fresh(desktop);
        fresh.layOut({0, 0, 160, 160});
        EXPECT_TRUE(fresh.performDragOperation(drop(row.x, row.y, newColour)));
        const GradientCorners before;
        for (auto corner :
             {&GradientCorners::UL, &GradientCorners::UR, &GradientCorners::LL, &GradientCorners::LR})
            EXPECT_TRUE((fresh.corners().*corner).sameRgb(corner == row.corner ? newColour : before.*corner));
    }
}

TEST_F(DegradeView, TheUpperRightCellThenShowsTheDropExactly) {
    EXPECT_TRUE(view.performDragOperation(drop(150, 150, newColour)));
    EXPECT_TRUE(gradientCell(view.corners(), 15, 15).sameRgb(newColour));
    EXPECT_EQ(host.redisplays, 1);
}

TEST_F(DegradeView, TheBoundaryColumnCountsAsTheRightHalfAndTheBoundaryRowAsTheUpper) {
    view.performDragOperation(drop(80, 80, newColour));
    EXPECT_TRUE(view.corners().UL.sameRgb(newColour));
    view.performDragOperation(drop(79.999, 79.999, Colour::rgb(1, 1, 1)));
    EXPECT_TRUE(view.corners().LR.sameRgb(Colour::rgb(1, 1, 1)));
}

TEST_F(DegradeView, TheWidthDecidesTheRowsToo) {
    view.layOut({0, 0, 160, 80});
    view.performDragOperation(drop(150, 60, newColour)); // upper half of the view, row 6 of the width
    EXPECT_TRUE(view.corners().LL.sameRgb(newColour));
}

TEST_F(DegradeView, ADropFarOutsideTakesTheNearestCorner) {
    view.performDragOperation(drop(1e300, -1e300, newColour));
    EXPECT_TRUE(view.corners().LL.sameRgb(newColour));
    view.layOut({0, 0, 0, 0});
    EXPECT_TRUE(view.performDragOperation(drop(0, 0, newColour)));
}

TEST_F(DegradeView, ADroppedColourIsStoredOpaque) {
    view.performDragOperation(drop(10, 10, Colour::rgb(0.25, 0.5, 0.75, 0.5)));
    EXPECT_EQ(view.corners().LR.alpha(), 1.0);
}

TEST_F(DegradeView, TakesDragsThatCarryAColourAlone) {
    EXPECT_TRUE(view.acceptsColourDrags());
    EXPECT_EQ(view.draggingEntered(drop(1, 1, newColour)), DragOperation::copy);
    EXPECT_EQ(view.draggingEntered(drop(1, 1, std::nullopt)), DragOperation::none);
    DragInfo refused = drop(1, 1, newColour);
    refused.sourceAllows = false;
    EXPECT_EQ(view.draggingEntered(refused), DragOperation::none);
}

TEST_F(DegradeView, ADragWithoutAReadableColourChangesNothing) {
    EXPECT_FALSE(view.performDragOperation(drop(10, 10, std::nullopt)));
    DragInfo unreadable = drop(10, 10, std::nullopt);
    unreadable.pasteboard.colourType = true; // declared, nothing behind it
    EXPECT_FALSE(view.performDragOperation(unreadable));
    EXPECT_TRUE(view.corners().LR.sameRgb(GradientCorners().LR));
    EXPECT_EQ(host.redisplays, 0);
}

TEST_F(DegradeView, OffTheScreenNothingIsDrawn) {
    test::RecordingCanvas paper(false);
    view.setPrinting(true);
    EXPECT_TRUE(view.isFlipped());
    view.drawRect(paper);
    EXPECT_TRUE(paper.primitives.empty());
}

TEST_F(DegradeView, KeysWalkTheCells) {
    const auto centre = [&] {
        const Rect mark = view.focusMark().value();
        return Point{mark.x + mark.w / 2, mark.y + mark.h / 2};
    };
    EXPECT_EQ(centre(), (Point{5, 5}));
    struct Row {
        KeyEvent key;
        Point to;
    };
    for (const Row& row :
         {Row{{Key::right}, {15, 5}}, Row{{Key::up, true}, {15, 105}}, Row{{Key::up, true}, {15, 155}},
          Row{{Key::left, true}, {5, 155}}, Row{{Key::down}, {5, 145}}, Row{{Key::end}, {155, 145}},
          Row{{Key::pageDown}, {155, 45}}, Row{{Key::home}, {5, 45}}, Row{{Key::pageUp}, {5, 145}}}) {
        EXPECT_TRUE(view.keyDown(row.key));
        EXPECT_EQ(centre(), row.to);
    }
}

} // namespace
} // namespace chromalog
