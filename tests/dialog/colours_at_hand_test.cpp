#include "dialog/pick_fixture.h"

#include <gmock/gmock.h>

#include <cstring>

namespace chromalog::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string nameIn(const FCOStruct& record) {
    return {reinterpret_cast<const char*>(record.Namen) + 1, record.Namen[0]};
}

std::vector<std::string> namesIn(const SwatchPanel& panel) {
    std::vector<std::string> names;
    for (const FCOStruct& record : panel.view.shownRecords())
        names.push_back(nameIn(record));
    return names;
}

const MenuItem* itemIn(const MenuItems& items, const std::string& action) {
    for (const MenuItem& item : items) {
        if (item.action == action) return &item;
        if (const MenuItem* inner = itemIn(item.items, action)) return inner;
    }
    return nullptr;
}

/// The dialog's operations with colours, as the toolkit's side calls them.
class ColoursAtHandTest : public PickTest {
  protected:
    using Step = std::function<void(ColourOperations&, ChromalogControler&, HeadlessDesktop&)>;

    void inDialog(const Step& step) {
        pick([&](ChromalogControler& controler, HeadlessDesktop& desktop) {
            step(*desktop.forms.at("chromalogWindow")->colours, controler, desktop);
        });
    }

    static void choose(ColourOperations& operations, const ColourPlace& place, const std::string& action) {
        const MenuItems items = operations.menuOf(place);
        const MenuItem* item = itemIn(items, action);
        ASSERT_NE(item, nullptr) << action;
        item->run();
    }

    static void clip(HeadlessDesktop& desktop, const std::string& text) {
        Pasteboard board;
        board.textType = true;
        board.text = text;
        desktop.setGeneralPasteboard(board);
    }
};

const Colour kBlue = Colour::rgb(0.2, 0.4, 0.6);

TEST_F(ColoursAtHandTest, CopiesAColourAsItselfAndItsHex) {
    inDialog([](auto& operations, auto&, auto& desktop) {
        operations.copy({"quadri1Color", kBlue});
        EXPECT_EQ(desktop.generalPasteboard().text, "#336699");
        ASSERT_TRUE(desktop.generalPasteboard().colour);
        EXPECT_TRUE(desktop.generalPasteboard().colour->sameRgb(kBlue)) << "exactly";
        EXPECT_EQ(desktop.generalPasteboard().colour->alpha(), 1);
        operations.copy({"chromaView", {}});
        EXPECT_EQ(desktop.generalPasteboard().text, "#336699") << "beside the wheel there is nothing";
    });
}

TEST_F(ColoursAtHandTest, CopiesAColourAsAnyText) {
    inDialog([](auto& operations, auto&, auto& desktop) {
        for (const auto& [action, text] :
             std::map<std::string, std::string>{{"copyAsHex:", "#336699"},
                                                {"copyAsRgb:", "rgb(51, 102, 153)"},
                                                {"copyAsHsl:", "hsl(210 50% 40%)"},
                                                {"copyAsOklch:", "oklch(49.9% 0.099 250.4)"},
                                                {"copyAsUnit:", "0.200, 0.400, 0.600"}}) {
            choose(operations, {"chromaView", kBlue}, action);
            EXPECT_EQ(desktop.generalPasteboard().text, text);
            EXPECT_FALSE(desktop.generalPasteboard().colourType) << "the text alone";
        }
        const MenuItems items = operations.menuOf({"chromaView", kBlue});
        EXPECT_FALSE(itemIn(items, "copyAsCmyk:")->enabled) << "this host converts nothing";
    });
}

