// Several picks in one run of a host that keeps the module loaded, and of one that does not say so.
#include "plugin/plugin_check.h"

#include <clocale>
#include <csignal>
#include <dlfcn.h>
#include <malloc.h>
#include <map>
#include <set>
#include <vector>

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

/// What a pick could leave changed in the host's process.
struct ProcessState {
    std::set<std::string> environment;
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::map<int, void (*)(int)> handlers;
    std::set<int> blocked;

    ProcessState() {
        for (char** variable = environ; *variable; ++variable)
            environment.insert(*variable);
        sigset_t mask;
        pthread_sigmask(SIG_SETMASK, nullptr, &mask);
        for (int signal = 1; signal < SIGRTMIN; ++signal) {
            struct sigaction action {};
            sigaction(signal, nullptr, &action);
            handlers[signal] = action.sa_handler;
            if (sigismember(&mask, signal) == 1) blocked.insert(signal);
        }
    }
};

void expectEqual(const ProcessState& now, const ProcessState& before) {
    EXPECT_EQ(now.environment, before.environment);
    EXPECT_EQ(now.locale, before.locale);
    EXPECT_EQ(now.handlers, before.handlers);
    EXPECT_EQ(now.blocked, before.blocked);
}

struct FurtherPicks : PlugInCheck {
    FurtherPicks() { setenv("DESKTOP_STARTUP_ID", "a launcher's", 1); }
};

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

TEST_F(FurtherPicks, FindTheProcessAsTheFirstOneDid) {
    const ProcessState before;
    {
        const PluginModule module(CHROMALOG_MODULE);
        HostRun run(host, module.entry());
        for (int pick = 0; pick < 2; ++pick) {
            run.pick(kOffered);
            expectEqual({}, before);
        }
    }
    expectEqual({}, before);
}

TEST_F(FurtherPicks, PlayOneScriptFromPickToPick) {
    play("type firstR 7\nok\ntype firstG 8\nok\n");
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    EXPECT_EQ(run.pick(kOffered).colour.components, (std::array<std::uint16_t, 4>{1799, 19532, 6425, 77}));
    EXPECT_EQ(run.pick(kOffered).colour.components, (std::array<std::uint16_t, 4>{58853, 2056, 6425, 77}));
    EXPECT_FALSE(host.endWith);
}

/// What this process has allocated and not freed, in bytes.
std::size_t memoryInUse() {
    const auto counts = mallinfo2();
    return counts.uordblks + counts.hblkhd;
}

TEST_F(FurtherPicks, NeedNoMoreMemoryThanTheFirstOnes) {
    if (!CHROMALOG_IS_HARDENED) GTEST_SKIP() << "sanitizers keep what is freed";
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    const auto pick = [&run](int times) {
        for (int i = 0; i < times; ++i)
            run.pick(kOffered);
    };
    pick(20); // until every store of the toolkit is as large as it gets
    const std::size_t before = memoryInUse();
    pick(80);
    EXPECT_LT(memoryInUse(), before + 80'000) << "1 kB a pick";
}

} // namespace
} // namespace chromalog::standalone
