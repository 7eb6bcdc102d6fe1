#include "colour/working_colours.h"

#include "support/headless_controls.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace chromalog {
namespace {

using test::HeadlessColorWell;
using test::HeadlessTextField;

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

class WorkingColoursTest : public testing::Test, public WorkingColoursDesk {
  public:
    ColorServicesProc services = nullptr;
    std::vector<std::string> calls;
    const DragSource* listSource = nullptr;

    ColorServicesProc colorServices() const override { return services; }
    void setOkButton() override { calls.push_back("ok"); }
    void getNearFco() override { calls.push_back("near"); }
    void placeStripCursor() override { calls.push_back("strip"); }
    void redrawWheelAndPlace() override { calls.push_back("wheel"); }
    void markWheel() override { calls.push_back("markWheel"); }
    void markToneAndStrip() override { calls.push_back("markToneAndStrip"); }
    std::optional<std::string> selectedSwatchName(const DragSource* source) override {
        if (source && source == listSource) return "Selected";
        return std::nullopt;
    }

  protected:
    void SetUp() override {
        for (OutletEntry& entry : colours.table()) {
            if (auto* field = std::get_if<Outlet<TextField>*>(&entry.target)) {
                fields.push_back(std::make_unique<HeadlessTextField>());
                (*field)->connect(fields.back().get());
            } else {
                wells.push_back(std::make_unique<HeadlessColorWell>());
                std::get<Outlet<ColorWell>*>(entry.target)->connect(wells.back().get());
            }
        }
        bindValueFields(colours.first, colours.second, colours);
        colours.zeroInit();
    }
    static HeadlessTextField& typed(Outlet<TextField>& field) {
        return static_cast<HeadlessTextField&>(*field);
    }

