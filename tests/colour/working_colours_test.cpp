#include "colour/working_colours.h"

#include "support/headless_colours.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace chromalog {
namespace {

using test::HeadlessColorWell;
using test::HeadlessColours;
using test::HeadlessTextField;
using testing::ElementsAre;
using testing::IsEmpty;

/// A host whose inks are 255 - value and whose black is always 255: easy to tell apart.
std::int16_t inverting(ColorServicesInfo* info) {
    for (int i = 0; i < 3; ++i)
        info->colorComponents[i] = static_cast<std::int16_t>(255 - info->colorComponents[i]);
    info->colorComponents[3] = info->resultSpace == plugIncolorServicesCMYKSpace ? 255 : 0;
    return 0;
}

/// A host that answers with the inks it was given.
std::int16_t identity(ColorServicesInfo*) {
    return 0;
}

HeadlessTextField& typed(Outlet<TextField>& field) {
    return static_cast<HeadlessTextField&>(*field);
}

HeadlessColorWell& well(Outlet<ColorWell>& outlet) {
    return static_cast<HeadlessColorWell&>(*outlet);
}

TEST(WorkingColoursTest, StartWithTheirDefaults) {
    HeadlessColours colours;
    colours.showFirstColor();
    EXPECT_EQ(colours.first.R->text(), "229");
    EXPECT_EQ(colours.first.G->text(), "76");
    EXPECT_EQ(colours.first.B->text(), "25");
    EXPECT_EQ(colours.getLuminosity(), 2.0f);
    EXPECT_EQ(colours.getSecondColor().green(), 0.7);
}

TEST(WorkingColoursTest, EveryKeystrokeRebuildsTheColour) {
    HeadlessColours colours;
    std::vector<double> reds, shown;
    std::vector<Cause> causes;
    colours.changed = [&](Cause cause) {
        causes.push_back(cause);
        reds.push_back(colours.getFirstColor().red());
        shown.push_back(colours.origFirstColor->color().red());
    };
    typed(colours.first.R).type("255");
    EXPECT_THAT(reds, ElementsAre(2 / 255.0, 25 / 255.0, 1.0));
    EXPECT_EQ(shown, reds) << "the well shows it before the dialog follows";
    EXPECT_THAT(causes, ElementsAre(Cause::firstColour, Cause::firstColour, Cause::firstColour));
}

TEST(WorkingColoursTest, WithoutHostServicesTheInksShowTheInvertedValues) {
    HeadlessColours colours;
    typed(colours.first.R).type("255");
    typed(colours.first.G).type("128");
    typed(colours.first.B).type("0");
    EXPECT_EQ(colours.first.C->text(), "0");
    EXPECT_EQ(colours.first.M->text(), "49");
    EXPECT_EQ(colours.first.Y->text(), "100");
    EXPECT_EQ(colours.first.K->text(), "100");
}

TEST(WorkingColoursTest, TheTwoColoursRoundTypedInksDifferently) {
    HeadlessColours colours;
    struct Row {
        const char* text;
        int first, second;
    };
    for (const Row& row : {Row{"33", 170, 170}, Row{"99.5", 1, 2}, Row{"0", 255, 255}, Row{"100", 0, 0},
                           Row{"1e2", 0, 252}, Row{"1e30", -32768, 252}, Row{"-99999999999", 32767, 32767}}) {
        colours.first.C->setText(row.text);
        colours.second.C->setText(row.text);
        EXPECT_EQ(firstInks(colours.first)[0], row.first) << row.text;
        EXPECT_EQ(secondInks(colours.second)[0], row.second) << row.text;
    }
}

TEST(WorkingColoursTest, TypedInksGoThroughTheHost) {
    HeadlessColours colours(inverting);
    for (auto* f : {&colours.first.C, &colours.first.M, &colours.first.Y, &colours.first.K})
        (*f)->setText("0");
    typed(colours.first.C).type("40");
    // ink (100 - 40) * 255 / 100 = 153, inverted 102
    EXPECT_EQ(colours.first.R->text(), "102");
    EXPECT_EQ(colours.getFirstColor().red(), static_cast<double>(102 / 255.0f));
}

TEST(WorkingColoursTest, ATypedSecondColourMovesStripAndWheel) {
    HeadlessColours colours(identity);
    typed(colours.second.R).type("1");
    EXPECT_THAT(colours.causes, ElementsAre(Cause::secondEntered, Cause::secondColour, Cause::secondPlaced));
    EXPECT_EQ(colours.getLuminosity(), static_cast<float>(colours.getSecondColor().brightness()));
}

TEST(WorkingColoursTest, TypedValuesDoNotDrift) {
    HeadlessColours colours(identity);
    for (int v = 0; v < 256; ++v) {
        typed(colours.second.R).type(std::to_string(v));
        typed(colours.second.R).endEditing();
        EXPECT_EQ(colours.second.R->text(), std::to_string(v));
    }
}

TEST(WorkingColoursTest, WhenEditingEndsTheFirstColoursFieldsShowIt) {
    HeadlessColours colours(inverting);
    struct Row {
        const char* typedText;
        const char* shown;
    };
    for (const Row& row : {Row{"300", "255"}, Row{"12abc", "12"}, Row{"-5", "0"}, Row{"", "0"}, Row{"x", "0"},
                           Row{"12.9", "12"}, Row{"1e2", "100"}, Row{"007", "7"}})
        for (auto* field : {&colours.first.R, &colours.first.G, &colours.first.B}) {
            typed(*field).type(row.typedText);
            EXPECT_EQ((*field)->text(), row.typedText);
            const Colour before = colours.getFirstColor();
            typed(*field).endEditing();
            EXPECT_EQ((*field)->text(), row.shown) << row.typedText;
            EXPECT_TRUE(colours.getFirstColor().sameRgb(before));
        }
}

TEST(WorkingColoursTest, TheFirstColoursInksStayAsTypedWhenEditingEnds) {
    HeadlessColours colours(inverting);
    for (auto* field : {&colours.first.C, &colours.first.M, &colours.first.Y, &colours.first.K}) {
        typed(*field).type("33.7x");
        const std::string red = colours.first.R->text();
        typed(*field).endEditing();
        EXPECT_EQ((*field)->text(), "33.7x");
        EXPECT_EQ(colours.first.R->text(), red);
    }
}

TEST(WorkingColoursTest, EveryTypedValueOfTheFirstColourStaysWhenEditingEnds) {
    HeadlessColours colours;
    for (int v = 0; v < 256; ++v) {
        typed(colours.first.R).type(std::to_string(v));
        typed(colours.first.R).endEditing();
        EXPECT_EQ(colours.first.R->text(), std::to_string(v));
    }
}

TEST(WorkingColoursTest, TheFieldBeingTypedInKeepsItsTextUntilEditingEnds) {
    HeadlessColours colours(identity);
    typed(colours.second.C).type("33.7x");
    EXPECT_EQ(colours.second.C->text(), "33.7x");
    typed(colours.second.C).endEditing();
    EXPECT_NE(colours.second.C->text(), "33.7x");
}

TEST(WorkingColoursTest, BrightnessZeroAndBackKeepsHueAndSaturation) {
    HeadlessColours colours;
    colours.setSecondColor(Colour::rgb(0.2, 0.4, 0.8));
    colours.setLuminosity(0);
    EXPECT_EQ(colours.getSecondColor().brightness(), 0);
    colours.setLuminosity(0.8f);
    EXPECT_NEAR(colours.getSecondColor().red(), 0.2, 1e-7);
    EXPECT_NEAR(colours.getSecondColor().blue(), 0.8, 1e-7);
}

TEST(WorkingColoursTest, LuminosityOutsideTheRangeIsKeptWhileTheColourIsClamped) {
    HeadlessColours colours;
    colours.setLuminosity(1.25f);
    EXPECT_EQ(colours.getLuminosity(), 1.25f);
    EXPECT_EQ(colours.getSecondColor().brightness(), 1.0);
    colours.setLuminosity(-0.5f);
    EXPECT_EQ(colours.getLuminosity(), -0.5f);
    EXPECT_EQ(colours.getSecondColor().brightness(), 0.0);
}

TEST(WorkingColoursTest, TheSpreadIs55WhateverAngleWasReported) {
    HeadlessColours colours;
    colours.setAlpha(3.14159274f);
    EXPECT_EQ(colours.getAlpha(), 55.0f);
    EXPECT_NEAR(colours.lastAlpha(), 180.0f, 1e-4);
}

TEST(WorkingColoursTest, AColourFromTheWheelIsMadeOpaqueAndShownEverywhere) {
    HeadlessColours colours;
    colours.changeSecondColor(Colour::rgb(0.5, 0.25, 0.75, 0.5));
    EXPECT_EQ(colours.getSecondColor().alpha(), 1.0);
    for (auto* well : {&colours.origSecondColor, &colours.origComplement, &colours.origHarmony,
                       &colours.origTrichrome, &colours.origQuadrichrome})
        EXPECT_TRUE((*well)->color().sameRgb(colours.getSecondColor()));
    EXPECT_EQ(colours.second.R->text(), "127");
    EXPECT_THAT(colours.causes, ElementsAre(Cause::secondColour));
}

TEST(WorkingColoursTest, ASwatchBecomesTheFirstColourInSinglePrecision) {
    HeadlessColours colours;
    FCOStruct swatch{};
    swatch.SRed = 0x1'0000'8000; // only the low 32 bits count, unsigned
    swatch.SGreen = -1;          // what an edited white holds: far above 1, clamped to 1
    swatch.SBlue = 65535;
    colours.setFirstColor(swatch, "Name");
    EXPECT_EQ(colours.getFirstColor().red(), static_cast<double>(32768.0f / 65535.0f));
    EXPECT_EQ(colours.getFirstColor().green(), 1.0);
    EXPECT_EQ(colours.colorName->text(), "Name");
}

/// Knows the selected swatch of one source.
std::function<std::optional<std::string>(const DragSource*)> selectedIn(const DragSource& list) {
    return [&list](const DragSource* source) -> std::optional<std::string> {
        if (source == &list) return "Selected";
        return std::nullopt;
    };
}

TEST(WorkingColoursTest, ADropOnTheFirstWellTakesTheNameOfAListAlone) {
    HeadlessColours colours;
    const DragSource list, other;
    colours.nameOfDragged = selectedIn(list);
    colours.colorName->setText("Before");
    HeadlessColorWell& first = well(colours.origFirstColor);
    first.setColor(Colour::rgb(0.1, 0.2, 0.3, 0.5));
    colours.setFirstAndSecondFromDrop(&other, first);
    EXPECT_EQ(colours.colorName->text(), "Before");
    EXPECT_EQ(colours.getFirstColor().alpha(), 1.0);
    EXPECT_EQ(colours.getFirstColor().green(), 0.2);
    colours.setFirstAndSecondFromDrop(&list, first);
    EXPECT_EQ(colours.colorName->text(), "Selected");
    EXPECT_THAT(colours.causes, ElementsAre(Cause::firstColour, Cause::firstColour));
}

TEST(WorkingColoursTest, ADropOnTheSecondWellMovesWheelAndStrip) {
    HeadlessColours colours;
    HeadlessColorWell& second = well(colours.origSecondColor);
    second.setColor(Colour::rgb(0.1, 0.2, 0.3));
    colours.setFirstAndSecondFromDrop(nullptr, second);
    EXPECT_THAT(colours.causes, ElementsAre(Cause::secondEntered, Cause::secondColour, Cause::secondPlaced));
    EXPECT_EQ(colours.getLuminosity(), 0.3f);
}

TEST(WorkingColoursTest, ADropOnTheSecondWellTakesNoName) {
    HeadlessColours colours;
    const DragSource list;
    colours.nameOfDragged = selectedIn(list);
    colours.colorName->setText("Before");
    well(colours.origSecondColor).drop(Colour::rgb(0.1, 0.2, 0.3), &list);
    EXPECT_EQ(colours.colorName->text(), "Before");
}

TEST(WorkingColoursTest, BothWellsTellWhereADropCameFromAfterTheyTookTheColour) {
    HeadlessColours colours;
    const DragSource source;
    const Colour dropped = Colour::rgb(0.1, 0.2, 0.3);
    std::vector<const DragSource*> asked;
    colours.nameOfDragged = [&](const DragSource* from) -> std::optional<std::string> {
        asked.push_back(from);
        EXPECT_TRUE(colours.origFirstColor->color().sameRgb(dropped));
        return "Selected";
    };
    well(colours.origFirstColor).drop(dropped, &source);
    EXPECT_THAT(asked, ElementsAre(&source));
    EXPECT_TRUE(colours.getFirstColor().sameRgb(dropped));
    EXPECT_EQ(colours.colorName->text(), "Selected");
    EXPECT_FALSE(colours.getSecondColor().sameRgb(dropped));
    EXPECT_THAT(colours.causes, ElementsAre(Cause::firstColour));
    well(colours.origSecondColor).drop(dropped, &source);
    EXPECT_TRUE(colours.getSecondColor().sameRgb(dropped));
    EXPECT_EQ(colours.causes.at(1), Cause::secondEntered);
}

TEST(WorkingColoursTest, OnlyTheTwoColoursOwnWellsTakeDrops) {
    HeadlessColours colours;
    for (const auto& [name, control] : colours.wells)
        EXPECT_EQ(static_cast<bool>(control->onDrop), name == "origFirstColor" || name == "origSecondColor")
            << name;
}

TEST(WorkingColoursTest, UnconnectedOutletsAreLeftAlone) {
    WorkingColours colours(nullptr);
    colours.observeControls();
    const Colour before = colours.getFirstColor();
    const HeadlessColorWell stranger;
    colours.setFirstAndSecondFromDrop(nullptr, stranger); // an unconnected well has no colour to take
    EXPECT_TRUE(colours.getFirstColor().sameRgb(before));
    const auto told = std::make_shared<int>();
    Outlet<TextField> field;
    field->whenEdited([told] {});
    field->whenEditingEnds([told] {});
    field->whenReturnPressed([told] {});
    Outlet<ColorWell>()->whenDropped([told](const DragInfo&) {});
    Outlet<Window>()->whenClosed([told] {});
    EXPECT_EQ(told.use_count(), 1) << "what stands for an unconnected control keeps nothing";
}

TEST(WorkingColoursTest, HarmonyCodesReachTheirWells) {
    HeadlessColours colours;
    const char* const wells[] = {"complementColor",  "equi1Color",   "equi2Color",  "triHarmoni1Color",
                                 "triHarmoni2Color", "quadri1Color", "quadri3Color"};
    for (std::int16_t code = -1; code <= 8; ++code) {
        colours.shown.clear();
        colours.setoppositeColor(Colour::rgb(0.25, 0.5, 0.75), code);
        if (code == 1)
            EXPECT_THAT(colours.shown, ElementsAre("complementColor", "quadri2Color"));
        else if (code > 1 && code < 8)
            EXPECT_THAT(colours.shown, ElementsAre(wells[code - 1]));
        else
            EXPECT_THAT(colours.shown, IsEmpty()) << code;
    }
}

TEST(WorkingColoursTest, EachPressOfAHarmonyButtonIsFollowed) {
    HeadlessColours colours;
    std::vector<int> modes;
    colours.changed = [&](Cause cause) {
        EXPECT_EQ(cause, Cause::harmonyMode);
        modes.push_back(colours.getHarmonyMode());
    };
    for (auto press : {&WorkingColours::complementOn, &WorkingColours::harmoniquesOn,
                       &WorkingColours::triComplementOn, &WorkingColours::quadriOn}) {
        (colours.*press)();
        (colours.*press)();
    }
    EXPECT_THAT(modes, ElementsAre(1, 0, 2, 0, 3, 3, 4, 4));
}

TEST(WorkingColoursTest, TheStripSetsTheLuminosityBeforeTheWheelFollows) {
    HeadlessColours colours;
    colours.moveLuminosity(0.25f);
    EXPECT_THAT(colours.causes, ElementsAre(Cause::secondColour, Cause::luminosity));
    EXPECT_EQ(colours.getLuminosity(), 0.25f);
    EXPECT_EQ(colours.getSecondColor().brightness(), 0.25);
}

TEST(WorkingColoursTest, OnlyTheExactFirstColourGivesItsName) {
    HeadlessColours colours;
    std::string name = "untouched";
    EXPECT_FALSE(colours.isFirstColorId(Colour::rgb(0.9, 0.3, 0.1000001), 0, name));
    EXPECT_EQ(name, "untouched");
    colours.colorName->setText("Red brick");
    EXPECT_TRUE(colours.isFirstColorId(Colour::rgb(0.9, 0.3, 0.1, 0.5), 99, name));
    EXPECT_EQ(name, "Red brick");
}

} // namespace
} // namespace chromalog
