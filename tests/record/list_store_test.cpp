#include "record/list_store.h"

#include <gtest/gtest.h>

#include <memory>

namespace chromalog {
namespace {

TEST(ListStore, CountsAreClampedToTheArray) {
    for (const auto& [told, clamped] :
         {std::pair{-32768, 0}, {-1, 0}, {0, 0}, {4999, 4999}, {5000, 5000}, {30000, 5000}})
        EXPECT_EQ(clampedCount(told), clamped) << told;
}

TEST(ListStore, IndicesOutsideTheArrayHaveNoRecord) {
    const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    const ListRecords list(records.get(), kListCapacity);
    for (const int index : {-32768, -1, 5000, 32767})
        EXPECT_EQ(recordAt(list, index), nullptr) << index;
    EXPECT_EQ(recordAt(list, 0), &records[0]);
    EXPECT_EQ(recordAt(list, 4999), &records[4999]);
    EXPECT_EQ(recordAt(ListRecords(), 0), nullptr);
}

TEST(ListStore, NamesOf0And255Characters) {
    FCOStruct record{};
    EXPECT_EQ(nameBytes(record), "");
    EXPECT_EQ(zeroTerminatedName(record), "");
    std::fill_n(record.Namen, 256, std::uint8_t{255});
    record.SRed = 0x1234;
    EXPECT_EQ(nameBytes(record), std::string(255, '\xFF'));
    EXPECT_EQ(zeroTerminatedName(record), std::string(255, '\xFF')); // never past byte 255
    terminateName(record);
    EXPECT_EQ(record.SRed, 0x1200); // the terminator falls on the lowest byte of the red: kept
    EXPECT_EQ(zeroTerminatedName(record).size(), 255u);
}

TEST(ListStore, AZeroTerminatedNameMayBeLongerThanItsLength) {
    FCOStruct record{};
    record.Namen[0] = 2;
    for (int k = 1; k <= 4; ++k)
        record.Namen[k] = static_cast<std::uint8_t>('a' + k - 1);
    EXPECT_EQ(nameBytes(record), "ab");
    EXPECT_EQ(zeroTerminatedName(record), "abcd");
    terminateName(record);
    EXPECT_EQ(zeroTerminatedName(record), "ab");
}

} // namespace
} // namespace chromalog
