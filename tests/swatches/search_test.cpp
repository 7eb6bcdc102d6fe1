#include "swatches/search.h"

#include "swatches/list_fixture.h"

namespace chromalog {
namespace {

using test::swatch;

struct HoldsCase {
    std::string name, text;
    bool found;
};

TEST(Search, IsAPlainCaseSensitiveSubstring) {
    const HoldsCase cases[] = {
        {"Light Blue", "Blue", true},
        {"blue", "Blue", false},
        {"Blueberry", "Blue", true},
        {"Blue", "", false},
        {"", "", false},
        {"", "a", false},
        {"abc", "abcd", false},
        {"Z\xC3\xABro", "ro", false},
        {"Z\x8Ero", "Z", false},
        {"plain", "pl\xC3", false},
        {"a.b", ".", true},
        {"%d", "%d", true},
    };
    for (const HoldsCase& c : cases)
        EXPECT_EQ(nameHolds(swatch(c.name), c.text), c.found) << c.name << " / " << c.text;
}

TEST(Search, ReadsNamesToTheFirstZeroAndNeverPastByte255) {
    FCOStruct record = swatch("AB");
    record.Namen[0] = 1;
    EXPECT_TRUE(nameHolds(record, "AB"));
    FCOStruct longest = swatch(std::string(255, 'x'));
    longest.SRed = 'y';
    EXPECT_FALSE(nameHolds(longest, "xy"));
}

TEST(Search, HitsCarryTheirRelativePositionInSinglePrecision) {
    std::vector<FCOStruct> list(kListCapacity), list1(kListCapacity);
    list[5] = swatch("hit");
    list[3] = swatch("hit");
    const auto hits = findByName(list, list1, 10, "hit");
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0].position, 3);
    EXPECT_EQ(hits[0].scrollValue, static_cast<double>(3.0F / 10.0F));
    EXPECT_EQ(hits[1].position, 5);
    EXPECT_EQ(hits[1].scrollValue, 0.5);
}

TEST(Search, CountsOutOfRangeAreClampedToTheArray) {
    std::vector<FCOStruct> list(kListCapacity);
    list[4999] = swatch("last");
    EXPECT_EQ(findByName(list, list, 30'000, "last").size(), 1u);
    EXPECT_EQ(findByName(list, list, -3, "last").size(), 0u);
    EXPECT_EQ(findByName({}, list, 5, "last").size(), 0u);
}

TEST(Search, EndsTheNamesOfList1WhateverListIsSearched) {
    std::vector<FCOStruct> list2(3), list1(3);
    for (FCOStruct& record : list1) {
        std::fill(std::begin(record.Namen), std::end(record.Namen), 'n');
        record.Namen[0] = 4;
        record.SRed = 0x1FF;
    }
    list1[1].Namen[0] = 255; // its terminator falls into the red channel
    findByName(list2, list1, 2, "x");
    EXPECT_EQ(list1[0].Namen[5], 0);
    EXPECT_EQ(list1[1].SRed, 0x100);
    EXPECT_EQ(list1[2].Namen[5], 'n') << "past the searched list's count";
}

} // namespace
} // namespace chromalog
