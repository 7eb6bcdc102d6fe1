// What the plug-in's module does in a strict host: each test runs in a process of its own and must leave no
// misuse. What every picker has to do is checked by src/plugin_check.
#include "plugin/plugin_check.h"

namespace chromalog::standalone {
namespace {

constexpr std::array<std::uint16_t, 4> kDefaultFirstColour{58981, 19660, 6553,
                                                           0}; // 0.9 0.3 0.1, cut to 16 bits
std::array<std::uint16_t, 4> withFourth(std::array<std::uint16_t, 4> components, std::uint16_t fourth) {
    components[3] = fourth;
    return components;
}

TEST_F(PlugInCheck, OkAnswersTheFirstColourAndLeavesTheFourthComponent) {
    const HostRun::Answer answer = pick();
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.colour.components, withFourth(kDefaultFirstColour, 77));
    EXPECT_EQ(host.ledger.calls("unlockProc"), host.ledger.calls("lockProc"));
    EXPECT_EQ(fs::file_size(preferences()), 3'040'536u);
}

TEST_F(PlugInCheck, CancelChangesNothingAndReportsNoError) {
    host.options.erase("accept");
    host.options["cancel"] = "1";
    const HostRun::Answer answer = pick();
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.colour.components, kOffered.components);
    EXPECT_TRUE(fs::exists(preferences())) << "saved on Cancel too";
}

TEST_F(PlugInCheck, TheAboutCallShowsNothingAndWritesNothing) {
    const PluginModule module(CHROMALOG_MODULE);
    AboutRecord record{};
    record.sSPBasic = basicSuite();
    std::int16_t result = 0x5AA5;
    std::intptr_t slot = 0;
    host.beginCall();
    module.entry()(pickerSelectorAbout, &record, &slot, &result);
    host.endCall(slot);
    EXPECT_EQ(result, 0x5AA5);
    EXPECT_EQ(slot, 0);
    EXPECT_EQ(host.ledger.calls("newProc"), 0);
    EXPECT_FALSE(fs::exists(preferences()));
}

TEST_F(PlugInCheck, TwoPicksInOneHostRunShareTheRecordEvenWithOptionHeld) {
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    run.pick(kOffered);
    const std::intptr_t slot = run.slot();
    {
        const SlotMemory memory(host, slot);
        memory.record->numColors1 = 2;
        memory.record->swatchList1[0].SRed = 65535;
        memory.record->useSecondColor = 1;
    }
    host.options["option"] = "1"; // the file is not read; the record is kept
    const HostRun::Answer second = run.pick(kOffered);
    EXPECT_EQ(second.colour.components, (std::array<std::uint16_t, 4>{0x1212, 0x3434, 0xFFFF, 77}))
        << "the second colour is the host's, by high bytes";
    EXPECT_EQ(run.slot(), slot);
    EXPECT_EQ(host.ledger.calls("newProc"), 1);
    EXPECT_EQ(host.ledger.calls("disposeProc"), 0);
    const SlotMemory memory(host, slot);
    EXPECT_EQ(memory.record->numColors1, 2);
    EXPECT_EQ(memory.record->swatchList1[0].SRed, 65535);
}

/// Picks the second colour in a second pick, where a host colour in CMYK has arrived.
HostColour secondColourOf(Host& host, const HostColour& offered) {
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    run.pick(offered);
    SlotMemory(host, run.slot()).record->useSecondColor = 1;
    host.options["option"] = "1";
    return run.pick(offered).colour;
}

const HostColour kOfferedCmyk{Space::cmyk, {255 << 8, 85 << 8, 28 << 8, 229 << 8}};

TEST_F(PlugInCheck, AHostColourInCmykArrivesConverted) {
    EXPECT_EQ(secondColourOf(host, kOfferedCmyk).components,
              (std::array<std::uint16_t, 4>{229 * 257, 76 * 257, 25 * 257, 229 << 8}));
}

TEST_F(PlugInCheck, WithoutColourServicesTheHostsValuesArriveUnconverted) {
    host.offersColourServices = false;
    EXPECT_EQ(secondColourOf(host, kOfferedCmyk).components,
              (std::array<std::uint16_t, 4>{65535, 85 * 257, 28 * 257, 229 << 8}));
}

TEST_F(PlugInCheck, WithFailingColourServicesTheHostsValuesArriveUnconverted) {
    host.colours.failAlways();
    EXPECT_EQ(secondColourOf(host, kOfferedCmyk).components,
              (std::array<std::uint16_t, 4>{65535, 85 * 257, 28 * 257, 229 << 8}));
    EXPECT_GT(host.ledger.calls("colorServices"), 0);
}

TEST_F(PlugInCheck, RefusedMemoryIsReportedAndNothingElseHappens) {
    using Failing = HandleHeap::Failing;
    for (const Failing failing : {Failing::newProc, Failing::lockProc}) {
        host.handles.setFailing(failing);
        const HostRun::Answer answer = pick();
        EXPECT_EQ(answer.result, hostMemFullErr);
        EXPECT_EQ(answer.colour.components, kOffered.components);
        EXPECT_EQ(host.ledger.calls("colorServices"), 0) << "no dialog";
        EXPECT_FALSE(fs::exists(preferences()));
    }
    EXPECT_EQ(host.ledger.calls("disposeProc"), 1) << "the handle that could not be locked";
}

TEST_F(PlugInCheck, APickRunsWithoutAPropertyCallback) {
    host.offersProperties = false;
    play("choose '" + swatchFile("one.aco").string() + "'\npress loadSwatch1:\nok\n");
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    EXPECT_EQ(run.pick(kOffered).result, 0);
    EXPECT_FALSE(host.endWith) << "the script was played to its end";
    EXPECT_EQ(SlotMemory(host, run.slot()).record->swatchList1[0].SRed, 65535) << "the file was read";
}

TEST_F(PlugInCheck, APickRunsWithoutTheSuitesForWindowsAndBuffers) {
    host.suites.withhold(kPSUIHooksSuite);
    host.suites.withhold(kPSBufferSuite);
    EXPECT_EQ(pick().colour.components, withFourth(kDefaultFirstColour, 77));
}

TEST_F(PlugInCheck, WithoutADisplayThePickReturnsAtOnceAndChangesNothing) {
    unsetenv("QT_QPA_PLATFORM");
    const HostRun::Answer answer = pick();
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.colour.components, kOffered.components);
    EXPECT_FALSE(fs::exists(preferences()));
}

} // namespace
} // namespace chromalog::standalone
