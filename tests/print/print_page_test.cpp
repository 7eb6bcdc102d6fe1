// What of a page reaches the sheet: all that leaves a mark on it, and nothing else.
#include "print/print_page.h"
#include "support/recording_canvas.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace chromalog {
namespace {

using test::Primitive;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect kSheet{0, 0, 100, 200};

std::vector<std::string> textsOn(const PrintPage& page) {
    test::RecordingCanvas sheet(false, kSheet);
    paintPage(page, sheet);
    std::vector<std::string> texts;
    for (const Primitive& p : sheet.only(Primitive::Kind::text))
        texts.push_back(p.text);
    return texts;
}

/// A line whose baseline begins there.
PrintLabel label(double x, double baseline, const char* text) {
    return {{x, baseline, 80, 24}, text};
}

TEST(PrintedPage, ALineOverTheLowerEdgeIsPainted) {
    const double lower = kSheet.h;
    EXPECT_THAT(
        textsOn({{}, {label(5, lower - 1, "on"), label(5, lower, "at"), label(5, lower + 5.9, "over")}}),
        ElementsAre("on", "at", "over"));
    EXPECT_THAT(textsOn({{}, {label(5, lower + 6, "below")}}), IsEmpty());
}

TEST(PrintedPage, ALineOverTheUpperEdgeIsPainted) {
    EXPECT_THAT(textsOn({{}, {label(5, 0, "at"), label(5, -5.9, "over"), label(5, -6, "above")}}),
                ElementsAre("at", "over"));
}

TEST(PrintedPage, ALineThatBeginsLeftOfTheSheetIsPaintedAndRightOfItIsNot) {
    EXPECT_THAT(textsOn({{}, {label(-300, 50, "left"), label(99, 50, "in"), label(100, 50, "right")}}),
                ElementsAre("left", "in"));
}

TEST(PrintedPage, LabelsOfAPatchBelowTheSheetMayReachIntoIt) {
    PrintPage page;
    page.cells.push_back({{0, kSheet.h, 20, 20}, Colour::rgb(1, 0, 0), {label(25, kSheet.h + 2, "label")}});
    test::RecordingCanvas sheet(false, kSheet);
    paintPage(page, sheet);
    EXPECT_THAT(sheet.only(Primitive::Kind::fillRect), IsEmpty());
    EXPECT_EQ(sheet.only(Primitive::Kind::text).size(), 1u);
}

} // namespace
} // namespace chromalog
