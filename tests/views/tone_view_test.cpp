#include "views/tone_view.h"

#include "support/headless_colours.h"
#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace chromalog {
namespace {

using test::Primitive;
using Kind = Path::Element::Kind;

class ToneView : public testing::Test {
  protected:
    void SetUp() override {
        colours.setSecondColor(second);
        absOrRel.setState(1);
        view.absOrRel.connect(&absOrRel);
        view.toneSlider.connect(&slider);
        view.setHost(&host);
        view.layOut({0, 0, 160, 160});
    }
    std::vector<Primitive> drawing() {
        test::RecordingCanvas canvas;
        view.drawRect(canvas);
        return canvas.primitives;
    }

    const Colour second = Colour::rgb(0.2, 0.4, 0.8);
    test::HeadlessDesktop desktop;
    test::HeadlessColours colours;
    test::HeadlessButton absOrRel;
    test::HeadlessSlider slider;
    test::HeadlessViewHost host;
    toneView view{colours, desktop};
};

void expectCircle(const ToneCircle& circle, const ToneCircle& expected) {
    for (std::size_t i = 0; i < circle.size(); ++i)
        EXPECT_EQ(circle[i], expected[i]) << "C" << i;
}

TEST(ToneCircle, AbsoluteColoursAreFixedPrimariesAndTheSixthRepeatsTheFourth) {
    const float t = 0.25f, u = 0.75f;
    expectCircle(toneCircle(t, Colour::rgb(0.2, 0.4, 0.8), true),
                 {{{t, 0, 0}, {t, t, 0}, {0, t, 0}, {0, t, t}, {0, 0, t}, {0, t, t}, {t, t, t}, {u, u, u}}});
}

TEST(ToneCircle, RelativeColoursMixTheSecondColoursChannels) {
    const float t = 0.25f, u = 0.75f, r = 0.2f, g = 0.4f, b = 0.8f;
    expectCircle(toneCircle(t, Colour::rgb(0.2, 0.4, 0.8), false), {{{t, g, b * t},
                                                                     {t, t, b * t},
                                                                     {r * t, t, b * t},
                                                                     {r * t, 1, 1},
                                                                     {r * t, g * t, t},
                                                                     {r * t, t, t},
                                                                     {t, t, t},
                                                                     {u, u, u}}});
}

TEST(ToneCircle, WithoutToneTheAbsoluteCircleIsBlackButForTheLast) {
    const ToneCircle circle = toneCircle(0, Colour::rgb(0.2, 0.4, 0.8), true);
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(circle[i], (ToneColour{0, 0, 0}));
    EXPECT_EQ(circle[7], (ToneColour{1, 1, 1}));
    for (int sector = 0; sector < toneSectors; ++sector) // black cells but near the last colour
        EXPECT_EQ(toneCell(circle, Colour(), 7, sector).brightness() > 0, sector > 24) << sector;
}

TEST(ToneCircle, FullToneOfABlackSecondColourInRelativeMode) {
    const ToneCircle circle = toneCircle(1, Colour(), false);
    EXPECT_EQ(circle[0], (ToneColour{1, 0, 0}));
    EXPECT_EQ(circle[3], (ToneColour{0, 1, 1}));
}

TEST(ToneCell, SectorsBlendTheirColourTowardsTheNextAndTheLastTowardsTheFirst) {
    const ToneCircle circle = toneCircle(0.5f, Colour(), true);
    EXPECT_TRUE(toneCell(circle, Colour(), 7, 0).sameRgb(Colour::rgb(0.5, 0, 0)));
    EXPECT_TRUE(toneCell(circle, Colour(), 7, 2).sameRgb(Colour::rgb(0.5, 0.25, 0)));
    EXPECT_TRUE(toneCell(circle, Colour(), 7, 30).sameRgb(Colour::rgb(0.5, 0.25, 0.25)));
}

TEST(ToneCell, RingsRunFromMostlyTheSecondColourToTheCircleAlone) {
    const ToneCircle circle = toneCircle(1, Colour(), true);
    const Colour second = Colour::rgb(0, 0.7, 0);
    for (int ring = 1; ring <= toneRings; ++ring) {
        const Colour cell = toneCell(circle, second, ring, 0);
        EXPECT_NEAR(cell.red(), ring / 7.0, 1e-7);
        EXPECT_NEAR(cell.green(), 0.7 * (7 - ring) / 7, 1e-7);
    }
    EXPECT_EQ(toneCell(circle, second, 7, 0).green(), 0.0); // the outermost ring has nothing of it
    for (int sector = 0; sector < toneSectors; ++sector)    // the innermost is never the circle's colour
        EXPECT_FALSE(toneCell(circle, second, 1, sector).sameRgb(toneCell(circle, second, 7, sector)));
}

TEST(ToneCell, ComponentsAreTheStatedMixOfFloatAndDouble) {
    const Colour second = Colour::rgb(0.1, 0.7, 0.3);
    const ToneCircle circle = toneCircle(0.37f, second, false);
    for (int ring = 1; ring <= toneRings; ++ring)
        for (int sector = 0; sector < toneSectors; ++sector) {
            const ToneColour& from = circle[sector / 4];
            const ToneColour& to = circle[sector / 4 == 7 ? 0 : sector / 4 + 1];
            const double f = sector % 4;
            const float a = (float)(((double)from[1] * (4 - f) + (double)to[1] * f) / 4.0);
            const float s = (float)second.green() * (float)(7 - ring);
            EXPECT_EQ(toneCell(circle, second, ring, sector).green(), ((double)s + (double)a * ring) / 7.0);
        }
}

TEST_F(ToneView, BackgroundFirstInTheCurrentColourThenLightGrey) {
    const auto primitives = drawing();
    ASSERT_EQ(primitives.size(), 2u + 2 * 7 * 32 + 2);
    for (int i : {0, 1}) {
        EXPECT_EQ(primitives[i].kind, Primitive::Kind::fillRect);
        EXPECT_EQ(primitives[i].rect, (Rect{0, 0, 160, 160}));
    }
    EXPECT_TRUE(primitives[0].colour.sameRgb(Colour::rgb(1, 1, 1)));
    EXPECT_TRUE(primitives[1].colour.sameRgb(Colour::rgb(0.9, 0.9, 0.9)));
}

TEST_F(ToneView, CellsFromTheOutermostRingInwardsAndFromTheLastSectorDown) {
    const auto primitives = drawing();
    const ToneCircle circle = toneCircle(0.5f, second, true);
    std::size_t at = 2;
    for (int ring = 7; ring >= 1; --ring)
        for (int sector = 31; sector >= 0; --sector) {
            const Primitive& fill = primitives[at++];
            const Primitive& stroke = primitives[at++];
            const Colour colour = toneCell(circle, second, ring, sector);
            ASSERT_EQ(fill.kind, Primitive::Kind::fillPath);
            ASSERT_EQ(stroke.kind, Primitive::Kind::strokePath);
            EXPECT_TRUE(fill.colour.sameRgb(colour));
            EXPECT_TRUE(stroke.colour.sameRgb(colour));
            EXPECT_EQ(stroke.width, 1.5);
            const auto& e = fill.path.elements;
            ASSERT_EQ(e.size(), 3u);
            EXPECT_EQ(e[0].kind, Kind::arc);
            EXPECT_EQ(e[0].p, (Point{80, 80}));
            EXPECT_EQ(e[0].radius, 10.0 * (ring + 1));
            EXPECT_EQ(e[0].start, sector * 11.25);
            EXPECT_EQ(e[0].end, (sector + 1) * 11.25);
            EXPECT_FALSE(e[0].clockwise);
            EXPECT_EQ(e[1].kind, Kind::arc);
            EXPECT_EQ(e[1].radius, 10.0 * ring);
            EXPECT_EQ(e[1].start, e[0].end);
            EXPECT_EQ(e[1].end, e[0].start);
            EXPECT_TRUE(e[1].clockwise);
            EXPECT_EQ(e[2].kind, Kind::close);
        }
}

TEST_F(ToneView, TheSecondColourFillsTheDiscInTheMiddle) {
    const auto primitives = drawing();
    const Primitive& fill = primitives[primitives.size() - 2];
    const Primitive& stroke = primitives.back();
    ASSERT_EQ(fill.path.elements.size(), 1u);
    EXPECT_EQ(fill.path.elements[0].box, (Rect{70, 70, 20, 20}));
    EXPECT_TRUE(fill.colour.sameRgb(second));
    EXPECT_TRUE(stroke.colour.sameRgb(second));
    EXPECT_EQ(stroke.kind, Primitive::Kind::strokePath);
}

TEST_F(ToneView, FollowsTheSliderAndTheMode) {
    slider.setValue(100);
    absOrRel.setState(0);
    const ToneCircle circle = toneCircle(1, second, false);
    EXPECT_TRUE(drawing()[2].colour.sameRgb(toneCell(circle, second, 7, 31)));
}

TEST_F(ToneView, WithoutItsControlsItIsRelativeAndWithoutTone) {
    view.absOrRel.connect(nullptr);
    view.toneSlider.connect(nullptr);
    expectCircle(view.circle(), toneCircle(0, second, false));
}

TEST_F(ToneView, OffTheScreenOnlyTheBackgroundIsFilled) {
    test::RecordingCanvas paper(false);
    view.setPrinting(true);
    view.drawRect(paper);
    ASSERT_EQ(paper.primitives.size(), 1u);
    EXPECT_EQ(paper.primitives[0].kind, Primitive::Kind::fillRect);
    EXPECT_TRUE(paper.primitives[0].colour.sameRgb(Colour::rgb(1, 1, 1)));
}

TEST_F(ToneView, IsFlippedExactlyWhilePrinting) {
    EXPECT_FALSE(view.isFlipped());
    view.setPrinting(true);
    EXPECT_TRUE(view.isFlipped());
    view.setPrinting(false);
    EXPECT_FALSE(view.isFlipped());
}

TEST_F(ToneView, KeysWalkTheRingsAndSectors) {
    desktop.nextCapture = {160, 160, std::vector<std::uint32_t>(160 * 160, 0xFF112233)};
    const auto centre = [&] {
        const Rect mark = view.focusMark().value();
        return Point{mark.x + mark.w / 2, mark.y + mark.h / 2};
    };
    EXPECT_EQ(centre(), (Point{80, 80}));
    const auto expectAt = [&](int ring, int sector) {
        const double angle = (sector + 0.5) * 11.25 * std::numbers::pi / 180;
        EXPECT_NEAR(centre().x, 80 + 10 * (ring + 0.5) * std::cos(angle), 1e-9);
        EXPECT_NEAR(centre().y, 80 + 10 * (ring + 0.5) * std::sin(angle), 1e-9);
    };
    EXPECT_TRUE(view.keyDown({Key::up}));
    expectAt(1, 0);
    view.keyDown({Key::right}); // clockwise, past sector 0
    expectAt(1, 31);
    view.keyDown({Key::left, true});
    expectAt(1, 9);
    view.keyDown({Key::up, true}); // ends at the outermost ring
    expectAt(7, 9);
    view.keyDown({Key::down, true});
    EXPECT_EQ(centre(), (Point{80, 80}));
    EXPECT_TRUE(view.selectedColor()->sameRgb(Bitmap::colourOf(0xFF112233)));
    view.keyDown({Key::end});
    expectAt(7, 9);
    view.keyDown({Key::home});
    EXPECT_EQ(centre(), (Point{80, 80}));
    EXPECT_FALSE(view.keyDown({Key::enter}));
}

} // namespace
} // namespace chromalog
