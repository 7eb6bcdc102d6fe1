// What a well-behaved plug-in gets from the host.
#include "standalone/callbacks.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/host_run.h"

#include <array>
#include <cstring>
#include <gmock/gmock.h>

namespace chromalog::standalone {
namespace {

using ::testing::IsEmpty;

struct HostTest : ::testing::Test {
    HostTest() { host.beginCall(); }
    ~HostTest() override { EXPECT_THAT(host.ledger.misuses(), IsEmpty()); }

    template <typename Suite> const Suite* acquire(const char* name, std::int32_t version) {
        const void* suite = nullptr;
        EXPECT_EQ(basicSuite()->AcquireSuite(name, version, &suite), 0);
        return static_cast<const Suite*>(suite);
    }

    Host host{std::make_unique<ClosedConverter>()};
};

TEST_F(HostTest, AHandleMovesWhenItIsUnlockedAndKeepsItsContents) {
    const Handle handle = handleProcs()->newProc(5000);
    EXPECT_EQ(handleProcs()->getSizeProc(handle), 5000);
    char* const first = handleProcs()->lockProc(handle, 1);
    EXPECT_EQ(*handle, first);
    std::memset(first, 'x', 5000);
    handleProcs()->unlockProc(handle);
    EXPECT_EQ(*handle, nullptr);
    char* const second = handleProcs()->lockProc(handle, 0);
    EXPECT_NE(second, first);
    EXPECT_EQ(std::string(second, 5000), std::string(5000, 'x'));
    handleProcs()->unlockProc(handle);
    handleProcs()->disposeProc(handle);
}

TEST_F(HostTest, AHandleGoesToAndFroBetweenTwoPlaces) {
    const Handle handle = handleProcs()->newProc(5000);
    std::array<char*, 2> places{};
    for (const char contents : {'a', 'b', 'c', 'd'}) {
        char* const now = handleProcs()->lockProc(handle, 1);
        if (contents > 'a') EXPECT_EQ(std::string(now, 5000), std::string(5000, contents - 1));
        EXPECT_NE(now, places[0]);
        places = {now, places[0]};
        std::memset(now, contents, 5000);
        handleProcs()->unlockProc(handle);
        EXPECT_EQ(std::string(now, 5000), std::string(5000, '\xDB'))
            << "what a reader of the old place finds";
    }
    EXPECT_EQ(handleProcs()->setSizeProc(handle, 6000), hostNoErr);
    char* const longer = handleProcs()->lockProc(handle, 1);
    longer[5999] = 'e';
    EXPECT_EQ(std::string(longer, 5000), std::string(5000, 'd'));
    handleProcs()->unlockProc(handle);
    EXPECT_EQ(handleProcs()->lockProc(handle, 1)[5999], 'e');
    handleProcs()->unlockProc(handle);
    handleProcs()->disposeProc(handle);
}

TEST_F(HostTest, LocksNestAndTheBlockStaysUntilTheLastUnlock) {
    const Handle handle = handleProcs()->newProc(10);
    char* const address = handleProcs()->lockProc(handle, 1);
    EXPECT_EQ(handleProcs()->lockProc(handle, 1), address);
    handleProcs()->unlockProc(handle);
    EXPECT_EQ(*handle, address);
    handleProcs()->unlockProc(handle);
    EXPECT_EQ(handleProcs()->setSizeProc(handle, 20), 0);
    EXPECT_EQ(handleProcs()->getSizeProc(handle), 20);
    EXPECT_EQ(handleProcs()->setSizeProc(handle, -1), hostParamErr);
    handleProcs()->disposeRegularHandleProc(handle);
}

TEST_F(HostTest, NewMemoryIsNotZero) {
    const Handle handle = handleProcs()->newProc(4);
    EXPECT_STREQ(std::string(handleProcs()->lockProc(handle, 1), 4).c_str(), "\xCD\xCD\xCD\xCD");
    handleProcs()->unlockProc(handle);
    handleProcs()->disposeProc(handle);
}

TEST_F(HostTest, NewMemoryIsZeroWhereAsked) {
    host.handles.setFresh(Fresh::zeroes);
    const Handle handle = handleProcs()->newProc(4);
    const char* memory = handleProcs()->lockProc(handle, 1);
    EXPECT_EQ(std::string(memory, 4), std::string(4, '\0'));
    handleProcs()->unlockProc(handle);
    EXPECT_EQ(std::string(memory, 4), "\xDB\xDB\xDB\xDB") << "the old place is watched all the same";
    handleProcs()->disposeProc(handle);
}

TEST_F(HostTest, MemoryIsRefusedWhereAsked) {
    host.handles.setFailing(HandleHeap::Failing::newProc);
    EXPECT_EQ(handleProcs()->newProc(4), nullptr);
    host.handles.setFailing(HandleHeap::Failing::nothing);
    EXPECT_EQ(handleProcs()->newProc(-4), nullptr);
    const Handle handle = handleProcs()->newProc(4);
    host.handles.setFailing(HandleHeap::Failing::lockProc);
    EXPECT_EQ(handleProcs()->lockProc(handle, 1), nullptr);
    handleProcs()->disposeProc(handle);
}

TEST_F(HostTest, TheVersionIsPackedWithTheMajorInTheHighWord) {
    std::intptr_t value = 0;
    for (const int major : {13, 16, 27}) {
        host.version = major;
        EXPECT_EQ(propertyProcs()->getPropertyProc(kHostSignature, propHostVersion, 0, &value, nullptr), 0);
        EXPECT_EQ(value, major << 16);
    }
    const auto get = propertyProcs()->getPropertyProc;
    EXPECT_EQ(get(kHostSignature, propHostVersion, 1, &value, nullptr), errPlugInPropertyUndefined);
    EXPECT_EQ(get(kHostSignature, 0x6E6F6E65, 0, &value, nullptr), errPlugInPropertyUndefined);
    EXPECT_EQ(propertyProcs()->setPropertyProc(kHostSignature, propHostVersion, 0, 1, nullptr),
              errPlugInPropertyUndefined);
}

TEST_F(HostTest, SuitesAreFoundByNameAndVersion) {
    const std::pair<const char*, std::vector<int>> offered[]{{kSPBasicSuite, {4}},
                                                             {kPSUIHooksSuite, {1, 2, 3, 4}},
                                                             {kPSBufferSuite, {1, 2}},
                                                             {kStandaloneSuite, {1, 2, 3}}};
    for (const auto& [name, versions] : offered)
        for (int version = 0; version < 6; ++version) {
            const void* suite = nullptr;
            const bool has = std::find(versions.begin(), versions.end(), version) != versions.end();
            EXPECT_EQ(basicSuite()->AcquireSuite(name, version, &suite),
                      has ? kSPNoError : kSPSuiteNotFoundError);
            EXPECT_EQ(suite != nullptr, has) << name << version;
            if (has) basicSuite()->ReleaseSuite(name, version);
        }
}

TEST_F(HostTest, ASuiteThatIsWithheldIsNotFound) {
    host.suites.withhold(kPSUIHooksSuite);
    const void* suite = nullptr;
    EXPECT_EQ(basicSuite()->AcquireSuite(kPSUIHooksSuite, 1, &suite), kSPSuiteNotFoundError);
}

TEST_F(HostTest, LaterVersionsOfTheHooksBeginWithTheEarlierOnes) {
    for (int version = 1; version <= 4; ++version) {
        const auto* hooks = acquire<PSUIHooksSuite>(kPSUIHooksSuite, version);
        EXPECT_EQ(hooks->MainAppWindow(), 0);
        EXPECT_EQ(hooks->testAbort(), 0);
        EXPECT_EQ(hooks->SetPluginMenuEntry != nullptr, version >= 2);
        EXPECT_EQ(hooks->GetLocalizedFileName != nullptr, version >= 3);
        EXPECT_EQ(hooks->MainAppRootWindow != nullptr, version >= 4);
        basicSuite()->ReleaseSuite(kPSUIHooksSuite, version);
    }
}

TEST_F(HostTest, BuffersComeInTheAskedSize) {
    const auto* suite = acquire<PSBufferSuite2>(kPSBufferSuite, 2);
    std::uint32_t size = 1024;
    char* buffer = suite->New(&size, 10);
    EXPECT_EQ(suite->GetSize(buffer), 1024u);
    suite->Dispose(&buffer);
    std::uint64_t huge = std::uint64_t{1} << 40;
    buffer = suite->New64(&huge, 16);
    EXPECT_EQ(huge, 16u);
    EXPECT_EQ(suite->GetSize64(buffer), 16u);
    suite->Dispose(&buffer);
    EXPECT_EQ(suite->New64(&huge, std::uint64_t{1} << 40), nullptr);
    basicSuite()->ReleaseSuite(kPSBufferSuite, 2);
}

TEST_F(HostTest, BlocksGrowAndKeepTheirContents) {
    void* block = nullptr;
    ASSERT_EQ(basicSuite()->AllocateBlock(4, &block), 0);
    std::memcpy(block, "abc", 4);
    ASSERT_EQ(basicSuite()->ReallocateBlock(block, 400, &block), 0);
    EXPECT_STREQ(static_cast<char*>(block), "abc");
    EXPECT_EQ(basicSuite()->FreeBlock(block), 0);
    EXPECT_EQ(basicSuite()->FreeBlock(nullptr), 0);
    EXPECT_EQ(basicSuite()->IsEqual("abc", "abc"), 1);
    EXPECT_EQ(basicSuite()->IsEqual("abc", "abd"), 0);
    EXPECT_NE(basicSuite()->Undefined(), 0);
}

TEST_F(HostTest, ThePlugInReadsOptionsAndCounters) {
    host.options = {{"drive", "a script"}, {"accept", "1"}};
    const auto* own = acquire<StandaloneSuite>(kStandaloneSuite, kStandaloneSuiteVersion);
    EXPECT_STREQ(own->option("drive"), "a script");
    EXPECT_STREQ(own->option("accept"), "1");
    EXPECT_EQ(own->option("cancel"), nullptr);
    EXPECT_EQ(own->callCount("newProc"), 0);
    handleProcs()->disposeProc(handleProcs()->newProc(1));
    EXPECT_EQ(own->callCount("newProc"), 1);
    EXPECT_EQ(own->callCount("AcquireSuite"), 1);
    EXPECT_EQ(own->callCount("no such call"), 0);
    EXPECT_EQ(own->misuseCount(), 0);
    EXPECT_EQ(own->misuse(0), nullptr);
    own->endWith(2);
    EXPECT_EQ(host.endWith, 2);
    basicSuite()->ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion);
}

TEST_F(HostTest, ThePlugInHandsOverColoursInTheirOrder) {
    const auto* own = acquire<StandaloneSuite3>(kStandaloneSuite, kStandaloneSuiteVersion3);
    own->taken(1, 2, 65535);
    own->taken(4, 5, 6);
    EXPECT_EQ(host.taken, (std::vector<std::array<std::uint16_t, 3>>{{1, 2, 65535}, {4, 5, 6}}));
    EXPECT_EQ(own->version2.version1.callCount("taken"), 2);
    basicSuite()->ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion3);
}

