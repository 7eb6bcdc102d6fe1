#include "colour/colour_entries.h"

#include "colour/ink_text.h"
#include "support/headless_colours.h"

#include <gmock/gmock.h>

#include <deque>
#include <map>
#include <string>

namespace chromalog {
namespace {

using test::HeadlessButton;
using test::HeadlessColours;
using test::HeadlessTextField;

int conversions = 0;

/// A host whose red, green and blue are the first three inks.
std::int16_t copying(ColorServicesInfo* info) {
    ++conversions;
    if (info->resultSpace == plugIncolorServicesCMYKSpace) info->colorComponents[3] = 255;
    return 0;
}

std::int16_t refusing(ColorServicesInfo*) {
    return -1;
}

/// Both colours with their entries, as the dialog connects them.
struct Entered {
    explicit Entered(ColorServicesProc services = copying) : colours(services), entries(colours, services) {
        for (const OutletEntry& entry : entries.table())
            if (auto* field = std::get_if<Outlet<TextField>*>(&entry.target))
                (*field)->connect(&fields[std::string(entry.name)]);
            else
                std::get<Outlet<Button>*>(entry.target)->connect(&buttons[std::string(entry.name)]);
        entries.observeControls();
        colours.changed = [this](Cause cause) {
            entries.follow();
            if (cause == Cause::secondEntered) colours.placeSecondColor();
        };
        colours.showFirstColor();
        colours.placeSecondColor();
    }

    std::string text(const std::string& field) { return fields[field].text(); }
    std::string fault(const std::string& field) { return fields[field].fault; }

    void choose(const std::string& button, const std::string& action) {
        for (const MenuItem& item : buttons[button].menu())
            if (item.action == action) item.run();
    }

