#include "views/luminosity_view.h"

#include "support/headless_colours.h"
#include "support/headless_desktop.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using test::Primitive;
using testing::ElementsAre;

class LuminosityView : public testing::Test {
  protected:
    void SetUp() override {
        colours.setSecondColor(Colour::hsb(0.6, 0.5, 0.5));
        colours.changed = [this](Cause cause) {
            causes.push_back(cause);
            if (cause == Cause::luminosity) levels.push_back(colours.getLuminosity());
        };
        view.setHost(&host);
        view.layOut({0, 0, 30, 200});
    }
    std::vector<Primitive> drawing() {
        test::RecordingCanvas canvas;
        view.drawRect(canvas);
        return canvas.primitives;
    }
    /// Indices of the cells that are drawn as marked.
    std::vector<int> marked() {
        std::vector<int> found;
        const auto primitives = drawing();
        for (std::size_t i = 1; i < primitives.size(); i += 2)
            if (primitives[i - 1].colour.sameRgb(Colour::rgb(1, 1, 1)) &&
                primitives[i].colour.sameRgb(Colour()))
                found.push_back(static_cast<int>(i / 2));
        return found;
    }

    test::HeadlessColours colours;
    std::vector<Cause> causes;
    std::vector<float> levels; ///< as the wheel finds them
    test::HeadlessViewHost host;
    luminosityView view{colours};
};

TEST_F(LuminosityView, AHundredCellsAreFilledAndFramedFromTheBottom) {
    colours.setSecondColor(Colour::hsb(0.6, 0.5, 0.0));
    const auto primitives = drawing();
    ASSERT_EQ(primitives.size(), 200u);
    for (int i = 0; i < 100; ++i) {
        const Primitive& fill = primitives[2 * i];
        const Primitive& frame = primitives[2 * i + 1];
        EXPECT_EQ(fill.kind, Primitive::Kind::fillRect);
        EXPECT_EQ(frame.kind, Primitive::Kind::frameRect);
        EXPECT_EQ(frame.width, 1);
        EXPECT_EQ(fill.rect, (Rect{0, 2.0 * i, 30, 2}));
        EXPECT_EQ(frame.rect, fill.rect);
        const Colour level = Colour::hsb(0.6f, 0.5f, static_cast<float>(i) / 99.0f);
        EXPECT_TRUE(fill.colour.sameRgb(level)) << i;
        EXPECT_TRUE(frame.colour.sameRgb(level)) << i;
    }
    EXPECT_TRUE(primitives.front().colour.sameRgb(Colour()));
    EXPECT_EQ(primitives[198].colour.brightness(), 1.0);
}

TEST_F(LuminosityView, CellsStepBySinglePrecisionAndKeepTheirHeight) {
    view.layOut({0, 0, 30, 333});
    const auto primitives = drawing();
    double y = 0;
    for (int i = 0; i < 100; ++i, y += static_cast<float>(3.33))
        EXPECT_EQ(primitives[2 * i].rect, (Rect{0, y, 30, 333 / 100.0}));
}

TEST_F(LuminosityView, OnTheScreenTheMarkHasWhiteAndBlackWhateverTheStripsHeight) {
    for (const double height : {100, 150, 200, 322, 700}) {
        view.layOut({0, 0, 30, height});
        const int cell = marked().at(0);
        const double middle = (cell + 0.5) * height / 100;
        test::RecordingCanvas layer;
        view.drawDisplayLayer(layer);
        ASSERT_EQ(layer.primitives.size(), 2U);
        const Primitive &halo = layer.primitives[0], &mark = layer.primitives[1];
        EXPECT_TRUE(halo.colour.sameRgb(Colour()));
        EXPECT_TRUE(mark.colour.sameRgb(Colour::rgb(1, 1, 1)));
        EXPECT_GE(mark.rect.h, 2);
        EXPECT_NEAR(mark.rect.y + mark.rect.h / 2, middle, 1e-9);
        EXPECT_NEAR(halo.rect.y, mark.rect.y - 1, 1e-9);
        EXPECT_NEAR(halo.rect.h, mark.rect.h + 2, 1e-9);
    }
    colours.setSecondColor(Colour::hsb(0.6, 0.5, 1)); // marks no cell
    test::RecordingCanvas none;
    view.drawDisplayLayer(none);
    EXPECT_TRUE(none.primitives.empty());
}

TEST_F(LuminosityView, ABrightnessOfAHalfMarksTheCellBelowIt) {
    colours.setSecondColor(Colour::hsb(0.6, 0.5, 0.5));
    EXPECT_THAT(marked(), ElementsAre(49));
}

