#include "swatches/list_fixture.h"
#include "swatches/row_edits.h"

#include <random>

namespace chromalog {
namespace {

using Ints = std::vector<int>;

/// Records whose red is the row that they began in.
std::vector<FCOStruct> numbered(int count) {
    std::vector<FCOStruct> records;
    for (int i = 0; i < count; ++i)
        records.push_back(test::swatch(std::to_string(i), i));
    return records;
}

Ints redsOf(std::span<const FCOStruct> records) {
    Ints reds;
    for (const FCOStruct& record : records)
        reds.push_back(static_cast<int>(record.SRed));
    return reds;
}

TEST(RowEdits, RowsMoveTogetherToAGap) {
    struct Case {
        Ints rows;
        int gap, first;
        Ints after;
    };
    const Case cases[] = {
        {{1, 3}, 0, 0, {1, 3, 0, 2, 4, 5}}, {{1, 3}, 6, 4, {0, 2, 4, 5, 1, 3}},
        {{1, 3}, 2, 1, {0, 1, 3, 2, 4, 5}}, {{0, 1}, 1, 0, {0, 1, 2, 3, 4, 5}},
        {{4, 5}, 3, 3, {0, 1, 2, 4, 5, 3}}, {{0, 1, 2, 3, 4, 5}, 3, 0, {0, 1, 2, 3, 4, 5}},
    };
    for (const Case& c : cases) {
        auto records = numbered(6);
        EXPECT_EQ(moveRows(records, c.rows, c.gap), c.first);
        EXPECT_EQ(redsOf(records), c.after) << "to the gap " << c.gap;
    }
}

TEST(RowEdits, TakingRowsOutClosesUpAndLeavesTheRest) {
    auto records = numbered(6);
    removeRows(records, Ints{0, 2, 5});
    EXPECT_EQ(redsOf(std::span(records).first(3)), (Ints{1, 3, 4}));
    removeRows(std::span(records).first(3), Ints{});
    EXPECT_EQ(redsOf(std::span(records).first(3)), (Ints{1, 3, 4}));
}

TEST(RowEdits, RecordsGoInAtAGapAndNothingBehindIsTouched) {
    auto records = numbered(6);
    insertRecords(records, 3, 1, std::vector{test::swatch("a", 70), test::swatch("b", 71)});
    EXPECT_EQ(redsOf(records), (Ints{0, 70, 71, 1, 2, 5}));
    insertRecords(records, 5, 5, std::vector{test::swatch("c", 72)});
    EXPECT_EQ(records.back().SRed, 72);
}

TEST(RowEdits, SomeRowsAreReorderedInTheirPlaces) {
    auto records = numbered(5);
    reorderRows(records, Ints{0, 2, 4}, Ints{2, 0, 1});
    EXPECT_EQ(redsOf(records), (Ints{4, 1, 0, 3, 2}));
}

TEST(RowEdits, AnyMoveKeepsEveryRecordAndTheOrderOfTheOthers) {
    std::mt19937 random(14);
    for (int round = 0; round < 300; ++round) {
        const int count = 1 + static_cast<int>(random() % 12);
        Ints rows;
        for (int row = 0; row < count; ++row)
            if (random() % 2) rows.push_back(row);
        const int gap = static_cast<int>(random()) % (count + 1);
        const int at = std::abs(gap);
        auto records = numbered(count);
        const int first = moveRows(records, rows, at);
        Ints expected;
        for (int row = 0; row <= count; ++row) {
            if (row == at) expected.insert(expected.end(), rows.begin(), rows.end());
            if (row < count && !std::ranges::binary_search(rows, row)) expected.push_back(row);
        }
        EXPECT_EQ(redsOf(records), expected);
        if (!rows.empty()) {
            EXPECT_EQ(records[static_cast<std::size_t>(first)].SRed, rows.front());
        }
    }
}

} // namespace
} // namespace chromalog
