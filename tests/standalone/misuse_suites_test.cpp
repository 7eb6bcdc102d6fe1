// Every mistake that a plug-in can make with buffers, blocks and suites is counted and named.
#include "standalone/misuse_support.h"

#include <clocale>

namespace chromalog::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Misuse, BlocksAndBuffersAreNamed) {
    const Mistake mistakes[]{{[](PickerRecord& r, std::intptr_t&) {
                                  void* block = nullptr;
                                  r.sSPBasic->AllocateBlock(77, &block);
                              },
                              "AllocateBlock: a block of 77 bytes was not freed"},
                             {[](PickerRecord& r, std::intptr_t&) {
                                  void* block = nullptr;
                                  r.sSPBasic->AllocateBlock(77, &block);
                                  r.sSPBasic->FreeBlock(block);
                                  EXPECT_EQ(r.sSPBasic->FreeBlock(block), kSPBadParameterError);
                              },
                              "FreeBlock: not a block of this host, or freed already"},
                             {[](PickerRecord& r, std::intptr_t&) { r.sSPBasic->AllocateBlock(1, nullptr); },
                              "AllocateBlock: null block pointer"},
                             {[](PickerRecord& r, std::intptr_t&) {
                                  BufferID buffer = nullptr;
                                  r.bufferProcs->allocateProc(10, &buffer);
                              },
                              "allocateProc: a block of 10 bytes was not freed"},
                             {[](PickerRecord& r, std::intptr_t&) {
                                  BufferID buffer = nullptr;
                                  r.bufferProcs->allocateProc(10, &buffer);
                                  r.bufferProcs->lockProc(buffer, 0)[9] = 1;
                                  r.bufferProcs->freeProc(buffer);
                              },
                              "freeProc: the block is still locked"},
                             {[](PickerRecord& r, std::intptr_t&) {
                                  BufferID buffer = nullptr;
                                  r.bufferProcs->allocateProc(10, &buffer);
                                  r.bufferProcs->lockProc(buffer, 0)[10] = 1;
                                  r.bufferProcs->unlockProc(buffer);
                                  r.bufferProcs->freeProc(buffer);
                              },
                              "freeProc: the block was written past its ends"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

TEST(Misuse, ABufferWrittenWithoutALockIsNamed) {
    const Mistake mistakes[]{{[](PickerRecord& r, std::intptr_t&) {
                                  BufferID buffer = nullptr;
                                  r.bufferProcs->allocateProc(10, &buffer);
                                  *reinterpret_cast<char*>(buffer) = 1; // never locked
                                  r.bufferProcs->freeProc(buffer);
                              },
                              "freeProc: the block was written while it was not locked"},
                             {[](PickerRecord& r, std::intptr_t&) {
                                  BufferID buffer = nullptr;
                                  r.bufferProcs->allocateProc64(10, &buffer);
                                  char* const address = r.bufferProcs->lockProc(buffer, 0);
                                  r.bufferProcs->unlockProc(buffer);
                                  address[9] = 1; // not any more
                                  r.bufferProcs->lockProc(buffer, 0)[8] = 2;
                                  r.bufferProcs->unlockProc(buffer);
                                  r.bufferProcs->freeProc(buffer);
                              },
                              "buffer lockProc: the block was written while it was not locked"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

TEST(Misuse, ABufferWrittenUnderTheOuterOfTwoLocksIsNone) {
    const Body body = [](PickerRecord& r, std::intptr_t&) {
        BufferID buffer = nullptr;
        r.bufferProcs->allocateProc(10, &buffer);
        char* const address = r.bufferProcs->lockProc(buffer, 0);
        EXPECT_EQ(r.bufferProcs->lockProc(buffer, 0), address);
        r.bufferProcs->unlockProc(buffer);
        address[0] = 1;
        r.bufferProcs->unlockProc(buffer);
        r.bufferProcs->freeProc(buffer);
    };
    EXPECT_THAT(misusesOf(body), IsEmpty());
}

TEST(Misuse, ABufferThatIsNotFreedIsLookedAtToo) {
    const Body body = [](PickerRecord& r, std::intptr_t&) {
        BufferID buffer = nullptr;
        r.bufferProcs->allocateProc(10, &buffer);
        *reinterpret_cast<char*>(buffer) = 1;
    };
    EXPECT_THAT(misusesOf(body), ElementsAre("allocateProc: the block was written while it was not locked",
                                             "allocateProc: a block of 10 bytes was not freed"));
}

TEST(Misuse, AForeignBlockIsNamedOnceAndGivesNothing) {
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t&) {
             int own = 7;
             void* moved = &own;
             EXPECT_EQ(r.sSPBasic->ReallocateBlock(&own, 4, &moved), kSPBadParameterError);
             EXPECT_EQ(moved, &own);
         },
         "ReallocateBlock: not a block of this host, or freed already"},
        {[](PickerRecord& r, std::intptr_t&) {
             int own = 7;
             EXPECT_EQ(r.bufferProcs->lockProc(reinterpret_cast<BufferID>(&own), 0), nullptr);
         },
         "buffer lockProc: not a block of this host, or freed already"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

TEST(Misuse, ABufferOfASuiteThatIsNotAcquiredIsNamedTwice) {
    const Body body = [](PickerRecord&, std::intptr_t&) { bufferSuite1()->New(nullptr, 3); };
    EXPECT_THAT(misusesOf(body), ElementsAre("New: called while " kPSBufferSuite " is not acquired",
                                             "New: a block of 3 bytes was not freed"));
}

TEST(Misuse, SuitesAreNamed) {
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t&) { r.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 1); },
         "ReleaseSuite: " kPSUIHooksSuite ", version 1 is not acquired"},
        {[](PickerRecord& r, std::intptr_t&) {
             const void* suite = nullptr;
             r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 1, &suite);
             r.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 2);
             r.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 1);
         },
         "ReleaseSuite: " kPSUIHooksSuite ", version 2 is not acquired"},
        {[](PickerRecord& r, std::intptr_t&) {
             const void* suite = nullptr;
             r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 3, &suite);
         },
         "AcquireSuite: " kPSUIHooksSuite ", version 3 was not released"},
        {[](PickerRecord& r, std::intptr_t&) {
             const void* suite = nullptr;
             r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 2, &suite);
             r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 2, &suite);
             r.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 2); // one for two
         },
         "AcquireSuite: " kPSUIHooksSuite ", version 2 was not released"},
        {[](PickerRecord& r, std::intptr_t&) {
             const void* suite = nullptr;
             r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 1, &suite);
             r.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 1);
             static_cast<const PSUIHooksSuite*>(suite)->TickCount();
         },
         "TickCount: called while " kPSUIHooksSuite " is not acquired"},
        {[](PickerRecord& r, std::intptr_t&) { r.sSPBasic->AcquireSuite(kPSUIHooksSuite, 1, nullptr); },
         "AcquireSuite: null suite pointer"},
        {[](PickerRecord& r, std::intptr_t&) { r.sSPBasic->IsEqual("a", nullptr); }, "IsEqual: null text"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

/// Calls `body` with the newest hooks, held.
template <typename Use> void withHooks(PickerRecord& record, Use use) {
    const void* suite = nullptr;
    ASSERT_EQ(record.sSPBasic->AcquireSuite(kPSUIHooksSuite, 4, &suite), 0);
    use(*static_cast<const PSUIHooksSuite*>(suite));
    record.sSPBasic->ReleaseSuite(kPSUIHooksSuite, 4);
}

ASZString someText() {
    static char text;
    return reinterpret_cast<ASZString>(&text);
}

TEST(Misuse, WhatIsPutAwayAtTheEndIsNamed) {
    using AtEnd = void (*)(PickerRecord&, void (*)());
    static constexpr AtEnd give = [](PickerRecord& record, void (*putAway)()) {
        const void* suite = nullptr;
        record.sSPBasic->AcquireSuite(kStandaloneSuite, kStandaloneSuiteVersion2, &suite);
        static_cast<const StandaloneSuite2*>(suite)->atEnd(putAway);
        record.sSPBasic->ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion2);
    };
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t&) { give(r, nullptr); }, "atEnd: null function"},
        {[](PickerRecord&, std::intptr_t&) { standaloneSuite()->version2.atEnd([] {}); },
         "atEnd: called while " kStandaloneSuite " is not acquired"},
        {[](PickerRecord& r, std::intptr_t&) { give(r, [] { basicSuite()->IsEqual("a", "b"); }); },
         "IsEqual: called while no call of the plug-in runs"},
        {[](PickerRecord& r, std::intptr_t&) { give(r, [] { std::setlocale(LC_NUMERIC, "C.UTF-8"); }); },
         "PluginMain: the locale of numbers is not as it was before the call"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
    std::setlocale(LC_NUMERIC, "C");
}