TEST_F(HostTest, MisusesCanBeReadWhileThePickRuns) {
    Host& h = host;
    const auto* own = acquire<StandaloneSuite>(kStandaloneSuite, kStandaloneSuiteVersion);
    handleProcs()->unlockProc(nullptr);
    ASSERT_EQ(own->misuseCount(), 1);
    EXPECT_STREQ(own->misuse(0), "unlockProc: null handle");
    EXPECT_EQ(own->misuse(1), nullptr);
    EXPECT_EQ(own->misuse(-1), nullptr);
    const_cast<std::deque<std::string>&>(h.ledger.misuses()).clear(); // asked for above
}

int putAways = 0;
void keepSomething(std::int16_t, void* record, std::intptr_t*, std::int16_t*) {
    const SPBasicSuite& basic = *static_cast<PickerRecord*>(record)->sSPBasic;
    const void* suite = nullptr;
    ASSERT_EQ(basic.AcquireSuite(kStandaloneSuite, kStandaloneSuiteVersion2, &suite), 0);
    static_cast<const StandaloneSuite2*>(suite)->atEnd([] { ++putAways; });
    basic.ReleaseSuite(kStandaloneSuite, kStandaloneSuiteVersion2);
}

TEST(HostRecord, WhatIsKeptBetweenPicksIsPutAwayOnceAtTheEndOfTheRun) {
    Host host(std::make_unique<ClosedConverter>());
    putAways = 0;
    {
        HostRun run(host, keepSomething);
        run.pick({});
        run.pick({});
        EXPECT_EQ(putAways, 0);
        run.end();
        EXPECT_EQ(putAways, 1);
    }
    EXPECT_EQ(putAways, 1);
    { HostRun(host, keepSomething).pick({}); }
    EXPECT_EQ(putAways, 2) << "a run that nobody ended by hand";
    EXPECT_THAT(host.ledger.misuses(), IsEmpty());
}