TEST_F(LuminosityView, BlackAndFullBrightnessMarkNoCell) {
    for (double brightness : {0.0, 1.0}) {
        colours.setSecondColor(Colour::hsb(0.6, 0.5, brightness));
        EXPECT_THAT(marked(), ElementsAre()) << brightness;
    }
}

TEST_F(LuminosityView, ABrightnessOnALevelOrJustBelowTheNextMarksNoCell) {
    for (int i = 0; i < 100; ++i) {
        colours.setSecondColor(Colour::rgb(static_cast<float>(i) / 99.0f, 0, 0));
        EXPECT_THAT(marked(), ElementsAre()) << i;
    }
    colours.setSecondColor(
        Colour::rgb(50 / 99.0 - 0.00005, 0, 0)); // the band of 0.01 ends before the next level
    EXPECT_THAT(marked(), ElementsAre());
    colours.setSecondColor(Colour::rgb(50 / 99.0 - 0.0002, 0, 0));
    EXPECT_THAT(marked(), ElementsAre(49));
}

TEST_F(LuminosityView, AClickSetsTheLuminosityThenTheWheelFollows) {
    view.mouseDown({{15, 50}});
    EXPECT_THAT(causes, ElementsAre(Cause::secondColour, Cause::luminosity));
    EXPECT_THAT(levels, ElementsAre(0.25f));
    EXPECT_GT(host.redisplays, 0);
}

TEST_F(LuminosityView, TheEndsOfTheStripAreBlackAndFullBrightness) {
    view.mouseDown({{15, 0}});
    view.mouseDown({{15, 200}});
    EXPECT_THAT(levels, ElementsAre(0.0f, 1.0f));
}

TEST_F(LuminosityView, DraggingBeyondTheStripPassesTheValueOnUnchanged) {
    for (double y : {220.0, -40.0, 400.0})
        view.mouseDragged({{15, y}});
    EXPECT_THAT(levels, ElementsAre(1.1f, -0.2f, 2.0f));
}

TEST_F(LuminosityView, PlacingAColourOnlyRedraws) {
    view.setCursorWithColor(Colour::rgb(1, 1, 1));
    EXPECT_EQ(host.redisplays, 1);
    EXPECT_TRUE(causes.empty());
}

TEST_F(LuminosityView, AViewWithoutHeightPicksNothing) {
    view.layOut({0, 0, 30, 0});
    view.mouseDown({{15, 0}});
    EXPECT_TRUE(causes.empty());
    EXPECT_EQ(drawing().size(), 200u);
}

TEST_F(LuminosityView, KeysChangeTheBrightnessByPercent) {
    struct Row {
        KeyEvent key;
        float to;
    };
    for (const Row& row : {Row{{Key::up}, 0.51f},
                           {{Key::right}, 0.52f},
                           {{Key::down}, 0.51f},
                           {{Key::left}, 0.5f},
                           {{Key::up, true}, 0.6f},
                           {{Key::down, true}, 0.5f},
                           {{Key::home}, 0.0f},
                           {{Key::down}, 0.0f},
                           {{Key::end}, 1.0f},
                           {{Key::up, true}, 1.0f},
                           {{Key::pageDown}, 0.9f},
                           {{Key::pageUp}, 1.0f}}) {
        causes.clear();
        EXPECT_TRUE(view.keyDown(row.key));
        EXPECT_EQ(levels.back(), row.to);
        EXPECT_THAT(causes, ElementsAre(Cause::secondColour, Cause::luminosity));
    }
    EXPECT_FALSE(view.keyDown({Key::space}));
}

TEST_F(LuminosityView, IsASliderForAssistiveTechnology) {
    EXPECT_TRUE(view.acceptsFocus());
    colours.setSecondColor(Colour::rgb(0.25, 0.1, 0));
    const Accessible a = view.accessible();
    EXPECT_EQ(a.role, Accessible::Role::slider);
    EXPECT_EQ(a.name, "Luminosity");
    EXPECT_EQ(a.value, "RGB 64 25 0, #401900");
    ASSERT_TRUE(a.range);
    EXPECT_EQ(a.range->value, 25);
    EXPECT_EQ(a.range->minimum, 0);
    EXPECT_EQ(a.range->maximum, 100);
    view.setAccessibleValue(80);
    EXPECT_THAT(levels, ElementsAre(0.8f));
    view.setAccessibleValue(1000);
    EXPECT_EQ(levels.back(), 1.0f);
}

} // namespace
} // namespace chromalog
