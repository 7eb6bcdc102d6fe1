#include "views/chromatic_circle_view.h"

#include "support/headless_colours.h"
#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>

#include <cmath>
#include <set>
#include <string>

namespace chromalog {
namespace {

using test::Primitive;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Path::Element::Kind;

const std::set<std::string> kHarmonyWells{"complementColor",  "equi1Color",       "equi2Color",
                                          "triHarmoni1Color", "triHarmoni2Color", "quadri1Color",
                                          "quadri2Color",     "quadri3Color"};

/// As the wheel hands them out: the complement is also the third of four.
const auto kInOrder = ElementsAre("complementColor", "quadri2Color", "triHarmoni1Color", "triHarmoni2Color",
                                  "equi1Color", "equi2Color", "quadri1Color", "quadri3Color");

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
        colours.setSecondColor(Colour::rgb(1, 0, 0));
        colours.setLuminosity(1);
        colours.changed = [this](Cause cause) {
            if (cause == Cause::secondColour) picks.push_back(colours.getSecondColor());
        };
        view.setHost(&host);
        view.layOut({0, 0, 200, 200});
        view.drawOnce();
        view.setCursorWithColor(colours.getSecondColor());
        colours.shown.clear();
        host.redisplays = 0;
    }
    /// The harmony wells in the order in which they were given a colour.
    std::vector<std::string> handedOut() const {
        std::vector<std::string> names;
        for (const std::string& name : colours.shown)
            if (kHarmonyWells.contains(name)) names.push_back(name);
        return names;
    }
    Colour well(const std::string& name) const { return colours.wells.at(name)->color(); }
    std::vector<Colour> harmonyColours() const {
        std::vector<Colour> all;
        for (const std::string& name : kHarmonyWells)
            all.push_back(well(name));
        return all;
    }
    void setMode(int mode) {
        const auto press = [&](int button) {
            using Press = void (WorkingColours::*)();
            constexpr Press kButtons[] = {&WorkingColours::complementOn, &WorkingColours::harmoniquesOn,
                                          &WorkingColours::triComplementOn, &WorkingColours::quadriOn};
            (colours.*kButtons[button - 1])();
        };
        if (colours.getHarmonyMode() == mode) return;
        press(mode == 0 ? 1 : mode);
        if (mode == 0 && colours.getHarmonyMode() == 1) press(1);
    }
    Path drawnMarkers() {
        test::RecordingCanvas canvas;
        view.drawRect(canvas);
        return canvas.only(Primitive::Kind::strokePath).at(0).path;
    }

    test::HeadlessColours colours;
    std::vector<Colour> picks;
    test::HeadlessViewHost host;
    chromaticCircleView view{colours};
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
    EXPECT_TRUE(picks.empty());
    EXPECT_THAT(handedOut(), IsEmpty());
    EXPECT_EQ(view.selectedPoint(), before);
    EXPECT_EQ(host.redisplays, 0);
    view.mouseDown({{159.9, 180}}); // just inside
    EXPECT_EQ(picks.size(), 1u);
}

TEST_F(ChromaticCircleView, APickTakesTheNewColumnAndTheRowOfThePointBefore) {
    view.mouseDown({{100.7, 150.2}}); // row of the start, 200 - 100
    EXPECT_TRUE(picks.back().sameRgb(pictureAt(view, 100, 100)));
    view.mouseDown({{60.9, 80}}); // row 200 - 150.2 = 49.8
    EXPECT_TRUE(picks.back().sameRgb(pictureAt(view, 60, 49)));
    EXPECT_EQ(view.selectedPoint(), (Point{60.9, 80}));
    EXPECT_GT(host.redisplays, 0);
}

TEST_F(ChromaticCircleView, DraggingStraightDownTrailsByOneEvent) {
    view.mouseDown({{120, 180}});
    for (int y = 170; y >= 60; y -= 10) {
        view.mouseDragged({{120, double(y)}});
        EXPECT_TRUE(picks.back().sameRgb(pictureAt(view, 120, 200 - (y + 10)))) << y;
    }
}

