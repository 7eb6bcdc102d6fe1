// Several picks in one run of a host that keeps the module loaded, and of one that does not say so.
#include "plugin/plugin_check.h"

#include <dlfcn.h>
#include <set>

namespace chromalog::standalone {
namespace {

/// The toolkit's application object, which the module alone makes here; null where there is none.
const void* application() {
    void* const library = dlopen("libQt6Core.so.6", RTLD_NOW | RTLD_NOLOAD);
    if (!library) return nullptr;
    const auto* self = static_cast<void* const*>(dlsym(library, "_ZN16QCoreApplication4selfE"));
    dlclose(library);
    return self ? *self : nullptr;
}

using FurtherPicks = PlugInCheck;

TEST_F(FurtherPicks, KeepTheToolkitUntilTheRunEnds) {
    const PluginModule module(CHROMALOG_MODULE);
    {
        HostRun run(host, module.entry());
        std::set<const void*> applications;
        for (int pick = 0; pick < 3; ++pick) {
            EXPECT_EQ(run.pick(kOffered).colour.components[0], 58981);
            applications.insert(application());
        }
        EXPECT_EQ(applications.size(), 1u);
        EXPECT_FALSE(applications.contains(nullptr));
    }
    EXPECT_EQ(application(), nullptr);
}

TEST_F(FurtherPicks, KeepNothingForAHostThatDoesNotTellItsEnd) {
    host.suites.withhold(kStandaloneSuite, kStandaloneSuiteVersion2);
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    for (int pick = 0; pick < 2; ++pick) {
        EXPECT_EQ(run.pick(kOffered).colour.components[0], 58981) << "version 1 serves";
        EXPECT_EQ(application(), nullptr);
    }
    EXPECT_EQ(host.ledger.calls("atEnd"), 0);
}

TEST_F(FurtherPicks, PlayOneScriptFromPickToPick) {
    play("type firstR 7\nok\ntype firstG 8\nok\n");
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    EXPECT_EQ(run.pick(kOffered).colour.components, (std::array<std::uint16_t, 4>{1799, 19532, 6425, 77}));
    EXPECT_EQ(run.pick(kOffered).colour.components, (std::array<std::uint16_t, 4>{58853, 2056, 6425, 77}));
    EXPECT_FALSE(host.endWith);
}

} // namespace
} // namespace chromalog::standalone