PickerRecord seen{};
void keepRecord(std::int16_t, void* record, std::intptr_t*, std::int16_t*) {
    std::memcpy(&seen, record, sizeof seen);
}

TEST(HostRecord, HoldsTheOfferedColourAndTheHostsCallbacks) {
    Host host(std::make_unique<ClosedConverter>());
    HostRun run(host, keepRecord);
    run.pick({Space::cmyk, {1, 2, 3, 4}});
    EXPECT_EQ(seen.hostSig, 0x3842494Du);
    EXPECT_EQ(seen.serialNumber, 0);
    EXPECT_EQ(seen.pickParms.sourceSpace, 2);
    EXPECT_THAT(seen.pickParms.colorComponents, ::testing::ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(seen.pickParms.pickerPrompt[0],
              std::strlen(reinterpret_cast<char*>(seen.pickParms.pickerPrompt) + 1));
    EXPECT_EQ(seen.monitor.gamma, 144179) << "2.2, in 16.16";
    EXPECT_EQ(seen.sSPBasic, basicSuite());
    EXPECT_EQ(seen.handleProcs->numHandleProcs, 8);
    EXPECT_EQ(seen.propertyProcs->numPropertyProcs, 2);
    EXPECT_EQ(seen.bufferProcs->numBufferProcs, 8);
    EXPECT_NE(seen.colorServices, nullptr);
}

TEST(HostRecord, LeavesOutWhatTheHostDoesNotOffer) {
    Host host(std::make_unique<ClosedConverter>());
    host.offersColourServices = host.offersProperties = false;
    HostRun(host, keepRecord).pick({});
    EXPECT_EQ(seen.colorServices, nullptr);
    EXPECT_EQ(seen.propertyProcs, nullptr);
}

} // namespace
} // namespace chromalog::standalone