TEST_F(ChromaticCircleView, APickHandsOutTheHarmoniesInOrder) {
    view.mouseDown({{150, 120}});
    EXPECT_THAT(handedOut(), kInOrder);
    test::HeadlessColours told;
    told.setAlpha(harmonyAngle({200, 200}, {150, 120}));
    EXPECT_EQ(colours.lastAlpha(), told.lastAlpha());
    const HarmonyPoints h = harmonyPoints({200, 200}, {150, 120}, 55);
    EXPECT_EQ(view.harmony().equi1, h.equi1);
    const std::pair<const char*, Point> expected[] = {
        {"complementColor", h.opposite}, {"quadri2Color", h.opposite},     {"equi1Color", h.equi1},
        {"equi2Color", h.equi2},         {"triHarmoni1Color", h.balance1}, {"triHarmoni2Color", h.balance2},
        {"quadri1Color", h.quadri1},     {"quadri3Color", h.quadri2}};
    for (const auto& [name, p] : expected)
        EXPECT_TRUE(well(name).sameRgb(
            pictureAt(view, static_cast<int>(p.x), static_cast<int>(static_cast<float>(200 - p.y)))))
            << name;
}

TEST_F(ChromaticCircleView, PlacesGreysAtTheCentreAndFullColoursOnTheRim) {
    view.setCursorWithColor(Colour::rgb(0.4, 0.4, 0.4));
    EXPECT_EQ(view.selectedPoint(), (Point{100, 100}));
    for (const Colour& colour : harmonyColours())
        EXPECT_TRUE(colour.sameRgb(pictureAt(view, 100, 100)));
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
        for (const Colour& colour : harmonyColours())
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
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.mode);
        setMode(row.mode);
        const Path path = drawnMarkers();
        EXPECT_EQ(ovals(path), row.rings);
        EXPECT_EQ(corners(path), row.path);
    }
}

TEST_F(ChromaticCircleView, TheModeChangesTheOutlineAloneNotTheWells) {
    view.mouseDown({{150, 120}});
    const auto before = harmonyColours();
    for (int mode = 0; mode <= 4; ++mode) {
        setMode(mode);
        ASSERT_EQ(colours.getHarmonyMode(), mode);
        view.setHarmonyColors();
        const auto after = harmonyColours();
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_TRUE(after[i].sameRgb(before[i]));
    }
}

TEST_F(ChromaticCircleView, ThePictureFollowsTheLuminosityWhenItIsDrawnOnce) {
    colours.setLuminosity(0);
    EXPECT_FALSE(pictureAt(view, 100, 100).sameRgb(Colour()));
    view.drawOnce();
    EXPECT_TRUE(pictureAt(view, 100, 100).sameRgb(Colour()));
    EXPECT_TRUE(pictureAt(view, 0, 0).sameRgb(Bitmap::colourOf(0xFFEDEDED)));
    colours.setLuminosity(2); // as before the first colour: clamped
    view.drawOnce();
    EXPECT_TRUE(pictureAt(view, 100, 100).sameRgb(Colour::rgb(1, 1, 1)));
}

TEST_F(ChromaticCircleView, ANewSizeRebuildsThePictureAndPlacesTheSecondColourAgain) {
    colours.setSecondColor(Colour::hsb(0, 0.5, 1));
    view.layOut({10, 10, 100, 100});
    EXPECT_EQ(view.picture().width, 100);
    EXPECT_EQ(view.selectedPoint(), (Point{75, 50}));
    EXPECT_THAT(handedOut(), kInOrder);
    colours.shown.clear();
    view.layOut({50, 50, 100, 100}); // moved, not resized
    EXPECT_THAT(handedOut(), IsEmpty());
}

TEST_F(ChromaticCircleView, TheFractionOfASizeIsCutOff) {
    view.layOut({0, 0, 99.9, 99.9});
    EXPECT_EQ(view.picture().width, 99);
    EXPECT_EQ(view.picture().height, 99);
}

TEST(ChromaticCircleViewAtTheStart, NothingIsPlacedOrHandedOutBeforeTheFirstPicture) {
    test::HeadlessColours colours;
    chromaticCircleView view(colours);
    view.layOut({0, 0, 64, 64});
    EXPECT_THAT(colours.shown, IsEmpty());
    EXPECT_TRUE(view.picture().empty());
    EXPECT_EQ(view.selectedPoint(), (Point{0, 0}));
    test::RecordingCanvas canvas;
    view.drawRect(canvas); // the first drawing renders the picture
    EXPECT_EQ(view.picture().width, 64);
    EXPECT_THAT(colours.shown, IsEmpty());
}

