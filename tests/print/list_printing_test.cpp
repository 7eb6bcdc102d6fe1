#include "print/list_printing.h"

#include "print/print_support.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

using test::Primitive;

class ListPrinting : public testing::Test {
  protected:
    ListPrinting() {
        list.setSwatchList(records.data());
        list.setHost(&host);
        list.setFrame({0, 0, 200, 400});
        host.frameChanges = 0;
    }
    std::vector<std::vector<Primitive>> print(int count) {
        list.setNumberOfColors(static_cast<std::int16_t>(count));
        printSwatchList(list, dialog.options, dialog.services, dialog.screen);
        return dialog.screen.sheets;
    }
    static int fills(const std::vector<Primitive>& sheet) {
        return static_cast<int>(std::ranges::count(sheet, Primitive::Kind::fillRect, &Primitive::kind));
    }
    void expectViewAsBefore() {
        EXPECT_EQ(list.frame(), (Rect{0, 0, 200, 400}));
        EXPECT_EQ(list.bounds(), (Rect{0, 0, 200, 400}));
        EXPECT_EQ(list.host(), &host);
        EXPECT_EQ(host.frameChanges, 0) << "the widget never hears of the paper";
    }

    std::vector<FCOStruct> records = test::numberedSwatches();
    test::PrintingDialog dialog;
    test::HeadlessViewHost host;
    CSwatchList list{dialog};
};

TEST_F(ListPrinting, PatchesAndFootersReachTheSheets) {
    const auto sheets = print(100);
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(fills(sheets[0]), 76);
    EXPECT_EQ(fills(sheets[1]), 24);
    EXPECT_EQ(sheets[0].size(), 76u + 3) << "with all options off only patches and the footer";
    EXPECT_EQ(sheets[0][19].rect, (Rect{135, 0, 40, 25}));
    EXPECT_EQ(sheets[0][19].colour.red(), 19 / 255.0);
    const Primitive& page = sheets[1].back();
    EXPECT_EQ(page.text, "page 2/2 ");
    EXPECT_EQ(page.at, (Point{370, 690}));
    EXPECT_EQ(page.font.face, Font::Face::message);
    EXPECT_EQ(page.font.size, 6);
    EXPECT_EQ(page.maxWidth, 0);
    EXPECT_TRUE(page.colour.sameRgb(Colour()));
    expectViewAsBefore();
}

TEST_F(ListPrinting, EachPatchIsFollowedByItsLinesInBlack) {
    dialog.options = {0, 1, 1, 0};
    const auto sheet = print(2)[0];
    ASSERT_EQ(sheet.size(), 2u * 3 + 3);
    EXPECT_EQ(sheet[1].text, "Colour 0");
    EXPECT_EQ(sheet[1].at, (Point{45, 7}));
    EXPECT_EQ(sheet[2].text, "RGB: 0/ 0/ 255 ");
    EXPECT_EQ(sheet[2].at, (Point{45, 14}));
    EXPECT_TRUE(sheet[2].colour.sameRgb(Colour()));
    EXPECT_EQ(sheet[3].kind, Primitive::Kind::fillRect);
    EXPECT_EQ(sheet[3].colour.red(), 1 / 255.0);
}

TEST_F(ListPrinting, AnExactlyFullPageIsFollowedByABlankSheet) {
    const auto sheets = print(76);
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(fills(sheets[0]), 76);
    EXPECT_TRUE(sheets[1].empty());
}

TEST_F(ListPrinting, AnEmptyListPrintsOneBlankPage) {
    for (const int count : {0, -3}) {
        const auto sheets = print(count);
        ASSERT_EQ(sheets.size(), 1u);
        EXPECT_TRUE(sheets[0].empty());
    }
    EXPECT_TRUE(dialog.screen.alerts.empty());
}

