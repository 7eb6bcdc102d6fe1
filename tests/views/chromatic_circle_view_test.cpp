#include "views/chromatic_circle_view.h"

#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>

namespace chromalog {
namespace {

using test::Primitive;
using testing::ElementsAre;
using Kind = Path::Element::Kind;

/// The dialog's part: answers what is set and writes down what it is told.
class WheelDesk : public chromaticCircleDesk {
  public:
    float luminosity = 1;
    std::int16_t mode = 0;
    Colour second = Colour::rgb(1, 0, 0);
    std::vector<Colour> picks;
    std::vector<std::int16_t> codes;
    std::map<std::int16_t, Colour> wells;
    float reported = -1;

    float getLuminosity() const override { return luminosity; }
    std::int16_t getHarmonyMode() const override { return mode; }
    Colour getSecondColor() const override { return second; }
    void changeSecondColor(const Colour& c) override {
        second = c.withAlpha(1);
        picks.push_back(c);
    }
    float getAlpha() const override { return 55; }
    void setAlpha(float radians) override { reported = radians; }
    void setoppositeColor(const Colour& c, std::int16_t code) override {
        codes.push_back(code);
        wells[code] = c;
    }
};

/// A screen of two device pixels a point that remembers the size of the bitmaps it is given.
class SharpCanvas : public test::RecordingCanvas {
  public:
    std::vector<Bitmap> bitmaps;
    double scale = 2;
    double deviceScale() const override { return scale; }
    void drawBitmap(const Bitmap& bitmap, const Rect& into) override {
        bitmaps.push_back(bitmap);
        RecordingCanvas::drawBitmap(bitmap, into);
    }
};

class ChromaticCircleView : public testing::Test {
  protected:
    void SetUp() override {
        view.setHost(&host);
        view.layOut({0, 0, 200, 200});
        view.drawOnce();
        view.setCursorWithColor(desk.second);
        desk.codes.clear();
        host.redisplays = 0;
    }
    Path drawnMarkers() {
        test::RecordingCanvas canvas;
        view.drawRect(canvas);
        return canvas.only(Primitive::Kind::strokePath).at(0).path;
    }