TEST_F(ColoursAtHandTest, CopiesASchemeAsCssAndAsLines) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        controler.colours().enterSecond(kBlue);
        for (const std::string well : {"origQuadrichrome", "quadri1Color", "quadri2Color", "quadri3Color"})
            control<HeadlessColorWell>(desktop, well).setColor(kBlue);
        control<HeadlessColorWell>(desktop, "quadri3Color").setColor(Colour::rgb(1, 0, 0));
        choose(operations, {"quadri1Color", kBlue}, "copySchemeCss:");
        EXPECT_EQ(desktop.generalPasteboard().text,
                  ":root {\n  --quadri-1: #336699;\n  --quadri-2: #336699;\n  --quadri-3: #336699;\n"
                  "  --quadri-4: #ff0000;\n}\n");
        choose(operations, {"quadriOn", {}}, "copySchemeHex:");
        EXPECT_EQ(desktop.generalPasteboard().text, "#336699\n#336699\n#336699\n#ff0000\n");
        EXPECT_EQ(itemIn(operations.menuOf({"chromaView", kBlue}), "copySchemeCss:"), nullptr);
        choose(operations, {"quadriOn", {}}, "addSchemeToList2:");
        EXPECT_THAT(namesIn(controler.panels().two),
                    ElementsAre("Quadri 1", "Quadri 2", "Quadri 3", "Quadri 4"));
        EXPECT_EQ(controler.history().undoSteps(), 1);
    });
}

TEST_F(ColoursAtHandTest, ManyLinesBecomeManySwatchesByOneStep) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        clip(desktop, "Sky: #87ceeb;\nfirst and last\n#ff007f Rosé\n--deep-sea: rgb(0 0 64);\n#123456\n");
        EXPECT_TRUE(operations.paste({"swatch2", {}}));
        const SwatchPanel& two = controler.panels().two;
        EXPECT_THAT(namesIn(two), ElementsAre("Sky", "Rose", "deep-sea", "#123456"));
        EXPECT_EQ(two.records[0].SRed, 0x87 * 257);
        EXPECT_EQ(two.view.getSelected(), 3);
        EXPECT_THAT(controler.history().manager()->undoNames(), ElementsAre("!Swatch Colors pasted!"));
        EXPECT_EQ(controler.history().manager()->undoWords(), std::vector<std::string>{"Add 4 colors"});
        desktop.forms.at("chromalogWindow")->send("doUndo:");
        EXPECT_THAT(namesIn(two), IsEmpty());
    });
}

TEST_F(ColoursAtHandTest, AColourOfAnotherProgramIsPastedWithTheNameBesideIt) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        const SwatchPanel& one = controler.panels().one;
        desktop.setGeneralPasteboard({true, true, kBlue, "Deep Sea"});
        operations.paste({"swatch1", {}});
        desktop.setGeneralPasteboard({true, true, kBlue, "#336699"});
        operations.paste({"swatch1", {}});
        desktop.setGeneralPasteboard({true, false, kBlue, std::nullopt});
        operations.paste({"swatch1", {}});
        EXPECT_THAT(namesIn(one), ElementsAre("Deep Sea", "#336699", "#336699"));
        desktop.setGeneralPasteboard({true, true, kBlue, "Sky: #87ceeb\nLime: #00ff00"});
        operations.paste({"swatch2", {}});
        EXPECT_THAT(namesIn(controler.panels().two), ElementsAre("Sky", "Lime")) << "all that the text has";
    });
}

TEST_F(ColoursAtHandTest, ACopiedRowIsPastedWithItsName) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        clip(desktop, "Sky: #87ceeb");
        operations.paste({"swatch1", {}});
        operations.copy({"swatch1", {}});
        EXPECT_EQ(desktop.generalPasteboard().text, "#87ceeb");
        operations.paste({"swatch2", {}});
        EXPECT_THAT(namesIn(controler.panels().two), ElementsAre("Sky"));
        operations.paste({"origFirstColor", {}});
        EXPECT_EQ(control<HeadlessTextField>(desktop, "firstHex").text(), "#87ceeb");
        EXPECT_EQ(control<HeadlessTextField>(desktop, "colorName").text(), "Sky");
    });
}

TEST_F(ColoursAtHandTest, WhatIsNoColourIsSaidQuietlyAndChangesNothing) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        const Colour before = controler.colours().getSecondColor();
        for (const char* text : {"", "no color here", "transparent"}) {
            clip(desktop, text);
            EXPECT_TRUE(operations.paste({"swatch1", {}}));
            EXPECT_TRUE(operations.paste({"origSecondColor", before}));
            EXPECT_EQ(desktop.status.text(), "Nothing on the clipboard is a color");
        }
        EXPECT_TRUE(controler.colours().getSecondColor().sameRgb(before));
        EXPECT_EQ(controler.panels().one.view.getNumberOfColors(), 0);
        EXPECT_EQ(controler.history().undoSteps(), 0);
        EXPECT_FALSE(operations.paste({"quadri1Color", before})) << "a harmony's well takes none";
        clip(desktop, "#336699");
        operations.paste({"origSecondColor", before});
        EXPECT_EQ(desktop.status.text(), "");
        EXPECT_EQ(control<HeadlessTextField>(desktop, "secondHex").text(), "#336699");
    });
}

