#include "record/allocate_globals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>

#include <sys/mman.h>
#include <unistd.h>

namespace chromalog {
namespace {

int disposed = 0, initCalls = 0;
bool refuseNew = false, refuseLock = false, untouched = false;
char* block = nullptr;
std::size_t blockSize = 0;

HandleProcs procs() {
    HandleProcs p{};
    p.handleProcsVersion = 1;
    p.numHandleProcs = 8;
    p.newProc = [](std::int32_t size) -> Handle {
        if (refuseNew) return nullptr;
        block = static_cast<char*>(::mmap(nullptr, static_cast<std::size_t>(size), PROT_READ | PROT_WRITE,
                                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        blockSize = static_cast<std::size_t>(size);
        if (!untouched) std::memset(block, 0xAB, size);
        return &block;
    };
    p.disposeProc = [](Handle) {
        ++disposed;
        ::munmap(block, blockSize);
    };
    p.lockProc = [](Handle h, std::uint8_t) { return refuseLock ? nullptr : *h; };
    p.unlockProc = [](Handle) {};
    return p;
}

class AllocateGlobalsTest : public testing::Test {
  protected:
    void SetUp() override {
        disposed = initCalls = 0;
        refuseNew = refuseLock = untouched = false;
    }
    void TearDown() override {
        if (data) ::munmap(block, blockSize);
    }
    GlobalRecord* allocate() {
        return AllocateGlobals(&result, &record, &handles, sizeof(GlobalRecord), &data,
                               [](GlobalRecord*) { ++initCalls; });
    }
    HandleProcs handles = procs();
    PickerRecord record{};
    std::int16_t result = 7;
    std::intptr_t data = 0;
};

TEST_F(AllocateGlobalsTest, ANewRecordIsCleared) {
    GlobalRecord* globals = allocate();
    ASSERT_TRUE(globals);
    EXPECT_EQ(initCalls, 1);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(globals->resultCode, &result);
    EXPECT_EQ(globals->pickerRecord, &record);
    EXPECT_EQ(globals->numColors1, 0);
    EXPECT_EQ(globals->swatchList2[4999].SRed, 0);
    EXPECT_NE(data, 0);
}

TEST_F(AllocateGlobalsTest, EveryByteOfANewRecordIsCleared) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(allocate());
    const auto set =
        std::count_if(bytes, bytes + sizeof(GlobalRecord), [](unsigned char b) { return b != 0; });
    EXPECT_LE(set, 2 * static_cast<std::ptrdiff_t>(sizeof(void*))) << "the two pointers alone";
}

TEST_F(AllocateGlobalsTest, APageIsClearedWhereOnlyItsMiddleHoldsSomething) {
    untouched = true;
    handles.lockProc = [](Handle h, std::uint8_t) {
        std::fill_n(*h + 5 * 4096 + 1000, 100, '\1');
        return *h;
    };
    const auto* bytes = reinterpret_cast<const unsigned char*>(allocate());
    ASSERT_TRUE(bytes);
    EXPECT_EQ(std::count(bytes, bytes + sizeof(GlobalRecord), 1), 0);
}

/// In pages of the system.
long resident() {
    std::ifstream counts("/proc/self/statm");
    long all = 0, resident = 0;
    counts >> all >> resident;
    return resident;
}

TEST_F(AllocateGlobalsTest, MemoryThatNobodyWroteIsNotTaken) {
    untouched = true;
    const long before = resident();
    ASSERT_GT(before, 0);
    ASSERT_TRUE(allocate());
    const long taken = (resident() - before) * ::sysconf(_SC_PAGESIZE);
    EXPECT_LT(taken, static_cast<long>(sizeof(GlobalRecord)) / 2);
}

TEST_F(AllocateGlobalsTest, ASecondPickFindsTheRecordAsItWas) {
    allocate()->numColors1 = 42;
    PickerRecord next{};
    result = 7;
    GlobalRecord* again = AllocateGlobals(&result, &next, &handles, sizeof(GlobalRecord), &data,
                                          [](GlobalRecord*) { ++initCalls; });
    EXPECT_EQ(again->numColors1, 42);
    EXPECT_EQ(again->pickerRecord, &next);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(initCalls, 1);
}

TEST_F(AllocateGlobalsTest, NoMemoryGivesNothing) {
    refuseNew = true;
    EXPECT_EQ(allocate(), nullptr);
    EXPECT_EQ(data, 0);
    EXPECT_EQ(disposed, 0);
}

TEST_F(AllocateGlobalsTest, ARefusedLockDisposesOfTheHandle) {
    refuseLock = true;
    EXPECT_EQ(allocate(), nullptr);
    EXPECT_EQ(disposed, 1);
    EXPECT_EQ(data, 0);
}

TEST_F(AllocateGlobalsTest, ARefusedLockOfAnEarlierRecordKeepsIt) {
    allocate();
    refuseLock = true;
    EXPECT_EQ(allocate(), nullptr);
    EXPECT_EQ(disposed, 0);
    EXPECT_NE(data, 0);
}

TEST_F(AllocateGlobalsTest, MissingHandleProceduresGiveNothing) {
    EXPECT_EQ(AllocateGlobals(&result, &record, nullptr, 1, &data, [](GlobalRecord*) {}), nullptr);
    const auto without = [this](auto procedure) {
        handles = procs();
        handles.*procedure = nullptr;
        return allocate();
    };
    EXPECT_EQ(without(&HandleProcs::newProc), nullptr);
    EXPECT_EQ(without(&HandleProcs::disposeProc), nullptr);
    EXPECT_EQ(without(&HandleProcs::lockProc), nullptr);
    EXPECT_EQ(without(&HandleProcs::unlockProc), nullptr);
}

} // namespace
} // namespace chromalog