TEST(ChromaticCircleViewAtTheStart, AnEmptyViewHoldsNoPictureAndPicksNothing) {
    test::HeadlessColours colours;
    chromaticCircleView view(colours);
    view.drawOnce();
    view.setCursorWithColor(Colour::rgb(1, 0, 0));
    view.mouseDown({{0, 0}});
    EXPECT_THAT(colours.causes, IsEmpty());
    EXPECT_TRUE(view.picture().empty());
}

TEST_F(ChromaticCircleView, ASharpScreenGetsAPictureAtItsScaleWhilePicksStayTheSame) {
    SharpCanvas canvas;
    view.drawRect(canvas);
    ASSERT_EQ(canvas.bitmaps.size(), 1u);
    EXPECT_EQ(canvas.bitmaps[0].pixels, plainWheelPicture(400, 1).pixels);
    EXPECT_EQ(canvas.primitives[0].rect, (Rect{0, 0, 200, 200}));
    EXPECT_EQ(view.picture().pixels, plainWheelPicture(200, 1).pixels);
    colours.setLuminosity(0.5f);
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
        EXPECT_TRUE(colours.getSecondColor().sameRgb(pictureAt(view, int(row.to.x), 200 - int(row.to.y))));
    }
    EXPECT_FALSE(view.keyDown({Key::enter}));
    EXPECT_FALSE(view.keyDown({Key::other}));
}

TEST_F(ChromaticCircleView, AKeyPastTheRimDoesNothing) {
    view.mouseDown({{195, 100}});
    const auto before = picks.size();
    EXPECT_TRUE(view.keyDown({Key::right, true}));
    EXPECT_EQ(view.selectedPoint(), (Point{195, 100}));
    EXPECT_EQ(picks.size(), before);
}

TEST_F(ChromaticCircleView, TheScreenAloneGetsHalosAndTheSurround) {
    setMode(2);
    test::RecordingCanvas own, layer, oblong;
    view.drawRect(own);
    view.drawDisplayLayer(layer);
    const auto line = own.only(Primitive::Kind::strokePath), marks = layer.only(Primitive::Kind::strokePath);
    ASSERT_EQ(line.size(), 1U);
    EXPECT_TRUE(line[0].colour.sameRgb(Colour::rgb(1, 1, 1)));
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].path.elements, line[0].path.elements);
    EXPECT_TRUE(marks[0].colour.sameRgb(Colour()));
    EXPECT_EQ(marks[0].width, 3);
    EXPECT_EQ(marks[1].path.elements, line[0].path.elements);
    EXPECT_TRUE(marks[1].colour.sameRgb(Colour::rgb(1, 1, 1)));
    EXPECT_EQ(marks[1].width, 1);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(layer.primitives[i].kind, Primitive::Kind::bitmap) << "the marks stand over the surround";
    const Rect all = view.bounds(), top = layer.primitives.front().rect, bottom = layer.primitives[3].rect;
    EXPECT_EQ(top, (Rect{all.x, all.y + all.h - top.h, all.w, top.h})) << "y grows upwards";
    EXPECT_EQ(bottom, (Rect{all.x, all.y, all.w, top.h}));
    view.layOut({0, 0, 200, 150});
    view.drawDisplayLayer(oblong);
    EXPECT_EQ(oblong.primitives.front().rect, view.bounds()) << "stretched as the picture is";
}

TEST_F(ChromaticCircleView, TellsAssistiveTechnologyTheSecondColour) {
    EXPECT_TRUE(view.acceptsFocus());
    colours.setSecondColor(Colour::rgb(12 / 255.0, 34 / 255.0, 56 / 255.0));
    const Accessible a = view.accessible();
    EXPECT_EQ(a.role, Accessible::Role::colourChooser);
    EXPECT_EQ(a.name, "Color wheel");
    EXPECT_EQ(a.value, "RGB 12 34 56, #0c2238");
    EXPECT_FALSE(a.description.empty());
    ASSERT_TRUE(view.focusMark());
}

} // namespace
} // namespace chromalog
