// Which texts of a list the dialog shows: after an undo, and as the name of a colour that came from a list.
#include "dialog/pick_fixture.h"

#include <algorithm>
#include <string_view>

namespace chromalog::test {
namespace {

class ShownNames : public PickTest {
  protected:
    static void store(std::uint8_t (&field)[256], std::string_view name) {
        field[0] = static_cast<std::uint8_t>(name.size());
        std::ranges::copy(name, field + 1);
    }
    static HeadlessTextField& nameField(HeadlessDesktop& desktop, int list) {
        return control<HeadlessTextField>(desktop, list == 1 ? "swatch1Name" : "swatch2Name");
    }
    static void sortAndUndo(HeadlessDesktop& desktop) {
        desktop.forms.at("chromalogWindow")->send("sortAlpha1:");
        desktop.forms.at("chromalogWindow")->send("doUndo:");
    }
};

TEST_F(ShownNames, AnUndoAsksTheCountsAndNotTheLengthsOfTheNames) {
    pick([](ChromalogControler& dialog, HeadlessDesktop& desktop) {
        GlobalRecord& record = dialog.record();
        for (const int full : {1, 2}) {
            dialog.panels().one.view.setNumberOfColors(full == 1 ? 3 : 0);
            dialog.panels().two.view.setNumberOfColors(full == 2 ? 3 : 0);
            store(record.swatchName1, "stored 1");
            store(record.swatchName2, "stored 2");
            nameField(desktop, 1).setText("shown 1");
            nameField(desktop, 2).setText("shown 2");
            sortAndUndo(desktop);
            EXPECT_EQ(nameField(desktop, 1).text(), full == 1 ? "stored 1" : "shown 1");
            EXPECT_EQ(nameField(desktop, 2).text(), full == 2 ? "stored 2" : "shown 2");
        }
    });
}

TEST_F(ShownNames, AnUndoShowsTheEmptyNameOfAListThatHoldsColours) {
    pick([](ChromalogControler& dialog, HeadlessDesktop& desktop) {
        for (const int list : {1, 2}) {
            (list == 1 ? dialog.panels().one : dialog.panels().two).view.setNumberOfColors(3);
            nameField(desktop, list).setText("shown");
        }
        sortAndUndo(desktop);
        EXPECT_EQ(nameField(desktop, 1).text(), "");
        EXPECT_EQ(nameField(desktop, 2).text(), "");
    });
}

TEST_F(ShownNames, TheNameOfAListsColourEndsAtItsFirstZero) {
    pick([](ChromalogControler& dialog, HeadlessDesktop& desktop) {
        store(dialog.record().swatchList1[0].Namen, std::string_view("one\0and more", 12));
        store(dialog.record().swatchList2[0].Namen, std::string_view("two\0and more", 12));
        auto& name = control<HeadlessTextField>(desktop, "colorName");
        auto& well = control<HeadlessColorWell>(desktop, "origFirstColor");
        dialog.panels().one.view.setNumberOfColors(1);
        dialog.panels().one.view.mouseDown({{10, 10}});
        EXPECT_EQ(name.text(), "one") << "clicked";
        well.drop(Colour::rgb(1, 0, 0), &dialog.panels().two.view);
        EXPECT_EQ(name.text(), "two") << "dropped";
        well.drop(Colour::rgb(1, 0, 0), &dialog.panels().one.view);
        EXPECT_EQ(name.text(), "one") << "dropped";
    });
}

TEST_F(ShownNames, ADropOnTheSecondWellLeavesTheNameOfTheFirstColour) {
    pick([](ChromalogControler& dialog, HeadlessDesktop& desktop) {
        store(dialog.record().swatchList1[0].Namen, "swatch");
        auto& name = control<HeadlessTextField>(desktop, "colorName");
        name.setText("first");
        control<HeadlessColorWell>(desktop, "origSecondColor")
            .drop(Colour::rgb(1, 0, 0), &dialog.panels().one.view);
        EXPECT_TRUE(dialog.colours().getSecondColor().sameRgb(Colour::rgb(1, 0, 0)));
        EXPECT_EQ(name.text(), "first");
    });
}

} // namespace
} // namespace chromalog::test
