// What is pressed over the wheel, and how sharply it is drawn.
#include "views/chromatic_circle_view.h"

#include "support/headless_colours.h"
#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

/// Takes every press, and counts what it gets of the drag.
struct Taker : WheelTool {
    bool takesPress(Point) override { return true; }
    void handleDragged(Point) override { ++drags; }
    void handleReleased() override { ++releases; }
    int drags = 0, releases = 0;
};

TEST(WheelTools, AToolThatIsTakenAwayGetsNoMoreOfItsDrag) {
    test::HeadlessColours colours;
    test::HeadlessViewHost host;
    chromaticCircleView view{colours};
    view.setHost(&host);
    view.layOut({0, 0, 200, 200});
    Taker tool;
    view.addTool(tool);
    view.mouseDown({{100, 100}});
    view.mouseDragged({{101, 100}});
    view.removeTool(tool);
    view.mouseDragged({{102, 100}});
    view.mouseUp({});
    EXPECT_EQ(tool.drags, 1);
    EXPECT_EQ(tool.releases, 0);
}

/// A screen of very many device pixels a point.
struct SharpestCanvas : test::RecordingCanvas {
    double deviceScale() const override { return 1000; }
    void drawBitmap(const Bitmap& bitmap, const Rect&) override { width = bitmap.width; }
    int width = 0;
};

TEST(WheelPicture, OnAnyScreenItIsAtMostFourTimesAsSharp) {
    test::HeadlessColours colours;
    chromaticCircleView view{colours};
    view.layOut({0, 0, 200, 200});
    SharpestCanvas canvas;
    view.drawRect(canvas);
    EXPECT_GT(canvas.width, 200);
    EXPECT_LE(canvas.width, 4 * 200);
}

} // namespace
} // namespace chromalog