    WheelDesk desk;
    test::HeadlessViewHost host;
    chromaticCircleView view{desk};
};

/// What the picture holds in a column and a row from the top.
Colour pictureAt(const chromaticCircleView& view, int column, int row) {
    return Bitmap::colourOf(view.picture().pixels[row * view.picture().width + column]);
}

std::vector<Rect> ovals(const Path& path) {
    std::vector<Rect> found;
    for (const auto& e : path.elements)
        if (e.kind == Kind::oval) found.push_back(e.box);
    return found;
}

std::vector<Point> corners(const Path& path) {
    std::vector<Point> found;
    for (const auto& e : path.elements)
        if (e.kind == Kind::move || e.kind == Kind::line) found.push_back(e.p);
    return found;
}

Rect ring(Point p, double radius) {
    return {p.x - radius, p.y - radius, 2 * radius, 2 * radius};
}

TEST_F(ChromaticCircleView, AClickOutsideTheDiscOrExactlyOnItsRimChangesNothing) {
    const Point before = view.selectedPoint();
    for (Point p : {Point{0, 0}, Point{200, 200}, Point{-5, 100}, Point{100, 200}, Point{200, 100},
                    Point{0, 100}, Point{160, 180}}) {
        view.mouseDown({p});
        view.mouseDragged({p});
    }
    EXPECT_TRUE(desk.picks.empty());
    EXPECT_TRUE(desk.codes.empty());
    EXPECT_EQ(view.selectedPoint(), before);
    EXPECT_EQ(host.redisplays, 0);
    view.mouseDown({{159.9, 180}}); // just inside
    EXPECT_EQ(desk.picks.size(), 1u);
}

TEST_F(ChromaticCircleView, APickTakesTheNewColumnAndTheRowOfThePointBefore) {
    view.mouseDown({{100.7, 150.2}}); // row of the start, 200 - 100
    EXPECT_TRUE(desk.picks.back().sameRgb(pictureAt(view, 100, 100)));
    view.mouseDown({{60.9, 80}}); // row 200 - 150.2 = 49.8
    EXPECT_TRUE(desk.picks.back().sameRgb(pictureAt(view, 60, 49)));
    EXPECT_EQ(view.selectedPoint(), (Point{60.9, 80}));
    EXPECT_GT(host.redisplays, 0);
}

TEST_F(ChromaticCircleView, DraggingStraightDownTrailsByOneEvent) {
    view.mouseDown({{120, 180}});
    for (int y = 170; y >= 60; y -= 10) {
        view.mouseDragged({{120, double(y)}});
        EXPECT_TRUE(desk.picks.back().sameRgb(pictureAt(view, 120, 200 - (y + 10)))) << y;
    }
}

TEST_F(ChromaticCircleView, APickHandsOutTheHarmoniesInOrder) {
    view.mouseDown({{150, 120}});
    EXPECT_THAT(desk.codes, ElementsAre(1, 4, 5, 2, 3, 6, 7));
    EXPECT_EQ(desk.reported, harmonyAngle({200, 200}, {150, 120}));
    const HarmonyPoints h = harmonyPoints({200, 200}, {150, 120}, 55);
    EXPECT_EQ(view.harmony().equi1, h.equi1);
    const std::pair<std::int16_t, Point> expected[] = {{1, h.opposite}, {2, h.equi1},    {3, h.equi2},
                                                       {4, h.balance1}, {5, h.balance2}, {6, h.quadri1},
                                                       {7, h.quadri2}};
    for (const auto& [code, p] : expected)
        EXPECT_TRUE(desk.wells[code].sameRgb(
            pictureAt(view, static_cast<int>(p.x), static_cast<int>(static_cast<float>(200 - p.y)))))
            << code;
}

TEST_F(ChromaticCircleView, PlacesGreysAtTheCentreAndFullColoursOnTheRim) {
    view.setCursorWithColor(Colour::rgb(0.4, 0.4, 0.4));
    EXPECT_EQ(view.selectedPoint(), (Point{100, 100}));
    for (const auto& [code, colour] : desk.wells)
        EXPECT_TRUE(colour.sameRgb(pictureAt(view, 100, 100))) << code;
    view.setCursorWithColor(Colour::rgb(0, 0.2, 0));
    EXPECT_NEAR(std::hypot(view.selectedPoint().x - 100, view.selectedPoint().y - 100), 100, 1e-9);
}

TEST_F(ChromaticCircleView, HueZeroIsAtTheRightAndAQuarterBelowTheCentre) {
    view.setCursorWithColor(Colour::hsb(0, 0.5, 1));
    EXPECT_EQ(view.selectedPoint(), (Point{150, 100}));
    view.setCursorWithColor(Colour::hsb(0.25, 0.5, 1));
    EXPECT_NEAR(view.selectedPoint().x, 100, 1e-9);
    EXPECT_NEAR(view.selectedPoint().y, 50, 1e-9);
}

TEST_F(ChromaticCircleView, PlacingUsesRememberedHueAndSaturation) {
    view.setCursorWithColor(Colour::hsb(0.25, 0.5, 0)); // black
    EXPECT_NEAR(view.selectedPoint().y, 50, 1e-9);
}

TEST_F(ChromaticCircleView, APlacedColourLiesOnThePixelOfItsHueAndSaturation) {
    for (double hue : {0.1, 0.3, 0.45, 0.62, 0.9}) {
        const Colour colour = Colour::hsb(hue, 0.6, 1);
        view.setCursorWithColor(colour);
        const Colour read = view.getColorAtPoint(view.selectedPoint());
        EXPECT_NEAR(read.hue(), hue, 0.01);
        EXPECT_NEAR(read.saturation(), 0.6, 0.02);
    }
}

TEST_F(ChromaticCircleView, ReadsOutsideThePictureTakeTheNearestPixel) {
    view.layOut({0, 0, 201, 201}); // an odd size: every corner is background
    EXPECT_TRUE(view.getColorAtPoint({-50, 500}).sameRgb(pictureAt(view, 0, 0)));
    EXPECT_TRUE(view.getColorAtPoint({100, 0}).sameRgb(pictureAt(view, 100, 200)));
    EXPECT_TRUE(view.getColorAtPoint({201, 100}).sameRgb(pictureAt(view, 200, 101)));
}

TEST_F(ChromaticCircleView, SaturatedColoursReadTheBackgroundForAboutHalfOfTheirHarmonies) {
    int grey = 0, reads = 0;
    const Colour background = Bitmap::colourOf(0xFFEDEDED);
    for (int i = 0; i < 360; ++i) {
        view.setCursorWithColor(Colour::hsb(i / 360.0, 1, 1));
        for (const auto& [code, colour] : desk.wells)
            ++reads, grey += colour.sameRgb(background);
    }
    EXPECT_GT(grey, reads / 4);
    EXPECT_LT(grey, reads * 3 / 4);
}

TEST_F(ChromaticCircleView, DrawsThePictureThenTheMarkersInWhite) {
    test::RecordingCanvas canvas;
    view.drawRect(canvas);
    ASSERT_EQ(canvas.primitives.size(), 2u);
    EXPECT_EQ(canvas.primitives[0].kind, Primitive::Kind::bitmap);
    EXPECT_EQ(canvas.primitives[0].rect, (Rect{0, 0, 200, 200}));
    EXPECT_EQ(canvas.primitives[1].kind, Primitive::Kind::strokePath);
    EXPECT_TRUE(canvas.primitives[1].colour.sameRgb(Colour::rgb(1, 1, 1)));
    EXPECT_EQ(canvas.primitives[1].width, 1);
}

TEST_F(ChromaticCircleView, OutlinesTheHarmonyOfEachMode) {
    view.mouseDown({{150, 120}});
    const HarmonyPoints& h = view.harmony();
    const Point s = view.selectedPoint();
    const Rect selected = ring(s, 4);
    struct Row {
        std::int16_t mode;
        std::vector<Rect> rings;
        std::vector<Point> path;
    };
    const Row rows[] = {
        {0, {selected}, {}},
        {1, {selected, ring(h.opposite, 3)}, {s, h.opposite}},
        {2, {selected, ring(h.equi1, 3), ring(h.equi2, 3)}, {s, h.equi1, h.equi2, s}},
        {3, {selected, ring(h.balance1, 3), ring(h.balance2, 3)}, {s, h.balance1, h.balance2, s}},
        {4,
         {selected, ring(h.quadri1, 3), ring(h.quadri2, 3), ring(h.opposite, 3)},
         {s, h.quadri1, h.opposite, h.quadri2, s}},
        {5, {selected}, {}},
        {-1, {selected}, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.mode);
        desk.mode = row.mode;
        const Path path = drawnMarkers();
        EXPECT_EQ(ovals(path), row.rings);
        EXPECT_EQ(corners(path), row.path);
    }
}

TEST_F(ChromaticCircleView, TheModeChangesTheOutlineAloneNotTheWells) {
    view.mouseDown({{150, 120}});
    const auto wells = desk.wells;
    for (std::int16_t mode = 0; mode <= 4; ++mode) {
        desk.mode = mode;
        view.setHarmonyColors();
        for (const auto& [code, colour] : wells)
            EXPECT_TRUE(desk.wells[code].sameRgb(colour));
    }
}

TEST_F(ChromaticCircleView, ThePictureFollowsTheLuminosityWhenItIsDrawnOnce) {
    desk.luminosity = 0;
    EXPECT_FALSE(pictureAt(view, 100, 100).sameRgb(Colour()));
    view.drawOnce();
    EXPECT_TRUE(pictureAt(view, 100, 100).sameRgb(Colour()));
    EXPECT_TRUE(pictureAt(view, 0, 0).sameRgb(Bitmap::colourOf(0xFFEDEDED)));
    desk.luminosity = 2; // as before the first colour: clamped
    view.drawOnce();
    EXPECT_TRUE(pictureAt(view, 100, 100).sameRgb(Colour::rgb(1, 1, 1)));
}

TEST_F(ChromaticCircleView, ANewSizeRebuildsThePictureAndPlacesTheSecondColourAgain) {
    desk.second = Colour::hsb(0, 0.5, 1);
    view.layOut({10, 10, 100, 100});
    EXPECT_EQ(view.picture().width, 100);
    EXPECT_EQ(view.selectedPoint(), (Point{75, 50}));
    EXPECT_THAT(desk.codes, ElementsAre(1, 4, 5, 2, 3, 6, 7));
    desk.codes.clear();
    view.layOut({50, 50, 100, 100}); // moved, not resized
    EXPECT_TRUE(desk.codes.empty());
}

TEST_F(ChromaticCircleView, TheFractionOfASizeIsCutOff) {
    view.layOut({0, 0, 99.9, 99.9});
    EXPECT_EQ(view.picture().width, 99);
    EXPECT_EQ(view.picture().height, 99);
}

TEST(ChromaticCircleViewAtTheStart, NothingIsPlacedOrHandedOutBeforeTheFirstPicture) {
    WheelDesk desk;
    chromaticCircleView view(desk);
    view.layOut({0, 0, 64, 64});
    EXPECT_TRUE(desk.codes.empty());
    EXPECT_TRUE(view.picture().empty());
    EXPECT_EQ(view.selectedPoint(), (Point{0, 0}));
    test::RecordingCanvas canvas;
    view.drawRect(canvas); // the first drawing renders the picture
    EXPECT_EQ(view.picture().width, 64);
    EXPECT_TRUE(desk.codes.empty());
}

TEST(ChromaticCircleViewAtTheStart, AnEmptyViewHoldsNoPictureAndPicksNothing) {
    WheelDesk desk;
    chromaticCircleView view(desk);
    view.drawOnce();
    view.setCursorWithColor(Colour::rgb(1, 0, 0));
    view.mouseDown({{0, 0}});
    EXPECT_TRUE(desk.picks.empty());
    EXPECT_TRUE(view.picture().empty());
}

TEST_F(ChromaticCircleView, ASharpScreenGetsAPictureAtItsScaleWhilePicksStayTheSame) {
    SharpCanvas canvas;
    view.drawRect(canvas);
    ASSERT_EQ(canvas.bitmaps.size(), 1u);
    EXPECT_EQ(canvas.bitmaps[0].pixels, plainWheelPicture(400, 1).pixels);
    EXPECT_EQ(canvas.primitives[0].rect, (Rect{0, 0, 200, 200}));
    EXPECT_EQ(view.picture().pixels, plainWheelPicture(200, 1).pixels);
    desk.luminosity = 0.5f;
    view.drawOnce();
    view.drawRect(canvas);
    EXPECT_EQ(canvas.bitmaps[1].pixels, plainWheelPicture(400, 0.5f).pixels);
    canvas.scale = 1;
    view.drawRect(canvas);
    EXPECT_EQ(canvas.bitmaps[2].pixels, plainWheelPicture(200, 0.5f).pixels);
}

TEST_F(ChromaticCircleView, ArrowKeysMoveThePointAndLeaveNoWrongColourStanding) {
    view.mouseDown({{150, 120}});
    struct Row {
        KeyEvent key;
        Point to;
    };
    const Row rows[] = {{{Key::left}, {149, 120}},        {{Key::up}, {149, 121}},
                        {{Key::right}, {150, 121}},       {{Key::down}, {150, 120}},
                        {{Key::left, true}, {140, 120}},  {{Key::up, true}, {140, 130}},
                        {{Key::right, true}, {150, 130}}, {{Key::down, true}, {150, 120}}};
    for (const Row& row : rows) {
        EXPECT_TRUE(view.keyDown(row.key));
        EXPECT_EQ(view.selectedPoint(), row.to);
        EXPECT_TRUE(desk.second.sameRgb(pictureAt(view, int(row.to.x), 200 - int(row.to.y))));
    }
    EXPECT_FALSE(view.keyDown({Key::enter}));
    EXPECT_FALSE(view.keyDown({Key::other}));
}

TEST_F(ChromaticCircleView, AKeyPastTheRimDoesNothing) {
    view.mouseDown({{195, 100}});
    const auto picks = desk.picks.size();
    EXPECT_TRUE(view.keyDown({Key::right, true}));
    EXPECT_EQ(view.selectedPoint(), (Point{195, 100}));
    EXPECT_EQ(desk.picks.size(), picks);
}

TEST_F(ChromaticCircleView, TellsAssistiveTechnologyTheSecondColour) {
    EXPECT_TRUE(view.acceptsFocus());
    desk.second = Colour::rgb(12 / 255.0, 34 / 255.0, 56 / 255.0);
    const Accessible a = view.accessible();
    EXPECT_EQ(a.role, Accessible::Role::colourChooser);
    EXPECT_EQ(a.name, "Color wheel");
    EXPECT_EQ(a.value, "RGB 12 34 56, #0c2238");
    EXPECT_FALSE(a.description.empty());
    ASSERT_TRUE(view.focusMark());
}

} // namespace
} // namespace chromalog
