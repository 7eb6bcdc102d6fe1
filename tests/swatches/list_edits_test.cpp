#include "swatches/list_edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace chromalog {
namespace {

using testing::ElementsAre;

/// Records whose SRed tells them apart, with guards in front and behind that nothing may touch.
struct Guarded {
    static constexpr int kSize = 6, kGuards = 3;
    std::vector<FCOStruct> memory{kSize + 2 * kGuards};
    ListRecords list{memory.data() + kGuards, kSize};

    Guarded() {
        for (int i = 0; FCOStruct & record : memory)
            record.SRed = i++ - kGuards;
    }
    std::vector<int> order() const {
        std::vector<int> reds;
        for (const FCOStruct& record : list)
            reds.push_back(static_cast<int>(record.SRed));
        return reds;
    }
    bool guardsWhole() const {
        for (int i = 0; i < kGuards; ++i)
            if (memory[i].SRed != i - kGuards || memory[kGuards + kSize + i].SRed != kSize + i) return false;
        return true;
    }
};

struct MoveCase {
    std::int64_t from, to, count;
    std::vector<int> expected;
};

TEST(ListEdits, ARunMovesAsOneAndStopsAtTheArraysEnds) {
    const MoveCase cases[] = {
        {0, 1, 3, {0, 0, 1, 2, 4, 5}},
        {1, 0, 3, {1, 2, 3, 3, 4, 5}},
        {2, 4, 5, {0, 1, 2, 3, 2, 3}},                  // runs past the end
        {1, 0, 6, {1, 2, 3, 4, 5, 5}},                  // reads past the end
        {-2, 1, 4, {0, 1, 2, 0, 1, 5}},                 // reads in front
        {2, -1, 4, {3, 4, 5, 3, 4, 5}},                 // writes in front
        {0, 1, 0, {0, 1, 2, 3, 4, 5}},                  // nothing to move
        {0, 1, -5, {0, 1, 2, 3, 4, 5}},                 // less than nothing
        {7, 0, 3, {0, 1, 2, 3, 4, 5}},                  // all outside
        {0, 30'000, 30'000, {0, 1, 2, 3, 4, 5}},        // far outside
        {-32'768, -32'767, 65'535, {0, 0, 1, 2, 3, 4}}, // outside at both ends
    };
    for (const MoveCase& c : cases) {
        Guarded g;
        moveRecords(g.list, c.from, c.to, c.count);
        EXPECT_EQ(g.order(), c.expected) << c.from << " to " << c.to << " count " << c.count;
        EXPECT_TRUE(g.guardsWhole()) << c.from << " to " << c.to << " count " << c.count;
    }
}

TEST(ListEdits, DeletingMovesTheRecordPastTheLastOneToo) {
    Guarded g;
    deleteRecord(g.list, 3, 1);
    EXPECT_THAT(g.order(), ElementsAre(0, 2, 3, 3, 4, 5));
}

TEST(ListEdits, DeletingFromAFullListReadsNothingBehindIt) {
    Guarded g;
    deleteRecord(g.list, Guarded::kSize, 0);
    EXPECT_THAT(g.order(), ElementsAre(1, 2, 3, 4, 5, 5));
    EXPECT_TRUE(g.guardsWhole());
}

TEST(ListEdits, AGapOpensAtThePositionOrAtTheEnd) {
    Guarded g;
    EXPECT_EQ(insertGap(g.list, 4, 1), 1);
    EXPECT_THAT(g.order(), ElementsAre(0, 1, 1, 2, 3, 5)) << "the record there keeps its old contents";
    EXPECT_EQ(insertGap(g.list, 4, 4), 4);
    EXPECT_EQ(insertGap(g.list, 4, 30'000), 4);
    EXPECT_THAT(g.order(), ElementsAre(0, 1, 1, 2, 3, 5));
}

TEST(ListEdits, AGapInAnOverstatedListStaysInside) {
    Guarded g;
    EXPECT_EQ(insertGap(g.list, 30'000, 2), 2);
    EXPECT_THAT(g.order(), ElementsAre(0, 1, 2, 2, 3, 4));
    EXPECT_EQ(insertGap(g.list, -3, 2), -3);
    EXPECT_TRUE(g.guardsWhole());
}

struct MoveRecordCase {
    int from, to;
    std::vector<int> expected;
};

TEST(ListEdits, ARecordMovesBetweenItsNeighbours) {
    const MoveRecordCase cases[] = {
        {2, 0, {2, 0, 1, 3, 4, 5}},  {2, 4, {0, 1, 3, 4, 2, 5}}, {2, 2, {0, 1, 2, 3, 4, 5}},
        {0, 5, {1, 2, 3, 4, 5, 0}},  {0, 6, {1, 2, 3, 4, 5, 0}}, {0, 32'767, {1, 2, 3, 4, 5, 0}},
        {3, -1, {3, 0, 1, 2, 4, 5}}, {6, 0, {0, 1, 2, 3, 4, 5}}, {-1, 3, {0, 1, 2, 3, 4, 5}},
    };
    for (const MoveRecordCase& c : cases) {
        Guarded g;
        moveRecord(g.list, c.from, c.to);
        EXPECT_EQ(g.order(), c.expected) << c.from << " to " << c.to;
        EXPECT_TRUE(g.guardsWhole());
    }
}

struct ColourCase {
    double component;
    std::int64_t stored, overwritten;
};

TEST(ListEdits, ColoursAreTruncatedAndTheSecondWayIsSigned) {
    const ColourCase cases[] = {
        {0, 0, 0},      {1, 65535, -1}, {0.5, 32767, 32767}, {0.51, 33422, -32114}, {0.9999999, 65534, -2},
        {0.00002, 1, 1}};
    for (const ColourCase& c : cases) {
        FCOStruct record{};
        storeColour(record, Colour::rgb(c.component, 0, 1));
        EXPECT_EQ(record.SRed, c.stored) << c.component;
        EXPECT_EQ(record.SGreen, 0);
        EXPECT_EQ(record.SBlue, 65535);
        overwriteColour(record, Colour::rgb(c.component, 0, 1));
        EXPECT_EQ(record.SRed, c.overwritten) << c.component;
        EXPECT_EQ(record.SBlue, -1);
    }
}

struct NameCase {
    std::string text;
    int length;
    std::string bytes;
};

TEST(ListEdits, NamesAreAsciiWithTheTextsOwnLength) {
    const NameCase cases[] = {
        {"", 0, ""},
        {"Red", 3, "Red"},
        {"Zo\u00eb", 3, "Zoe"},
        {"\u5927", 1, "?"},
        {"Zoe\u0308 a\u0301", 7, "Zoe a"}, // the accents count, and leave nothing
        {"\U0001F3A8x", 3, "??x"},
        {std::string(255, 'a'), 255, std::string(255, 'a')},
        {std::string(300, 'a'), 300 - 256, std::string(255, 'a')},
    };
    for (const NameCase& c : cases) {
        FCOStruct record{};
        record.SRed = 0x7777;
        writeName(record, StoredName(c.text));
        EXPECT_EQ(record.Namen[0], c.length) << c.text;
        EXPECT_EQ(zeroTerminatedName(record), c.bytes) << c.text;
        EXPECT_EQ(record.SRed, 0x7777);
    }
}

} // namespace
} // namespace chromalog
