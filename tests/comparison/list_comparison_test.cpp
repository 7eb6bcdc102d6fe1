#include "comparison/list_colours.h"
#include "comparison/list_comparison.h"
#include "spaces/ciede2000.h"

#include <gmock/gmock.h>

#include <random>

namespace chromalog {
namespace {

using Labs = std::vector<Lab>;
using testing::ElementsAre;
using testing::IsEmpty;

Labs greys(std::initializer_list<double> lightnesses) {
    Labs labs;
    for (const double lightness : lightnesses)
        labs.push_back({lightness, 0, 0});
    return labs;
}

/// Colours of few bytes, so that equal and near ones are common, as many as chance has it.
Labs randomList(std::mt19937& random) {
    const std::uint32_t range = 1 + random() % 64;
    Labs labs(random() % 80);
    for (Lab& lab : labs) {
        const auto part = [&] { return (random() % range) / 255.0; };
        const double red = part(), green = part();
        lab = labOf(Rgb{red, green, part()});
    }
    return labs;
}

bool hasNear(const Labs& list, const Lab& colour, double within) {
    return std::ranges::any_of(list, [&](const Lab& other) { return ciede2000(colour, other) <= within; });
}

std::vector<int> rowsWithout(const Labs& of, const Labs& other, double within) {
    std::vector<int> rows;
    for (std::size_t i = 0; i < of.size(); ++i)
        if (!hasNear(other, of[i], within)) rows.push_back(static_cast<int>(i));
    return rows;
}

std::vector<int> rowsOf(const std::vector<ComparedRow>& all, int list) {
    std::vector<int> rows;
    for (const ComparedRow& each : all)
        if (each.list == list) rows.push_back(each.row);
    return rows;
}

TEST(ListComparison, IsBruteForceForAHundredRandomLists) {
    std::mt19937 random(16);
    for (int run = 0; run < 100; ++run) {
        SCOPED_TRACE(run);
        const Labs one = randomList(random), two = randomList(random);
        const double within = run % 5 == 0 ? 0 : (random() % 200) / 10.0;
        const ListComparison found = compareLists(one, two, within);
        const auto lonelyOne = rowsWithout(one, two, within), lonelyTwo = rowsWithout(two, one, within);
        EXPECT_EQ(rowsOf(comparedRows(found, ComparisonView::onlyOne), 0), lonelyOne);
        EXPECT_EQ(rowsOf(comparedRows(found, ComparisonView::onlyTwo), 1), lonelyTwo);
        EXPECT_EQ(found.matched(0), one.size() - lonelyOne.size());
        EXPECT_EQ(found.matched(1), two.size() - lonelyTwo.size());
        for (const ComparedRow& row : comparedRows(found, ComparisonView::both)) {
            const Labs &own = row.list == 0 ? one : two, &other = row.list == 0 ? two : one;
            const Lab& colour = own.at(static_cast<std::size_t>(row.row));
            EXPECT_EQ(row.difference, ciede2000(colour, other.at(static_cast<std::size_t>(row.counterpart))));
            for (const Lab& each : other)
                EXPECT_LE(row.difference, ciede2000(colour, each));
            EXPECT_LE(row.difference, within);
        }
    }
}

TEST(ListComparison, DoublesAreThoseThatAKeptOneMakesSuperfluousForAHundredRandomLists) {
    std::mt19937 random(17);
    for (int run = 0; run < 100; ++run) {
        SCOPED_TRACE(run);
        const Labs list = randomList(random);
        const double within = (random() % 100) / 10.0;
        Labs kept;
        std::vector<int> gone;
        for (std::size_t i = 0; i < list.size(); ++i)
            if (hasNear(kept, list[i], within))
                gone.push_back(static_cast<int>(i));
            else
                kept.push_back(list[i]);
        const auto rows = comparedRows(findDoubles(list, 1, within), ComparisonView::doublesTwo);
        EXPECT_EQ(rowsOf(rows, 1), gone);
        for (const ComparedRow& row : rows) {
            EXPECT_LT(row.counterpart, row.row);
            EXPECT_FALSE(std::ranges::binary_search(gone, row.counterpart)) << "it stays";
        }
    }
}

TEST(ListComparison, BothNamesEverySwatchOfBothListsOnceAtLeast) {
    const ListComparison found = compareLists(greys({50, 20}), greys({51, 50, 49, 90}), 2);
    const auto both = comparedRows(found, ComparisonView::both);
    ASSERT_EQ(both.size(), 3u);
    EXPECT_EQ(both[0], (ComparedRow{0, 0, 1, 0}));
    EXPECT_EQ(both[1].list, 1);
    EXPECT_EQ(both[1].row, 0);
    EXPECT_EQ(both[1].counterpart, 0);
    EXPECT_EQ(both[2].row, 2);
    EXPECT_THAT(comparedRows(found, ComparisonView::onlyOne), ElementsAre(ComparedRow{0, 1}));
    EXPECT_THAT(comparedRows(found, ComparisonView::onlyTwo), ElementsAre(ComparedRow{1, 3}));
}

TEST(ListComparison, AnEmptyListHasNothingInCommon) {
    const ListComparison found = compareLists({}, greys({1, 2}), 20);
    EXPECT_THAT(comparedRows(found, ComparisonView::onlyOne), IsEmpty());
    EXPECT_THAT(comparedRows(found, ComparisonView::both), IsEmpty());
    EXPECT_EQ(comparedRows(found, ComparisonView::onlyTwo).size(), 2u);
}

TEST(ListComparison, ColoursAreThoseThatPatchesShow) {
    FCOStruct stored{}, high{};
    stored.SRed = 0x1234, stored.SGreen = 0xFFFF, stored.SBlue = 7;
    high.SRed = 0x7FFF0001234, high.SGreen = -1, high.SBlue = 0x10007; // the same low 16 bits
    const Labs labs = labsOf(std::vector{stored, high});
    EXPECT_EQ(labs[0], labOf(Rgb{0x1234 / 65535.0, 1, 7 / 65535.0}));
    EXPECT_EQ(labs[0], labs[1]);
    EXPECT_EQ(compareLists({&labs[0], 1}, {&labs[1], 1}, 0).matched(0), 1u) << "equal";
}

} // namespace
} // namespace chromalog
