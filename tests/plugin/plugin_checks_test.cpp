// The plug-in's module in a strict host: each check runs in a process of its own and must leave no misuse.
#include "host/global_record.h"
#include "plugin/elf_symbols.h"
#include "standalone/callbacks.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/pick.h"
#include "standalone/plugin_module.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <unistd.h>

namespace chromalog::standalone {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<std::uint16_t, 4> kDefaultFirstColour{58981, 19660, 6553,
                                                           0}; // 0.9 0.3 0.1, cut to 16 bits
const HeldColour kOffered{Space::rgb, {0x12FF, 0x3400, 0xFFFF, 77}};

std::array<std::uint16_t, 4> withFourth(std::array<std::uint16_t, 4> components, std::uint16_t fourth) {
    components[3] = fourth;
    return components;
}

struct PlugInCheck : ::testing::Test {
    PlugInCheck() {
        fs::create_directories(folder / "runtime");
        fs::permissions(folder / "runtime", fs::perms::owner_all);
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "CHROMALOG_DATA_DIR", "CHROMALOG_FORMS"})
            unsetenv(name);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        host.options = {{"data-dir", (folder / "data").string()}, {"accept", "1"}};
    }
    ~PlugInCheck() override {
        EXPECT_THAT(host.ledger.misuses(), IsEmpty());
        fs::remove_all(folder);
    }

    HostRun::Answer pick(const HeldColour& offered = kOffered) {
        const PluginModule module(CHROMALOG_MODULE);
        HostRun run(host, module.entry());
        return run.pick(offered);
    }

    fs::path preferences() const { return folder / "data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf"; }

    const fs::path folder = fs::path(::testing::TempDir()) / ("plugin_check_" + std::to_string(getpid()));
    Host host{std::make_unique<ClosedConverter>()};
};

/// The host's view of the plug-in's memory between two picks.
struct SlotMemory {
    explicit SlotMemory(Host& host, std::intptr_t slot) : host(host), handle(reinterpret_cast<Handle>(slot)) {
        host.beginCall();
        record = reinterpret_cast<GlobalRecord*>(host.handles.lock(handle));
    }
    ~SlotMemory() {
        host.handles.unlock(handle);
        host.ledger.endCall();
    }
    Host& host;
    Handle handle;
    GlobalRecord* record;
};

TEST_F(PlugInCheck, PluginMainIsTheOneExportedSymbol) {
    EXPECT_THAT(exportedSymbols(CHROMALOG_MODULE), ElementsAre("PluginMain"));
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
HeldColour secondColourOf(Host& host, const HeldColour& offered) {
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    run.pick(offered);
    SlotMemory(host, run.slot()).record->useSecondColor = 1;
    host.options["option"] = "1";
    return run.pick(offered).colour;
}

const HeldColour kOfferedCmyk{Space::cmyk, {255 << 8, 85 << 8, 28 << 8, 229 << 8}};

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
    const fs::path swatches = folder / "one.aco", script = folder / "script";
    const char bytes[] = "\0\2\0\1\0\0\xFF\xFF\0\0\0\0\0\0\0\0\0\2\0A\0"; // version 2, one red swatch "A"
    std::ofstream(swatches, std::ios::binary).write(bytes, sizeof bytes);
    std::ofstream(script) << "choose '" << swatches.string() << "'\npress loadSwatch1:\nok\n";
    host.options.erase("accept");
    host.options["drive"] = script.string();
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

TEST_F(PlugInCheck, TheModuleCanBeUnloadedAndLoadedAgain) {
    EXPECT_EQ(pick().colour.components, withFourth(kDefaultFirstColour, 77));
    EXPECT_EQ(pick().colour.components, withFourth(kDefaultFirstColour, 77));
    EXPECT_EQ(host.ledger.calls("newProc"), 2) << "two host runs";
}

} // namespace
} // namespace chromalog::standalone