TEST_F(ColoursAtHandTest, AddsAColourWithoutMakingItTheFirst) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        const Colour first = controler.colours().getFirstColor();
        operations.add({"myDegrade", kBlue}, 1);
        control<HeadlessTextField>(desktop, "colorName").type("Mine");
        operations.add({"origFirstColor", first}, 1);
        choose(operations, {"chromaView", kBlue}, "addToList2:");
        const SwatchPanels& panels = controler.panels();
        EXPECT_THAT(namesIn(panels.one), ElementsAre("#336699", "Mine"));
        EXPECT_THAT(namesIn(panels.two), ElementsAre("#336699"));
        EXPECT_EQ(panels.one.records[0].SGreen, 26214);
        EXPECT_EQ(panels.one.view.getSelected(), 1);
        EXPECT_TRUE(controler.colours().getFirstColor().sameRgb(first));
        EXPECT_THAT(controler.history().manager()->undoNames(),
                    ElementsAre("!Swatch Colors added!", "!Swatch Colors added!", "!Swatch Colors added!"));
    });
}

TEST_F(ColoursAtHandTest, AnyColourBecomesAWorkingColour) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        choose(operations, {"quadri1Color", kBlue}, "useAsFirst:");
        EXPECT_TRUE(controler.colours().getFirstColor().sameRgb(kBlue));
        choose(operations, {"myToneView", Colour::rgb(1, 0, 0)}, "useAsSecond:");
        EXPECT_EQ(control<HeadlessTextField>(desktop, "secondHex").text(), "#ff0000");
        EXPECT_EQ(control<HeadlessTextField>(desktop, "secondR").text(), "255");
        EXPECT_EQ(controler.colours().getLuminosity(), 1);
        clip(desktop, "Sky: #87ceeb");
        operations.paste({"swatch2", {}});
        for (const auto& more : desktop.forms.at("chromalogWindow")->menus.at("swatchContextMenu2")->more)
            if (const MenuItems items = more(); const MenuItem* item = itemIn(items, "useAsFirst:"))
                item->run();
        EXPECT_EQ(control<HeadlessTextField>(desktop, "firstHex").text(), "#87ceeb");
        EXPECT_EQ(control<HeadlessTextField>(desktop, "colorName").text(), "Sky");
    });
}

TEST_F(ColoursAtHandTest, AListWithoutRoomForAllTakesNone) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        SwatchPanel& one = controler.panels().one;
        std::string text;
        for (int i = 0; i < kListCapacity - 1; ++i)
            text += "#000\n";
        clip(desktop, text);
        operations.paste({"swatch1", {}});
        EXPECT_EQ(one.view.getNumberOfColors(), kListCapacity - 1);
        EXPECT_THAT(desktop.alerts, IsEmpty());
        clip(desktop, "#fff #eee");
        operations.paste({"swatch1", {}});
        ASSERT_EQ(desktop.alerts.size(), 1U);
        EXPECT_EQ(desktop.alerts[0].informative, "5001 colors in list ");
        EXPECT_EQ(one.view.getNumberOfColors(), kListCapacity - 1);
        EXPECT_EQ(controler.history().undoSteps(), 1);
        operations.add({"chromaView", kBlue}, 1);
        EXPECT_EQ(one.view.getNumberOfColors(), kListCapacity);
        EXPECT_EQ(one.view.getSelected(), kListCapacity - 1);
    });
}

TEST_F(ColoursAtHandTest, ALongNameEndsWhereItsPlaceDoes) {
    inDialog([](auto& operations, auto& controler, auto& desktop) {
        desktop.setGeneralPasteboard({true, true, kBlue, std::string(300, 'x')});
        operations.paste({"swatch1", {}});
        EXPECT_THAT(namesIn(controler.panels().one), ElementsAre(std::string(255, 'x')));
        EXPECT_EQ(controler.panels().one.records[0].SRed, 13107);
    });
}

} // namespace
} // namespace chromalog::test
