// Every mistake that a plug-in can make with the host is counted and named.
#include "standalone/callbacks.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/pick.h"

#include <clocale>
#include <gmock/gmock.h>
#include <thread>

namespace chromalog::standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Body = void (*)(PickerRecord& record, std::intptr_t& slot);

Body currentBody = nullptr;
void entry(std::int16_t, void* record, std::intptr_t* data, std::int16_t*) {
    currentBody(*static_cast<PickerRecord*>(record), *data);
}

/// What a host names after picks by a plug-in that does `body`.
std::vector<std::string> misusesOf(Body body, int picks = 1) {
    Host host(std::make_unique<ClosedConverter>());
    currentBody = body;
    {
        HostRun run(host, entry);
        for (int i = 0; i < picks; ++i)
            run.pick({});
    }
    return {host.ledger.misuses().begin(), host.ledger.misuses().end()};
}

Handle newLocked(PickerRecord& record) {
    const Handle handle = record.handleProcs->newProc(100);
    record.handleProcs->lockProc(handle, 1);
    return handle;
}

TEST(Misuse, NoneByAPlugInThatCleansUp) {
    const Body body = [](PickerRecord& record, std::intptr_t& slot) {
        Handle handle = reinterpret_cast<Handle>(slot);
        if (!handle) handle = record.handleProcs->newProc(100);
        slot = reinterpret_cast<std::intptr_t>(handle);
        record.handleProcs->lockProc(handle, 1)[99] = 1;
        record.handleProcs->unlockProc(handle);
        const void* suite = nullptr;
        ASSERT_EQ(record.sSPBasic->AcquireSuite(kPSBufferSuite, 2, &suite), 0);
        char* buffer = static_cast<const PSBufferSuite2*>(suite)->New(nullptr, 1024);
        static_cast<const PSBufferSuite2*>(suite)->Dispose(&buffer);
        EXPECT_EQ(buffer, nullptr);
        record.sSPBasic->ReleaseSuite(kPSBufferSuite, 2);
    };
    EXPECT_THAT(misusesOf(body, 2), IsEmpty());
}

struct Mistake {
    Body body;
    const char* named;
};

