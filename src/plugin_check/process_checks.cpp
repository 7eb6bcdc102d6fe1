// The host's process: what a plug-in may not use up and must leave as it was.
#include "plugin_check/checks.h"
#include "plugin_check/process_state.h"
#include "plugin_check/trial.h"

#include <chrono>
#include <thread>

namespace chromalog::plugin_check {

namespace {

void picks(Trial& trial, int times) {
    for (int i = 0; i < times; ++i)
        trial.pick();
}

using State = std::map<std::string, std::string>;

/// Compares after a pick, after another one and when the module is gone; tells of the first that differs.
void checkRestored(Trial& trial, State (*now)()) {
    const State before = now();
    const auto differs = [&](const std::string& when) {
        const auto lines = differences(before, now());
        for (const std::string& line : lines)
            trial.fault(when + line);
        return !lines.empty();
    };
    trial.pick();
    if (differs("after a pick ")) return;
    trial.pick();
    if (differs("after two picks ")) return;
    trial.unload();
    differs("after all ");
}

State localeState() {
    return {{"the locale", localeNow()}};
}

/// A thread that has been told to end takes a moment.
std::size_t threadsSoon(std::size_t most) {
    for (int waits = 0; waits < 50 && threadsNow() > most; ++waits)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return threadsNow();
}

} // namespace

void checkDescriptors(Trial& trial) {
    picks(trial, 2);
    const State before = descriptorsNow();
    if (before.empty()) return trial.skip("needs /proc");
    picks(trial, 3);
    // Others of the same kind may have taken the places of earlier ones.
    const State now = descriptorsNow();
    if (now.size() <= before.size()) return;
    for (const std::string& line : differences(before, now))
        trial.fault("three picks later " + line);
}

void checkThreads(Trial& trial) {
    picks(trial, 2);
    const std::size_t before = threadsNow();
    if (before == 0) return trial.skip("needs /proc");
    picks(trial, 3);
    const std::size_t now = threadsSoon(before);
    if (now > before)
        trial.fault("after two picks there are " + std::to_string(before) + " threads, three picks later " +
                    std::to_string(now));
}

void checkMemory(Trial& trial) {
    if (memoryNow() == 0) return trial.skip("what is allocated is not known here");
    if (trial.request().attended) return trial.skip("nobody ends a hundred dialogs");
    constexpr int kFirst = 20, kMore = 80; // every store of a toolkit is as large as it gets by then
    picks(trial, kFirst);
    const std::size_t before = memoryNow();
    picks(trial, kMore);
    const std::size_t now = memoryNow();
    if (now > before + kMore * 1000)
        trial.fault("grows by " + std::to_string((now - before) / kMore) + " bytes a pick");
}

void checkEnvironment(Trial& trial) {
    checkRestored(trial, environmentNow);
}

void checkSignals(Trial& trial) {
    checkRestored(trial, signalsNow);
}

void checkLocale(Trial& trial) {
    checkRestored(trial, localeState);
}

} // namespace chromalog::plugin_check
