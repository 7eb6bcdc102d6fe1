#include "history/snapshot.h"

#include <gtest/gtest.h>

#include <numeric>

namespace chromalog {
namespace {

using Bytes = std::vector<std::byte>;

Bytes counting(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::byte>(i * 7 + i / 251);
    return bytes;
}

std::size_t memoryOf(std::initializer_list<const Snapshot*> snapshots) {
    std::unordered_set<const void*> counted;
    std::size_t bytes = 0;
    for (const Snapshot* snapshot : snapshots)
        bytes += snapshot->bytesBeside(counted);
    return bytes;
}

TEST(Snapshot, GivesBackWhatItCopiedAtEverySizeAroundAPage) {
    constexpr std::size_t page = Snapshot::kPageBytes;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, page - 1, page, page + 1, 3 * page + 17}) {
        const Bytes original = counting(size);
        const Snapshot snapshot(original, nullptr);
        EXPECT_EQ(snapshot.size(), size);
        Bytes restored(size, std::byte{0xEE});
        snapshot.restore(restored);
        EXPECT_EQ(restored, original) << size;
    }
}

TEST(Snapshot, KeepsItsBytesWhenTheOriginalChanges) {
    const Bytes original = counting(20'000);
    Bytes live = original;
    const Snapshot first(live, nullptr);
    live[9'000] ^= std::byte{1};
    const Snapshot second(live, &first);
    Bytes restored(live.size());
    first.restore(restored);
    EXPECT_EQ(restored, original);
    second.restore(restored);
    EXPECT_EQ(restored, live);
}

TEST(Snapshot, SharesThePagesThatDidNotChange) {
    constexpr std::size_t pages = 100;
    Bytes live = counting(pages * Snapshot::kPageBytes);
    const Snapshot first(live, nullptr);
    live[5 * Snapshot::kPageBytes] ^= std::byte{1};
    const Snapshot second(live, &first);
    const std::size_t added = memoryOf({&first, &second}) - memoryOf({&first});
    EXPECT_GE(added, Snapshot::kPageBytes);
    EXPECT_LT(added, 2 * Snapshot::kPageBytes);
}

TEST(Snapshot, OfAnotherSizeSharesNothing) {
    const Bytes bytes = counting(3 * Snapshot::kPageBytes);
    const Snapshot longer(bytes, nullptr);
    const auto front = std::span(bytes).first(Snapshot::kPageBytes + 5);
    const Snapshot shorter(front, &longer);
    Bytes restored(Snapshot::kPageBytes + 5);
    shorter.restore(restored);
    EXPECT_TRUE(std::equal(restored.begin(), restored.end(), bytes.begin()));
}

TEST(Snapshot, RestoresNoFurtherThanTheTargetReaches) {
    const Bytes bytes = counting(2 * Snapshot::kPageBytes);
    const Snapshot snapshot(bytes, nullptr);
    Bytes target(Snapshot::kPageBytes + 10, std::byte{0});
    snapshot.restore(std::span(target).first(Snapshot::kPageBytes + 3));
    EXPECT_EQ(target[Snapshot::kPageBytes + 2], bytes[Snapshot::kPageBytes + 2]);
    EXPECT_EQ(target[Snapshot::kPageBytes + 3], std::byte{0});
}

} // namespace
} // namespace chromalog