TEST(Misuse, NullNamesAndNullPixelsAreNamed) {
    const Body body = [](PickerRecord& record, std::intptr_t&) {
        withHooks(record, [&](const PSUIHooksSuite& hooks) {
            const int pixels = 0, rect = 0;
            EXPECT_EQ(hooks.displayPixels(nullptr, &rect, 0, 0, nullptr), hostParamErr);
            EXPECT_EQ(hooks.displayPixels(&pixels, nullptr, 0, 0, nullptr), hostParamErr);
            EXPECT_EQ(hooks.SetCursor(nullptr), hostParamErr);
            EXPECT_EQ(hooks.GetPluginName(record.plugInRef, nullptr), hostParamErr);
            EXPECT_EQ(hooks.SetPluginMenuEntry(record.plugInRef, nullptr, 1), hostParamErr);
            ASZString answer = nullptr;
            EXPECT_EQ(hooks.GetLocalizedFileName(nullptr, &answer), hostParamErr);
            EXPECT_EQ(hooks.GetLocalizedFileName(someText(), nullptr), hostParamErr);
        });
        EXPECT_EQ(standaloneSuite()->version2.version1.callCount(nullptr), 0);
    };
    EXPECT_THAT(misusesOf(body),
                ElementsAre("displayPixels: null pixels", "displayPixels: null rectangle",
                            "SetCursor: null name", "GetPluginName: null pointer to a name",
                            "SetPluginMenuEntry: null name", "GetLocalizedFileName: null name",
                            "GetLocalizedFileName: null pointer to a name", "callCount: null name"));
}

