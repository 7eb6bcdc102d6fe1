// The entry, called as a host calls it: once, again, from within a callback, for the last time.
#include "plugin_check/checks.h"
#include "plugin_check/elf_file.h"
#include "plugin_check/trial.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <dlfcn.h>
#include <filesystem>
#include <set>
#include <thread>

namespace chromalog::plugin_check {

namespace {

using standalone::HostRun;

/// Other names of the module's are the loader's.
bool isLoaders(const std::string& symbol) {
    static const std::set<std::string> names{"_init", "_fini", "_edata", "_end", "__bss_start"};
    return names.contains(symbol);
}

bool endsWell(std::int16_t result) {
    return result == hostNoErr || result == hostUserCanceledErr;
}

std::string ended(const HostRun::Answer& answer) {
    return "ended with " + std::to_string(answer.result) + (answer.error.empty() ? "" : ": " + answer.error);
}

/// Two picks of a host run of their own.
std::array<HostRun::Answer, 2> twoPicks(Trial& trial) {
    trial.endRun();
    const auto first = trial.pick(), second = trial.pick();
    return {first, second};
}

/// Long enough for what a plug-in left running to come around.
void letTimePass() {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}

bool isLoaded(const std::string& module) {
    void* const library = dlopen(std::filesystem::absolute(module).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

} // namespace

void checkExports(Trial& trial) {
    const ElfFile file(trial.request().plugin);
    auto names = file.exportedSymbols();
    std::erase_if(names, isLoaders);
    if (std::erase(names, kPluginMainSymbol) == 0) return trial.fault("no PluginMain is exported");
    if (file.exportsData(kPluginMainSymbol)) return trial.fault("PluginMain is data, no function");
    if (!names.empty())
        trial.fault("exports " + names.front() +
                    (names.size() > 1 ? " and " + std::to_string(names.size() - 1) + " other names" : "") +
                    ": a host's own of that name takes its place");
    trial.run();
}

void checkAboutCall(Trial& trial) {
    const std::int16_t result = trial.run().about();
    if (!endsWell(result)) trial.fault("ended with " + std::to_string(result));
}

void checkPick(Trial& trial) {
    const auto answer = trial.pick();
    if (!endsWell(answer.result)) trial.fault(ended(answer));
}

void checkTwoPicks(Trial& trial) {
    const auto [first, second] = twoPicks(trial);
    if (first.result != second.result)
        trial.fault("the first pick ended with " + std::to_string(first.result) + ", the second " +
                    ended(second));
}

void checkOption(Trial& trial) {
    const auto without = twoPicks(trial);
    trial.host().options.emplace("option", "1");
    const auto held = twoPicks(trial);
    for (std::size_t i = 0; i < held.size(); ++i)
        if (held[i].result != without[i].result)
            trial.fault(ended(held[i]) + ", without Option with " + std::to_string(without[i].result));
}

void checkReentrance(Trial& trial) {
    const standalone::HostColour offered{standalone::Space::cmyk, {1000, 2000, 3000, 4000}},
        other{standalone::Space::rgb, {65535, 0, 65535, 0}};
    const auto plain = trial.pick(offered);
    bool calledBack = false;
    for (const char* callback : {"AcquireSuite", "newProc", "lockProc", "getPropertyProc", "colorServices"}) {
        trial.step(std::string("a pick from within ") + callback);
        trial.endRun();
        trial.host().ledger.atNext(callback, [&] {
            calledBack = true;
            trial.run().pickWithinCall(other);
        });
        const auto answer = trial.pick(offered);
        trial.host().ledger.atNext({}, nullptr);
        if (answer.result != plain.result || answer.colour != plain.colour)
            trial.fault(std::string("a call from within ") + callback +
                        " changed how the pick that ran then ended");
    }
    if (!calledBack) trial.skip("the plug-in calls nothing that could call it back");
}

void checkUnload(Trial& trial) {
    const auto first = trial.pick();
    trial.unload();
    if (isLoaded(trial.request().plugin)) return trial.fault("is still loaded after it was unloaded");
    const auto second = trial.pick();
    if (first.result != second.result || first.colour != second.colour)
        trial.fault("loaded again, a pick ends otherwise");
}

void checkLateWrites(Trial& trial) {
    trial.pick();
    letTimePass();
    trial.pick();
    letTimePass();
}

void checkPlainPicks(Trial& trial) {
    trial.pick();
    trial.pick({standalone::Space::cmyk, {255 << 8, 85 << 8, 28 << 8, 229 << 8}});
}

} // namespace chromalog::plugin_check
