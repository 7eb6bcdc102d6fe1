// Every mistake that a plug-in can make with handles and records is counted and named.
#include "standalone/misuse_support.h"

#include <clocale>
#include <thread>

namespace chromalog::standalone::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
        {[](PickerRecord& r, std::intptr_t& slot) { // the place before, while it is locked in another
             const Handle handle = newLocked(r);
             char* const old = *handle;
             r.handleProcs->unlockProc(handle);
             r.handleProcs->lockProc(handle, 1);
             old[7] = 1;
             r.handleProcs->unlockProc(handle);
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
         "unlockProc: not a handle of this host"},
        {[](PickerRecord&, std::intptr_t& slot) { slot = 0x5eed; },
         "PluginMain: what the plug-in's slot holds is no handle of this host"},
        {[](PickerRecord& r, std::intptr_t& slot) {
             const Handle handle = r.handleProcs->newProc(5);
             slot = reinterpret_cast<std::intptr_t>(handle) + 1;
             r.handleProcs->disposeProc(handle);
         },
         "PluginMain: what the plug-in's slot holds is no handle of this host"}};
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
    const Mistake mistakes[]{
        {[](PickerRecord& r, std::intptr_t&) { r.pickParms.sourceSpace = 0x55; },
         "PluginMain: the record was changed outside the answer's fields: 1 byte from offset 184"},
        {[](PickerRecord& r, std::intptr_t&) { r.reservedBlock[251] = 1; },
         "PluginMain: the record was changed outside the answer's fields: 1 byte from offset 475"}};
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
    EXPECT_THAT(host.ledger.misuses(),
                ElementsAre("PluginMain: the record was written after the call: 2 bytes from offset 188"));
}

TEST(Misuse, ARecordIsWatchedForSomePicks) {
    static std::vector<PickerRecord*> seen;
    seen.clear();
    Host host(std::make_unique<ClosedConverter>());
    currentBody = [](PickerRecord& record, std::intptr_t&) { seen.push_back(&record); };
    HostRun run(host, entry);
    for (int i = 0; i < 3; ++i)
        run.pick({});
    seen[0]->serialNumber = 7;
    run.pick({});
    run.pick({});
    EXPECT_THAT(host.ledger.misuses(),
                ElementsAre("PluginMain: the record was written after the call: 4 bytes from offset 0"));
}

TEST(Misuse, APickWithinACallSharesTheSlot) {
    Host host(std::make_unique<ClosedConverter>());
    static int depth = 0;
    currentBody = [](PickerRecord& record, std::intptr_t& slot) {
        slot = ++depth;
        record.sSPBasic->IsEqual("a", "b");
    };
    HostRun run(host, entry);
    std::intptr_t within = 0;
    host.ledger.atNext("IsEqual", [&] {
        run.pickWithinCall({});
        within = run.slot();
    });
    run.pick({});
    EXPECT_EQ(within, 2);
    EXPECT_EQ(depth, 2) << "once";
}

TEST(Misuse, WritingAnUnlockedHandleAfterTheCallIsNamed) {
    static char* kept = nullptr;
    Host host(std::make_unique<ClosedConverter>());
    currentBody = [](PickerRecord& record, std::intptr_t& slot) {
        const Handle handle = newLocked(record);
        kept = *handle;
        record.handleProcs->unlockProc(handle);
        slot = reinterpret_cast<std::intptr_t>(handle);
    };
    {
        HostRun run(host, entry);
        run.pick({});
        EXPECT_THAT(host.ledger.misuses(), IsEmpty());
        *kept = 1;
    }
    EXPECT_THAT(host.ledger.misuses(), ElementsAre("unlockProc: handle 1 was written after it was unlocked"));
}

TEST(Misuse, TheAboutRecordIsWatchedAsWell) {
    static AboutRecord* kept = nullptr;
    Host host(std::make_unique<ClosedConverter>());
    {
        HostRun run(host, [](std::int16_t, void* record, std::intptr_t*, std::int16_t*) {
            kept = static_cast<AboutRecord*>(record);
            kept->reserved[7] = 1;
        });
        run.about();
        kept->reserved[9] = 1;
    }
    EXPECT_THAT(
        host.ledger.misuses(),
        ElementsAre("PluginMain: the record was changed outside the answer's fields: 1 byte from offset 31",
                    "PluginMain: the record was written after the call: 1 byte from offset 33"));
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
} // namespace chromalog::standalone::test
