// A picture that is picked from.
#include "pictures/picture_view.h"

#include "pictures/picture_sample.h"
#include "pictures/pictures_support.h"
#include "pictures/taken_colours_view.h"
#include "support/headless_desktop.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;

std::string bytesOf(const Colour& c) {
    const auto byte = [](double v) { return std::to_string(v * 255); };
    return byte(c.red()).substr(0, 5) + " " + byte(c.green()).substr(0, 5) + " " +
           byte(c.blue()).substr(0, 5);
}

TEST(PictureSample, TheMeanOfASquareIsThatOfItsBytes) {
    const Picture p = picture(3, {0xFF000000, 0xFF030000, 0xFF060000, 0xFF000300, 0xFF00000C, 0xFF000300,
                                  0xFF000000, 0xFF000000, 0xFF000900});
    EXPECT_EQ(bytesOf(*sampleAt(p, 1, 1, 1)), "0.000 0.000 12.00");
    EXPECT_EQ(bytesOf(*sampleAt(p, 1, 1, 3)), "1.000 1.666 1.333");
    EXPECT_EQ(bytesOf(*sampleAt(p, 0, 0, 3)), "0.750 0.750 3.000") << "what lies outside does not count";
    EXPECT_EQ(bytesOf(*sampleAt(p, 1, 1, 5)), bytesOf(*sampleAt(p, 1, 1, 3)));
}

TEST(PictureSample, WhatIsLessThanHalfOpaqueDoesNotCount) {
    const Picture p = picture(2, {0x7FFF0000, 0x8000FF00});
    EXPECT_FALSE(sampleAt(p, 0, 0, 1));
    EXPECT_EQ(bytesOf(*sampleAt(p, 1, 0, 1)), "0.000 255.0 0.000");
    EXPECT_EQ(bytesOf(*sampleAt(p, 0, 0, 3)), "0.000 255.0 0.000");
}

TEST(FittedPicture, KeepsItsShapeInTheMiddle) {
    EXPECT_EQ(fittedRect(plane(40, 20), {0, 0, 100, 100}), (Rect{0, 25, 100, 50}));
    EXPECT_EQ(fittedRect(plane(2, 4), {10, 0, 100, 100}), (Rect{35, 0, 50, 100}));
    EXPECT_EQ(fittedRect(plane(1000, 1), {0, 0, 100, 100}).h, 1);
    EXPECT_EQ(fittedRect(plane(2, 4), {0, 0, 0, 0}), Rect{});
}

TEST(FittedPicture, ASmallerOneHasMeansALargerOneCopies) {
    const Picture p = picture(2, {0xFF000000, 0xFF000004, 0xFF040000, 0xFF040004});
    EXPECT_THAT(resized(p, 1, 1).pixels, ElementsAre(0xFF020002));
    EXPECT_THAT(resized(p, 2, 1).pixels, ElementsAre(0xFF020000, 0xFF020004));
    EXPECT_THAT(resized(p, 4, 1).pixels, ElementsAre(0xFF020000, 0xFF020000, 0xFF020004, 0xFF020004));
    const Picture clear = picture(2, {0x00FFFFFF, 0xFF102030});
    EXPECT_THAT(resized(clear, 1, 1).pixels, ElementsAre(0x80102030)) << "what is clear has no colour";
}

TEST(FittedPicture, AnOverviewIsNeverLarger) {
    EXPECT_EQ(overviewOf(plane(8, 4), 4).width, 4);
    EXPECT_EQ(overviewOf(plane(8, 4), 4).height, 2);
    EXPECT_EQ(overviewOf(plane(1000, 1), 4).height, 1) << "thin, and still a picture";
    const Picture small = plane(3, 2);
    EXPECT_EQ(overviewOf(small, 4).pixels.data(), small.pixels.data());
    EXPECT_TRUE(overviewOf({}, 4).empty());
}

class PictureViews : public testing::Test {
  protected:
    PictureViews() {
        view.setHost(&host);
        view.setFrame({0, 0, 100, 100});
        view.picked = [this](const Colour& c) { picks.push_back(bytesOf(c)); };
        view.setPicture(plane(40, 20), plane(40, 20)); // 2.5 points a pixel, from 25 on
    }
    ~PictureViews() override { view.setHost(nullptr); }
    static MouseEvent at(double x, double y) {
        MouseEvent event;
        event.location = {x, y};
        return event;
    }
    bool key(Key key, bool shift = false) {
        KeyEvent event;
        event.key = key;
        event.shift = shift;
        return view.keyDown(event);
    }
    HeadlessViewHost host;
    PictureView view;
    std::vector<std::string> picks;
};

TEST_F(PictureViews, AClickPicksThePixelThatLiesThere) {
    view.mouseDown(at(0, 25));
    view.mouseDown(at(26, 51)); // 10.4, 10.4
    view.mouseDown(at(99.9, 74.9));
    EXPECT_THAT(picks, ElementsAre("0.000 0.000 0.000", "10.00 10.00 0.000", "39.00 19.00 0.000"));
}

TEST_F(PictureViews, OutsideOfThePictureNothingIsPicked) {
    view.mouseDown(at(50, 24));
    view.mouseDragged(at(50, 50));
    EXPECT_THAT(picks, ElementsAre());
}

TEST_F(PictureViews, ADragPicksAllTheWayAndStaysInside) {
    view.mouseDown(at(1, 26));
    view.mouseDragged(at(6, 26));
    view.mouseDragged(at(500, -10));
    view.mouseUp(at(500, -10));
    view.mouseDragged(at(1, 26));
    EXPECT_THAT(picks, ElementsAre("0.000 0.000 0.000", "2.000 0.000 0.000", "39.00 0.000 0.000"));
}