    HeadlessColours colours;
    ColourEntries entries;
    std::map<std::string, HeadlessTextField> fields;
    std::map<std::string, HeadlessButton> buttons;
};

TEST(ColourEntries, ShowBothColoursFromTheStartAndFollowThem) {
    Entered dialog;
    EXPECT_EQ(dialog.text("firstHex"), "#e54c19");
    EXPECT_EQ(dialog.text("secondHex"), "#19b24c");
    EXPECT_EQ(dialog.text("secondInks"), "90 30 70 0");
    dialog.colours.changeSecondColor(Colour::rgb(1, 0, 0.2));
    EXPECT_EQ(dialog.text("secondHex"), "#ff0033");
    EXPECT_EQ(dialog.text("secondInks"), "0 100 80 0");
    EXPECT_EQ(dialog.text("firstHex"), "#e54c19");
}

TEST(ColourEntries, TheInksAreThoseOfFieldsThatAreFilledLater) {
    Entered dialog; // as where a stored list gives the first colour before the second is shown
    dialog.colours.second.C->setText("12");
    dialog.entries.follow();
    EXPECT_EQ(dialog.text("secondInks"), "12 30 70 0");
}

TEST(ColourEntries, TheInksAreThoseThatAFieldShowsOnceItIsLeft) {
    Entered dialog;
    auto& black = static_cast<HeadlessTextField&>(*dialog.colours.second.K);
    black.type("40"); // the second colour gives all inks back as the host has them
    EXPECT_EQ(dialog.text("secondInks"), "90 30 70 40");
    black.endEditing();
    EXPECT_EQ(black.text(), "0");
    EXPECT_EQ(dialog.text("secondInks"), "90 30 70 0");
}

TEST(ColourEntries, ATextTakesEffectAsItIsTyped) {
    for (const char* text : {"#369", "#336699", "336699", "RGB(51 102 153)", " #336699; ", "hsl(210 50% 40%)",
                             "color: #336699;"}) {
        Entered dialog;
        dialog.fields["firstHex"].type(text);
        EXPECT_EQ(dialog.colours.first.R->text(), "51") << text;
        EXPECT_EQ(dialog.colours.first.B->text(), "153") << text;
        EXPECT_EQ(dialog.colours.origFirstColor->color().green(), 102 / 255.0) << text;
        EXPECT_EQ(dialog.text("firstHex"), text) << "as typed";
        EXPECT_EQ(dialog.fault("firstHex"), "");
        dialog.fields["firstHex"].endEditing();
        EXPECT_EQ(dialog.text("firstHex"), "#336699") << text;
    }
}

TEST(ColourEntries, ABadTextIsMarkedAndChangesNothing) {
    for (const char* text : {"#12345", "bluish", "rgb(1 2", "transparent", ""}) {
        Entered dialog;
        dialog.colours.causes.clear();
        dialog.fields["secondHex"].type(text);
        EXPECT_NE(dialog.fault("secondHex"), "") << text;
        dialog.fields["secondHex"].endEditing();
        EXPECT_EQ(dialog.fault("secondHex"), "") << text;
        EXPECT_TRUE(dialog.text("secondHex").starts_with("#")) << text;
    }
    Entered dialog;
    const Colour before = dialog.colours.getSecondColor();
    dialog.fields["secondHex"].type("bluish");
    EXPECT_TRUE(dialog.colours.getSecondColor().sameRgb(before));
}

TEST(ColourEntries, WhatCannotBeReadGivesWayToTheColourInEveryField) {
    Entered dialog;
    dialog.fields["secondInks"].type("much ink");
    EXPECT_NE(dialog.fault("secondInks"), "");
    dialog.fields["secondInks"].endEditing();
    EXPECT_EQ(dialog.text("secondInks"), "90 30 70 0");
}

TEST(ColourEntries, TheMenuMarksTheNotationThatIsShown) {
    Entered dialog;
    const auto marked = [&dialog] {
        std::vector<std::string> marked;
        for (const MenuItem& item : dialog.buttons["firstReading"].menu())
            if (item.checked.value_or(false)) marked.push_back(item.title);
        return marked;
    };
    EXPECT_THAT(marked(), testing::ElementsAre("CMYK"));
    dialog.choose("firstReading", "readLch:");
    EXPECT_THAT(marked(), testing::ElementsAre("LCh"));
}

TEST(ColourEntries, AnInkOfAnySizeIsTheLeast) {
    Entered dialog;
    for (const char* much : {"6000000000000000000", "9223372036854775807", "1000000000"}) {
        dialog.colours.second.C->setText(much);
        EXPECT_EQ(secondInks(dialog.colours.second)[0], -32768) << much;
    }
    dialog.colours.second.C->setText("-6000000000000000000");
    EXPECT_EQ(secondInks(dialog.colours.second)[0], 32767);
}

TEST(ColourEntries, FourInksGoToTheHostTogetherForBothColoursAlike) {
    for (const std::string colour : {"first", "second"}) {
        Entered dialog;
        dialog.fields[colour + "Inks"].type("60 20.5 0 10");
        const Colour& now =
            colour == "first" ? dialog.colours.getFirstColor() : dialog.colours.getSecondColor();
        EXPECT_NEAR(now.red(), 102 / 255.0, 1e-7);
        EXPECT_NEAR(now.green(), 203 / 255.0, 1e-7) << "79.5 x 2.55 rounds up";
        EXPECT_NEAR(now.blue(), 1, 1e-7);
        dialog.fields[colour + "Inks"].endEditing();
        EXPECT_EQ(dialog.text(colour + "Inks"), "60 20.5 0 10") << "stays as typed";
        const ValueFields& fields = colour == "first" ? dialog.colours.first : dialog.colours.second;
        EXPECT_EQ(fields.M->text(), "20") << "by the rule of the fields";
    }
}

TEST(ColourEntries, InksStayAsTypedUntilTheColourChangesElsewhere) {
    Entered dialog;
    dialog.fields["secondInks"].type("60 20 0 10");
    dialog.fields["secondInks"].endEditing();
    dialog.colours.enterFirst(Colour::rgb(0, 0, 0));
    EXPECT_EQ(dialog.text("secondInks"), "60 20 0 10");
    dialog.colours.changeSecondColor(Colour::rgb(0, 0, 0));
    EXPECT_EQ(dialog.text("secondInks"), "100 100 100 0");
}

TEST(ColourEntries, InksThatCannotBeReadGiveWayToThoseOfTheColour) {
    Entered dialog;
    dialog.colours.changeSecondColor(Colour::rgb(0, 0, 0));
    dialog.fields["secondInks"].type("60 20 x");
    EXPECT_EQ(dialog.text("secondInks"), "60 20 x");
    dialog.fields["secondInks"].endEditing();
    EXPECT_EQ(dialog.text("secondInks"), "100 100 100 0");
}

TEST(ColourEntries, InksThatNobodyConvertsAreNoColour) {
    for (ColorServicesProc services : {ColorServicesProc(nullptr), ColorServicesProc(refusing)}) {
        Entered dialog(services);
        const Colour before = dialog.colours.getFirstColor();
        dialog.fields["firstInks"].type("60 20 0 10");
        EXPECT_NE(dialog.fault("firstInks"), "");
        EXPECT_TRUE(dialog.colours.getFirstColor().sameRgb(before));
    }
}

TEST(ColourEntries, AFollowedColourAsksTheHostNoMoreThanItsFieldsDo) {
    Entered dialog;
    conversions = 0;
    dialog.colours.changeSecondColor(Colour::rgb(0.2, 0.4, 0.6));
    EXPECT_EQ(conversions, 1);
}

TEST(ColourEntries, AChosenReadingTakesThePlaceOfTheInks) {
    Entered dialog;
    EXPECT_FALSE(dialog.fields["secondInks"].hidden());
    dialog.colours.changeSecondColor(Colour::rgb(0.2, 0.4, 0.6));
    EXPECT_EQ(dialog.text("secondEntry"), "") << "not written before anybody looks";
    for (const auto& [action, text] :
         std::map<std::string, std::string>{{"readHsb:", "210 66.7% 60%"},
                                            {"readHsl:", "210 50% 40%"},
                                            {"readOklch:", "49.9% 0.099 250.4"}}) {
        dialog.choose("secondReading", action);
        EXPECT_EQ(dialog.text("secondEntry"), text);
        EXPECT_TRUE(dialog.fields["secondInks"].hidden());
    }
    EXPECT_EQ(dialog.buttons["secondReading"].title(), "OKLCH");
    dialog.fields["secondEntry"].type("62.8% 0.258 29.2");
    EXPECT_EQ(dialog.text("secondHex"), "#ff0000");
    dialog.fields["secondEntry"].type("x");
    EXPECT_NE(dialog.fault("secondEntry"), "");
    EXPECT_EQ(dialog.text("secondHex"), "#ff0000");
    dialog.choose("secondReading", "readCmyk:");
    EXPECT_FALSE(dialog.fields["secondInks"].hidden());
}

TEST(InkText, IsReadAsPeopleWriteIt) {
    const InkPercents inks{60, 20, 0, 10};
    for (const char* text :
         {"60 20 0 10", "60, 20, 0, 10", "60%,20%,0%,10%", " 60;20;0;10; ", "60/20/0/10", "C60 M20 Y0 K10",
          "c: 60 m: 20 y: 0 k: 10", "cmyk(60%, 20%, 0%, 10%)", "device-cmyk(60% 20% 0% 10%);"})
        EXPECT_EQ(readInks(text), inks) << text;
    EXPECT_EQ(readInks("12.5 0 0 0"), (InkPercents{12.5, 0, 0, 0}));
    for (const char* text : {"", "60 20 0", "60 20 0 10 5", "60 20 0 101", "-1 0 0 0", "60 20 0 ten",
                             "M60 C20 Y0 K10", "rgb(60 20 0 10)", "60x20x0x10", "60..20 0 10"})
        EXPECT_EQ(readInks(text), std::nullopt) << text;
    EXPECT_EQ(inksText({60, 20, 0, 12.5}), "60 20 0 12.5");
}

} // namespace
} // namespace chromalog