TEST_F(ListPrinting, ACountPastTheArrayPrintsTheArray) {
    const auto sheets = print(30'000);
    ASSERT_EQ(sheets.size(), 66u);
    int patches = 0;
    for (const auto& sheet : sheets)
        patches += fills(sheet);
    EXPECT_EQ(patches, 5000);
    list.setSwatchList(nullptr);
    EXPECT_EQ(print(10).size(), 1u);
}

TEST_F(ListPrinting, TheOptionsDialogComesFirstAndItsChoicesCount) {
    dialog.screen.modalSteps.push_back([&] {
        auto& matrix = dialog.dialog().outlet<test::HeadlessRadioMatrix>("buttonMatrix");
        matrix.selectRow(2);
        dialog.dialog().send("chooseSize:");
        dialog.dialog().send("ok:");
    });
    const auto sheets = print(31);
    ASSERT_EQ(sheets.size(), 2u) << "30 large patches a page";
    EXPECT_EQ(sheets[0][0].rect, (Rect{0, 0, 80, 55}));
    EXPECT_EQ(dialog.options.printSize, 2);
}

TEST_F(ListPrinting, ItsCancelEndsTheActionAndEveryOtherEndPrints) {
    print(3);
    ASSERT_FALSE(dialog.screen.sheets.empty());
    dialog.screen.sheets.clear();
    dialog.screen.modalSteps.push_back([&] { dialog.dialog().send("cancelPrint:"); });
    dialog.screen.printInfo.paper = {80, 80}; // too small: not even that is said
    print(3);
    EXPECT_TRUE(dialog.screen.sheets.empty());
    EXPECT_TRUE(dialog.screen.alerts.empty());
    dialog.screen.printInfo = {};
    dialog.screen.modalSteps.push_back(
        [&] { dialog.dialog().outlet<test::HeadlessWindow>("printOptionWindow").onClose(); });
    EXPECT_EQ(print(3).size(), 1u);
}

TEST_F(ListPrinting, PrintingFollowsWithoutTheOptionsDialogToo) {
    dialog.screen.missingForms.insert("SwatchPrintOptions");
    EXPECT_EQ(print(3).size(), 1u);
}

TEST_F(ListPrinting, TheScaleChangesTheGrid) {
    dialog.screen.printInfo.scale = 0.5;
    auto sheets = print(321); // 8 columns of 40
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(fills(sheets[0]), 320);
    EXPECT_EQ(sheets[0].back().at.y, 1410);
    dialog.screen.printInfo.scale = 2;
    sheets = print(19); // 2 columns of 9
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(fills(sheets[0]), 18);
    EXPECT_EQ(sheets[0].back().at.y, 330);
}

TEST_F(ListPrinting, SettingsChangedInThePrintDialogCount) {
    dialog.screen.onPrint = [&] { dialog.screen.printInfo.paper = {792, 612}; };
    const auto sheets = print(71); // 5 columns of 14
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(fills(sheets[0]), 70);
}

TEST_F(ListPrinting, OnTooSmallAPaperOneAlertAndNothingPrinted) {
    const PrintInfo cases[] = {
        {{206, 792}, 36, 36, 36, 36, 1},   // one point short of a column
        {{612, 141}, 36, 36, 36, 36, 1},   // one point short of a row
        {{612, 792}, 36, 36, 36, 36, 5},   // not even one column at this scale
        {{60, 60}, 36, 36, 36, 36, 1},     // margins wider than the paper
        {{206, 792}, 36, 36, 36, 36, 0.5}, // scaled it has two columns, but the view is given unscaled pages
        {{612, 141}, 36, 36, 36, 36, 0.5}, // the same with rows
    };
    for (const PrintInfo& info : cases) {
        dialog.screen.alerts.clear();
        dialog.screen.printInfo = info;
        dialog.screen.printedTitle = "none";
        print(10);
        EXPECT_EQ(dialog.screen.printedTitle, "none");
        ASSERT_EQ(dialog.screen.alerts.size(), 1u);
        EXPECT_EQ(dialog.screen.alerts[0].message, "The paper is too small for these swatches. ");
        EXPECT_EQ(dialog.screen.alerts[0].button, "ok");
        expectViewAsBefore();
    }
}

TEST_F(ListPrinting, APaperThatBecameTooSmallInThePrintDialogGivesTheSameAlert) {
    dialog.screen.onPrint = [&] { dialog.screen.printInfo.paper = {100, 100}; };
    EXPECT_TRUE(print(10).empty());
    EXPECT_EQ(dialog.screen.alerts.size(), 1u);
    expectViewAsBefore();
}

TEST_F(ListPrinting, AfterACancelledOrFailedJobTheViewIsAsBefore) {
    for (const PrintOutcome outcome : {PrintOutcome::cancelled, PrintOutcome::failed}) {
        dialog.screen.printOutcome = outcome;
        print(100);
        expectViewAsBefore();
        EXPECT_TRUE(dialog.screen.alerts.empty());
    }
}

TEST_F(ListPrinting, TheJobIsNamedAfterTheFileInTheList) {
    print(1);
    EXPECT_EQ(dialog.screen.printedTitle, "Swatches");
    list.setName("blues.aco");
    print(1);
    EXPECT_EQ(dialog.screen.printedTitle, "blues.aco");
}

TEST_F(ListPrinting, NoRecordIsChanged) {
    records[0] = test::swatch(std::string(255, 'x'), 65535, 1, 2);
    const auto before = records;
    dialog.options = {0, 1, 1, 1};
    print(100);
    EXPECT_EQ(std::memcmp(before.data(), records.data(), records.size() * sizeof(FCOStruct)), 0);
}

} // namespace
} // namespace chromalog
