#include "views/degrade_view.h"
#include "views/tone_view.h"

#include "support/headless_colours.h"
#include "support/headless_desktop.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

/// What the tone chart and the gradient have in common; each test runs on both.
class ChartView : public testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        chart.setHost(&host);
        chart.layOut({0, 0, 32, 32});
        Bitmap& picture = desktop.nextCapture;
        picture = {32, 32, {}};
        for (std::uint32_t i = 0; i < 32 * 32; ++i)
            picture.pixels.push_back(0xFF000000 | i); // its own index
    }
    static Colour pixel(std::uint32_t column, std::uint32_t row) {
        return Bitmap::colourOf(0xFF000000 | (row * 32 + column));
    }

    test::HeadlessDesktop desktop;
    test::HeadlessColours colours;
    test::HeadlessViewHost host;
    toneView tone{colours, desktop};
    degradeView gradient{desktop};
    chartView& chart = GetParam() ? static_cast<chartView&>(tone) : gradient;
};

TEST_P(ChartView, DraggingBeforeAnyClickCarriesNothing) {
    chart.mouseDragged({{5, 5}});
    EXPECT_TRUE(desktop.drags.empty());
    EXPECT_FALSE(desktop.generalPasteboard().colourType);
    EXPECT_FALSE(chart.selectedColor());
}

TEST_P(ChartView, AClickPicksThePixelUnderThePointer) {
    chart.mouseDown({{5.9, 10.2}}); // row 32 - 10.2 = 21.8
    EXPECT_EQ(host.announcements, 1) << "what it holds is another colour";
    EXPECT_TRUE(chart.selectedColor()->sameRgb(pixel(5, 21)));
    chart.mouseDown({{0, 32}});
    EXPECT_TRUE(chart.selectedColor()->sameRgb(pixel(0, 0)));
}

TEST_P(ChartView, PicksOutsideTheViewTakeTheNearestPixel) {
    chart.mouseDown({{-5, 0}});
    EXPECT_TRUE(chart.selectedColor()->sameRgb(pixel(0, 31)));
    chart.mouseDown({{100, 100}});
    EXPECT_TRUE(chart.selectedColor()->sameRgb(pixel(31, 0)));
}

TEST_P(ChartView, ADragCarriesThePickedColourAloneUnderAPictureCentredOnThePointer) {
    chart.mouseDown({{5, 10}});
    chart.mouseDragged({{20, 30}});
    ASSERT_EQ(desktop.drags.size(), 1u);
    const DragRequest& drag = desktop.drags[0];
    EXPECT_EQ(drag.source, &chart);
    EXPECT_EQ(drag.image.size, (Size{20, 20}));
    EXPECT_EQ(drag.image.origin, (Point{10, 20}));
    EXPECT_TRUE(drag.image.fill.sameRgb(pixel(5, 22)));
    EXPECT_FALSE(drag.image.blackFrame);
    EXPECT_TRUE(drag.pasteboard.colourType);
    EXPECT_TRUE(drag.pasteboard.colour->sameRgb(pixel(5, 22)));
    EXPECT_FALSE(drag.pasteboard.textType);
    EXPECT_FALSE(drag.pasteboard.text);
    EXPECT_TRUE(desktop.generalPasteboard().colour->sameRgb(pixel(5, 22)));
}

TEST_P(ChartView, ThePickStaysUntilTheNextOne) {
    chart.mouseDown({{5, 10}});
    chart.mouseDragged({{20, 30}});
    chart.mouseDragged({{8, 8}});
    EXPECT_TRUE(desktop.drags.at(1).pasteboard.colour->sameRgb(pixel(5, 22)));
}

TEST_P(ChartView, AnEmptyPictureGivesBlack) {
    desktop.nextCapture = {};
    chart.mouseDown({{5, 10}});
    EXPECT_TRUE(chart.selectedColor()->sameRgb(Colour()));
}

TEST_P(ChartView, SpacePicksTheCellThatTheKeyboardStandsOn) {
    EXPECT_TRUE(chart.keyDown({Key::space}));
    const Rect mark = chart.focusMark().value();
    const Point centre{mark.x + mark.w / 2, mark.y + mark.h / 2};
    EXPECT_TRUE(
        chart.selectedColor()->sameRgb(desktop.nextCapture.colourAt(centre.x, chart.bounds().h - centre.y)));
}

TEST_P(ChartView, TheKeyboardGoesOnFromTheClickedCell) {
    for (const Point clicked : {Point{27, 21}, Point{9, 26}, Point{5, 5}, Point{25, 3}}) {
        chart.mouseDown({clicked});
        const Rect mark = chart.focusMark().value();
        EXPECT_NEAR(mark.x + mark.w / 2, clicked.x, 2.1);
        EXPECT_NEAR(mark.y + mark.h / 2, clicked.y, 2.1);
    }
    chart.mouseDown({{16, 16}});
    const Rect before = chart.focusMark().value();
    chart.keyDown({Key::up});
    EXPECT_GT(chart.focusMark()->x + chart.focusMark()->y, before.x + before.y);
    EXPECT_GT(host.redisplays, 0);
}

TEST_P(ChartView, AClickFarOutsideStandsOnTheCellAtTheEdge) {
    chart.mouseDown({{1e9, 16.5}});
    const Rect mark = chart.focusMark().value();
    EXPECT_GT(mark.x + mark.w / 2, 28);
    EXPECT_LT(mark.x + mark.w / 2, 32);
}

TEST_P(ChartView, TellsAssistiveTechnologyThePickedColour) {
    EXPECT_TRUE(chart.acceptsFocus());
    EXPECT_TRUE(chart.startsDrags());
    EXPECT_EQ(chart.accessible().role, Accessible::Role::chart);
    EXPECT_EQ(chart.accessible().name, GetParam() ? "Tone chart" : "Gradient");
    EXPECT_EQ(chart.accessible().value, "no color picked");
    chart.mouseDown({{1, 31.5}});
    EXPECT_EQ(chart.accessible().value, "RGB 0 0 1, #000001");
}

INSTANTIATE_TEST_SUITE_P(Both, ChartView, testing::Bool(),
                         [](const auto& info) { return info.param ? "Tone" : "Gradient"; });

} // namespace
} // namespace chromalog