TEST_F(PictureViews, TheArrowsWalkByAPixelAndReturnTakes) {
    EXPECT_EQ(view.place(), "x 20, y 10, #140a00");
    const int told = host.announcements;
    key(Key::right), key(Key::left);
    EXPECT_EQ(host.announcements, told + 2);
    key(Key::right), key(Key::down), key(Key::left), key(Key::left), key(Key::up), key(Key::up);
    EXPECT_EQ(view.place(), "x 19, y 9, #130900");
    EXPECT_THAT(picks, ElementsAre()) << "walking takes nothing";
    EXPECT_TRUE(key(Key::enter));
    EXPECT_THAT(picks, ElementsAre("19.00 9.000 0.000"));
    key(Key::left, true);
    key(Key::left, true); // as far as there are pixels
    EXPECT_EQ(view.place(), "x 0, y 9, #000900");
    EXPECT_FALSE(key(Key::escape));
    EXPECT_EQ(view.accessible().value, "x 0, y 9, #000900");
}

TEST_F(PictureViews, AMeanIsPickedWhereAskedFor) {
    view.setEdge(3);
    view.mouseDown(at(1, 26));
    EXPECT_THAT(picks, ElementsAre("0.500 0.500 0.000"));
}

TEST_F(PictureViews, IsDrawnFittedAndItsMarkOnTheScreenAlone) {
    RecordingCanvas canvas;
    view.drawRect(canvas);
    ASSERT_EQ(canvas.primitives.size(), 1u);
    EXPECT_EQ(canvas.primitives[0].kind, Primitive::Kind::bitmap);
    EXPECT_EQ(canvas.primitives[0].rect, (Rect{0, 25, 100, 50}));
    RecordingCanvas layer;
    view.drawDisplayLayer(layer);
    EXPECT_EQ(layer.only(Primitive::Kind::strokeRect).size(), 2u);
}

/// Keeps what is drawn.
struct BitmapCanvas : RecordingCanvas {
    void drawBitmap(const Bitmap& drawn, const Rect&) override { bitmap = drawn; }
    Bitmap bitmap;
};

TEST_F(PictureViews, ANewPictureOfTheSameSizeIsShown) {
    BitmapCanvas canvas;
    view.setPicture(picture(1, {0xFF0000FF}), picture(1, {0xFF0000FF}));
    view.drawRect(canvas);
    EXPECT_EQ(canvas.bitmap.pixels.at(0), 0xFF0000FFu);
    view.setPicture(picture(1, {0xFF00FF00}), picture(1, {0xFF00FF00}));
    view.drawRect(canvas);
    EXPECT_EQ(canvas.bitmap.pixels.at(0), 0xFF00FF00u);
}

TEST_F(PictureViews, WithoutAPictureItSaysWhatToDo) {
    view.setPicture({}, {});
    RecordingCanvas canvas;
    view.drawRect(canvas);
    EXPECT_EQ(canvas.only(Primitive::Kind::text).size(), 1u);
    view.mouseDown(at(50, 50));
    key(Key::right), key(Key::enter);
    EXPECT_THAT(picks, ElementsAre());
    EXPECT_EQ(view.place(), "");
}

TEST_F(PictureViews, AClearPixelIsNotPicked) {
    view.setPicture(picture(1, {0x00FF0000}), picture(1, {0x00FF0000}));
    view.mouseDown(at(50, 50));
    EXPECT_THAT(picks, ElementsAre());
    EXPECT_EQ(view.place(), "x 0, y 0, clear");
}

TEST_F(PictureViews, APictureThatIsDroppedIsGiven) {
    std::string given;
    view.given = [&given](const PictureSource& source) { given = source.name; };
    DragInfo drag;
    EXPECT_EQ(view.draggingEntered(drag), DragOperation::none);
    EXPECT_FALSE(view.performDragOperation(drag));
    drag.pasteboard.picture = [] {
        return PictureSource{"a", [](const WorkProgress&) { return ReadPicture(); }};
    };
    EXPECT_EQ(view.draggingEntered(drag), DragOperation::copy);
    EXPECT_TRUE(view.performDragOperation(drag));
    EXPECT_EQ(given, "a");
    drag.pasteboard.picture = [] { return PictureSource(); }; // gone meanwhile
    EXPECT_FALSE(view.performDragOperation(drag));
}

TEST(TakenColoursViews, TheKeyboardWalksTheRowsAndTakesOne) {
    TakenColoursView view;
    std::vector<std::string> picks;
    view.picked = [&picks](const Colour& c) { picks.push_back(bytesOf(c)); };
    view.setColours({{Colour::rgb(1, 0, 0), "red", 0.75}, {Colour::rgb(0, 0, 1), "blue", 0.25}});
    const auto press = [&view](Key key) {
        KeyEvent event;
        event.key = key;
        return view.keyDown(event);
    };
    press(Key::down), press(Key::down), press(Key::enter);
    EXPECT_THAT(picks, ElementsAre("0.000 0.000 255.0"));
    EXPECT_EQ(view.accessibleSelectedRow(), 1);
    EXPECT_EQ(view.accessibleRow(1).name, "blue");
    EXPECT_EQ(view.accessibleRow(1).value, "#0000ff, 25.0 %");
    EXPECT_FALSE(press(Key::escape));
    view.setColours({{Colour::rgb(1, 0, 0), "red", 1}});
    EXPECT_EQ(view.accessibleSelectedRow(), 0) << "the last of those that are left";
    view.setColours({});
    press(Key::enter), press(Key::down);
    EXPECT_EQ(picks.size(), 1u);
    EXPECT_EQ(view.accessibleSelectedRow(), std::nullopt);
}

} // namespace
} // namespace chromalog::test