TEST(Misuse, WholeNamesAndPixelsAreNone) {
    const Body body = [](PickerRecord& record, std::intptr_t&) {
        withHooks(record, [&](const PSUIHooksSuite& hooks) {
            const int pixels = 0, rect = 0;
            ASZString answer = nullptr;
            EXPECT_EQ(hooks.displayPixels(&pixels, &rect, 0, 0, nullptr), errPlugInHostInsufficient);
            EXPECT_EQ(hooks.SetCursor("cross"), 0);
            EXPECT_EQ(hooks.GetPluginName(record.plugInRef, &answer), errPlugInHostInsufficient);
            EXPECT_EQ(hooks.SetPluginMenuEntry(record.plugInRef, someText(), 1), errPlugInHostInsufficient);
            EXPECT_EQ(hooks.GetLocalizedFileName(someText(), &answer), errPlugInHostInsufficient);
        });
    };
    EXPECT_THAT(misusesOf(body), IsEmpty());
}

TEST(Misuse, TheRecordsOwnEventCallbackNeedsNoSuite) {
    const Body body = [](PickerRecord& record, std::intptr_t&) {
        record.processEvent(nullptr);
        EXPECT_EQ(standaloneSuite()->version2.version1.callCount("processEvent"), 1);
    };
    EXPECT_THAT(misusesOf(body), IsEmpty());
    const Body hook = [](PickerRecord&, std::intptr_t&) { uiHooksSuite(1)->processEvent(nullptr); };
    EXPECT_THAT(misusesOf(hook),
                ElementsAre("processEvent: called while " kPSUIHooksSuite " is not acquired"));
}

} // namespace
} // namespace chromalog::standalone::test