TEST(Misuse, HandlesAreNamed) {
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t& slot) { slot = reinterpret_cast<std::intptr_t>(newLocked(r)); },
         "lockProc: handle 1 is still locked at the end of the call"},
        {[](PickerRecord& r, std::intptr_t&) { r.handleProcs->newProc(5); },
         "newProc: handle 1 was not disposed of"},
        {[](PickerRecord& r, std::intptr_t& slot) {
             slot = reinterpret_cast<std::intptr_t>(r.handleProcs->newProc(5));
             r.handleProcs->unlockProc(reinterpret_cast<Handle>(slot));
         },
         "unlockProc: handle 1 is not locked"},
        {[](PickerRecord& r, std::intptr_t&) { r.handleProcs->disposeProc(newLocked(r)); },
         "disposeProc: handle 1 is still locked"},
        {[](PickerRecord& r, std::intptr_t&) {
             const Handle handle = r.handleProcs->newProc(5);
             r.handleProcs->disposeProc(handle);
             r.handleProcs->disposeProc(handle);
         },
         "disposeProc: handle 1 was disposed of"},
        {[](PickerRecord& r, std::intptr_t& slot) {
             slot = reinterpret_cast<std::intptr_t>(r.handleProcs->newProc(5));
             r.handleProcs->disposeProc(reinterpret_cast<Handle>(slot));
         },
         "disposeProc: handle 1 is still in the plug-in's slot"},
        {[](PickerRecord& r, std::intptr_t& slot) {
             const Handle handle = newLocked(r);
             char* const old = *handle;
             r.handleProcs->unlockProc(handle);
             old[7] = 1;
             slot = reinterpret_cast<std::intptr_t>(handle);
         },
         "unlockProc: handle 1 was written after it was unlocked"},
        {[](PickerRecord& r, std::intptr_t& slot) {
             const Handle handle = newLocked(r);
             (*handle)[100] = 1;
             r.handleProcs->unlockProc(handle);
             slot = reinterpret_cast<std::intptr_t>(handle);
         },
         "unlockProc: handle 1 was written past its ends"},
        {[](PickerRecord& r, std::intptr_t&) {
             const Handle handle = newLocked(r);
             EXPECT_EQ(r.handleProcs->setSizeProc(handle, 200), hostParamErr);
             r.handleProcs->unlockProc(handle);
             r.handleProcs->disposeProc(handle);
         },
         "setSizeProc: handle 1 is locked"},
        {[](PickerRecord& r, std::intptr_t&) { EXPECT_EQ(r.handleProcs->lockProc(nullptr, 1), nullptr); },
         "lockProc: null handle"},
        {[](PickerRecord& r, std::intptr_t&) {
             char* stranger = nullptr;
             r.handleProcs->unlockProc(&stranger);
         },
         "unlockProc: not a handle of this host"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

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

TEST(Misuse, ABufferOfASuiteThatIsNotHeldIsNamedTwice) {
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

TEST(Misuse, ArgumentsOfRecordCallbacksAreNamed) {
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t&) { EXPECT_EQ(r.colorServices(nullptr), hostParamErr); },
         "colorServices: null argument block"},
        {[](PickerRecord& r, std::intptr_t&) {
             ColorServicesInfo info{};
             info.infoSize = 36;
             EXPECT_EQ(r.colorServices(&info), hostParamErr);
         },
         "colorServices: infoSize is not the block's size"},
        {[](PickerRecord& r, std::intptr_t&) {
             ColorServicesInfo info{};
             info.infoSize = sizeof info;
             info.reserved = &info;
             EXPECT_EQ(r.colorServices(&info), hostParamErr);
         },
         "colorServices: a reserved pointer is not null"},
        {[](PickerRecord& r, std::intptr_t&) {
             EXPECT_EQ(r.propertyProcs->getPropertyProc(kHostSignature, propHostVersion, 0, nullptr, nullptr),
                       hostParamErr);
         },
         "getPropertyProc: null pointer for a simple property"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

TEST(Misuse, ColourSlotsOutOfRangeAndUnknownSpacesAreNone) {
    const Body body = [](PickerRecord& r, std::intptr_t&) {
        ColorServicesInfo info{};
        info.infoSize = sizeof info;
        info.selector = plugIncolorServicesConvertColor;
        info.sourceSpace = plugIncolorServicesHSBSpace;
        info.colorComponents[0] = -179;
        info.colorComponents[1] = 3000;
        EXPECT_EQ(r.colorServices(&info), 0);
        info.sourceSpace = 3001;
        EXPECT_EQ(r.colorServices(&info), hostParamErr);
    };
    EXPECT_THAT(misusesOf(body), IsEmpty());
}

TEST(Misuse, ChangesOfTheRecordOutsideTheAnswerAreNamed) {
    const Mistake mistakes[]{{[](PickerRecord& r, std::intptr_t&) { r.pickParms.sourceSpace = 0x55; },
                              "PluginMain: the record was changed outside the answer's fields"},
                             {[](PickerRecord& r, std::intptr_t&) { r.reservedBlock[251] = 1; },
                              "PluginMain: the record was changed outside the answer's fields"}};
    for (const Mistake& mistake : mistakes)
        EXPECT_THAT(misusesOf(mistake.body), ElementsAre(mistake.named));
}

TEST(Misuse, WritingTheRecordOfAnEarlierCallIsNamed) {
    static PickerRecord* kept = nullptr;
    kept = nullptr;
    const Body body = [](PickerRecord& record, std::intptr_t&) { kept = &record; };
    Host host(std::make_unique<ClosedConverter>());
    currentBody = body;
    HostRun run(host, entry);
    run.pick({});
    kept->pickParms.colorComponents[0] = 1;
    run.pick({});
    EXPECT_THAT(host.ledger.misuses(), ElementsAre("PluginMain: the record was written after the call"));
}

TEST(Misuse, AChangedLocaleOfNumbersIsNamed) {
    const Body body = [](PickerRecord&, std::intptr_t&) { std::setlocale(LC_NUMERIC, "C.UTF-8"); };
    EXPECT_THAT(misusesOf(body),
                ElementsAre("PluginMain: the locale of numbers is not as it was before the call"));
}

TEST(Misuse, CallingOutsideACallOrOffTheMainThreadIsNamed) {
    Host host(std::make_unique<ClosedConverter>());
    colourServicesCallback(nullptr);
    EXPECT_THAT(host.ledger.misuses(), ElementsAre("colorServices: called while no call of the plug-in runs",
                                                   "colorServices: null argument block"));
    host.beginCall();
    std::thread([] { handleProcs()->recoverSpaceProc(1); }).join();
    EXPECT_EQ(host.ledger.misuses().back(),
              "recoverSpaceProc: called from another thread than the host's main thread");
}

} // namespace
} // namespace chromalog::standalone