    WorkingColours colours{*this};
    std::vector<std::unique_ptr<HeadlessTextField>> fields;
    std::vector<std::unique_ptr<HeadlessColorWell>> wells;
};

TEST_F(WorkingColoursTest, StartWithTheirDefaults) {
    colours.showFirstColor();
    EXPECT_EQ(colours.first.R->text(), "229");
    EXPECT_EQ(colours.first.G->text(), "76");
    EXPECT_EQ(colours.first.B->text(), "25");
    EXPECT_EQ(colours.getLuminosity(), 2.0f);
    EXPECT_EQ(colours.getSecondColor().green(), 0.7);
}

TEST_F(WorkingColoursTest, EveryKeystrokeRebuildsTheColour) {
    std::vector<double> reds;
    typed(colours.first.R).onEdit = [&] {
        colours.rgb1Changed();
        reds.push_back(colours.getFirstColor().red());
    };
    typed(colours.first.R).type("255");
    EXPECT_EQ(reds, (std::vector<double>{2 / 255.0, 25 / 255.0, 1.0}));
    EXPECT_EQ(calls, (std::vector<std::string>{"ok", "ok", "ok"}));
    EXPECT_EQ(colours.origFirstColor->color().red(), 1.0);
}

TEST_F(WorkingColoursTest, WithoutHostServicesTheInksShowTheInvertedValues) {
    typed(colours.first.R).type("255");
    typed(colours.first.G).type("128");
    typed(colours.first.B).type("0");
    EXPECT_EQ(colours.first.C->text(), "0");
    EXPECT_EQ(colours.first.M->text(), "49");
    EXPECT_EQ(colours.first.Y->text(), "100");
    EXPECT_EQ(colours.first.K->text(), "100");
}

TEST_F(WorkingColoursTest, TheTwoColoursRoundTypedInksDifferently) {
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

TEST_F(WorkingColoursTest, TypedInksGoThroughTheHost) {
    services = inverting;
    for (auto* f : {&colours.first.C, &colours.first.M, &colours.first.Y, &colours.first.K})
        (*f)->setText("0");
    typed(colours.first.C).type("40");
    // ink (100 - 40) * 255 / 100 = 153, inverted 102
    EXPECT_EQ(colours.first.R->text(), "102");
    EXPECT_EQ(colours.getFirstColor().red(), static_cast<double>(102 / 255.0f));
}

TEST_F(WorkingColoursTest, ATypedSecondColourMovesStripAndWheel) {
    services = identity;
    typed(colours.second.R).type("1");
    EXPECT_EQ(calls,
              (std::vector<std::string>{"near", "near", "ok", "markToneAndStrip", "strip", "wheel", "ok"}));
    EXPECT_EQ(colours.getLuminosity(), static_cast<float>(colours.getSecondColor().brightness()));
}

TEST_F(WorkingColoursTest, TypedValuesDoNotDrift) {
    services = identity;
    for (int v = 0; v < 256; ++v) {
        typed(colours.second.R).type(std::to_string(v));
        typed(colours.second.R).endEditing();
        EXPECT_EQ(colours.second.R->text(), std::to_string(v));
    }
}

TEST_F(WorkingColoursTest, WhenEditingEndsTheFirstColoursFieldsShowIt) {
    services = inverting;
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

TEST_F(WorkingColoursTest, TheFirstColoursInksStayAsTypedWhenEditingEnds) {
    services = inverting;
    for (auto* field : {&colours.first.C, &colours.first.M, &colours.first.Y, &colours.first.K}) {
        typed(*field).type("33.7x");
        const std::string red = colours.first.R->text();
        typed(*field).endEditing();
        EXPECT_EQ((*field)->text(), "33.7x");
        EXPECT_EQ(colours.first.R->text(), red);
    }
}

TEST_F(WorkingColoursTest, EveryTypedValueOfTheFirstColourStaysWhenEditingEnds) {
    for (int v = 0; v < 256; ++v) {
        typed(colours.first.R).type(std::to_string(v));
        typed(colours.first.R).endEditing();
        EXPECT_EQ(colours.first.R->text(), std::to_string(v));
    }
}

TEST_F(WorkingColoursTest, TheFieldBeingTypedInKeepsItsTextUntilEditingEnds) {
    services = identity;
    typed(colours.second.C).type("33.7x");
    EXPECT_EQ(colours.second.C->text(), "33.7x");
    typed(colours.second.C).endEditing();
    EXPECT_NE(colours.second.C->text(), "33.7x");
}

TEST_F(WorkingColoursTest, BrightnessZeroAndBackKeepsHueAndSaturation) {
    colours.setSecondColor(Colour::rgb(0.2, 0.4, 0.8));
    colours.setLuminosity(0);
    EXPECT_EQ(colours.getSecondColor().brightness(), 0);
    colours.setLuminosity(0.8f);
    EXPECT_NEAR(colours.getSecondColor().red(), 0.2, 1e-7);
    EXPECT_NEAR(colours.getSecondColor().blue(), 0.8, 1e-7);
}

TEST_F(WorkingColoursTest, LuminosityOutsideTheRangeIsKeptWhileTheColourIsClamped) {
    colours.setLuminosity(1.25f);
    EXPECT_EQ(colours.getLuminosity(), 1.25f);
    EXPECT_EQ(colours.getSecondColor().brightness(), 1.0);
    colours.setLuminosity(-0.5f);
    EXPECT_EQ(colours.getLuminosity(), -0.5f);
    EXPECT_EQ(colours.getSecondColor().brightness(), 0.0);
}

TEST_F(WorkingColoursTest, TheSpreadIs55WhateverAngleWasReported) {
    colours.setAlpha(3.14159274f);
    EXPECT_EQ(colours.getAlpha(), 55.0f);
    EXPECT_NEAR(colours.lastAlpha(), 180.0f, 1e-4);
}

TEST_F(WorkingColoursTest, AColourFromTheWheelIsMadeOpaqueAndShownEverywhere) {
    colours.changeSecondColor(Colour::rgb(0.5, 0.25, 0.75, 0.5));
    EXPECT_EQ(colours.getSecondColor().alpha(), 1.0);
    for (auto* well : {&colours.origSecondColor, &colours.origComplement, &colours.origHarmony,
                       &colours.origTrichrome, &colours.origQuadrichrome})
        EXPECT_TRUE((*well)->color().sameRgb(colours.getSecondColor()));
    EXPECT_EQ(colours.second.R->text(), "127");
    EXPECT_EQ(calls, (std::vector<std::string>{"near", "ok", "markToneAndStrip"}));
}

TEST_F(WorkingColoursTest, ASwatchBecomesTheFirstColourInSinglePrecision) {
    FCOStruct swatch{};
    swatch.SRed = 0x1'0000'8000; // only the low 32 bits count, unsigned
    swatch.SGreen = -1;          // what an edited white holds: far above 1, held to 1
    swatch.SBlue = 65535;
    colours.setFirstColor(swatch, "Name");
    EXPECT_EQ(colours.getFirstColor().red(), static_cast<double>(32768.0f / 65535.0f));
    EXPECT_EQ(colours.getFirstColor().green(), 1.0);
    EXPECT_EQ(colours.colorName->text(), "Name");
}

TEST_F(WorkingColoursTest, ADropOnTheFirstWellTakesTheNameOfAListAlone) {
    colours.colorName->setText("Before");
    auto& well = static_cast<HeadlessColorWell&>(*colours.origFirstColor);
    well.setColor(Colour::rgb(0.1, 0.2, 0.3, 0.5));
    colours.setFirstAndSecondFromDrop(&well, well);
    EXPECT_EQ(colours.colorName->text(), "Before");
    EXPECT_EQ(colours.getFirstColor().alpha(), 1.0);
    EXPECT_EQ(colours.getFirstColor().green(), 0.2);
    listSource = colours.origSecondColor.operator->();
    colours.setFirstAndSecondFromDrop(listSource, well);
    EXPECT_EQ(colours.colorName->text(), "Selected");
}

TEST_F(WorkingColoursTest, ADropOnTheSecondWellMovesWheelAndStrip) {
    auto& well = static_cast<HeadlessColorWell&>(*colours.origSecondColor);
    well.setColor(Colour::rgb(0.1, 0.2, 0.3));
    colours.setFirstAndSecondFromDrop(nullptr, well);
    EXPECT_EQ(calls, (std::vector<std::string>{"near", "near", "ok", "markToneAndStrip", "strip", "wheel",
                                               "markWheel", "ok"}));
}

TEST_F(WorkingColoursTest, OnlyTheExactFirstColourGivesItsName) {
    std::string name = "untouched";
    EXPECT_FALSE(colours.isFirstColorId(Colour::rgb(0.9, 0.3, 0.1000001), 0, name));
    EXPECT_EQ(name, "untouched");
    colours.colorName->setText("Red brick");
    EXPECT_TRUE(colours.isFirstColorId(Colour::rgb(0.9, 0.3, 0.1, 0.5), 99, name));
    EXPECT_EQ(name, "Red brick");
}

} // namespace
} // namespace chromalog
