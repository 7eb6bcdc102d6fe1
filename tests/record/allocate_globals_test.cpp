#include "record/allocate_globals.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace chromalog {
namespace {

int disposed = 0, initCalls = 0;
bool refuseNew = false, refuseLock = false;
char* block = nullptr;

HandleProcs procs() {
    HandleProcs p{};
    p.handleProcsVersion = 1;
    p.numHandleProcs = 8;
    p.newProc = [](std::int32_t size) -> Handle {
        if (refuseNew) return nullptr;
        block = static_cast<char*>(std::malloc(size));
        std::memset(block, 0xAB, size);
        return &block;
    };
    p.disposeProc = [](Handle) {
        ++disposed;
        std::free(block);
    };
    p.lockProc = [](Handle h, std::uint8_t) { return refuseLock ? nullptr : *h; };
    p.unlockProc = [](Handle) {};
    return p;
}

class AllocateGlobalsTest : public testing::Test {
  protected:
    void SetUp() override {
        disposed = initCalls = 0;
        refuseNew = refuseLock = false;
    }
    void TearDown() override {
        if (data) std::free(block);
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
    handles.lockProc = nullptr;
    EXPECT_EQ(allocate(), nullptr);
}

} // namespace
} // namespace chromalog
