#include "plugin_check/checks.h"

#include <algorithm>

namespace chromalog::plugin_check {

namespace {

// The last ones collect what the others' processes have seen as well.
constexpr Check kChecks[] = {
    {.name = "exports",
     .proves = "exports PluginMain and no other name, and what it needs is there",
     .make = checkExports,
     .picks = false},
    {.name = "about-call", .proves = "the about call ends well", .make = checkAboutCall, .picks = false},
    {.name = "pick", .proves = "a pick ends well", .make = checkPick},
    {.name = "two-picks", .proves = "a second pick in a host run ends like the first", .make = checkTwoPicks},
    {.name = "option", .proves = "a pick with Option held ends like any other", .make = checkOption},
    {.name = "refused-memory",
     .proves = "survives a host that refuses handles, locks, buffers and blocks, and recovers",
     .make = checkRefusedMemory},
    {.name = "missing-suites", .proves = "survives a host without suites", .make = checkMissingSuites},
    {.name = "missing-callbacks",
     .proves = "survives null pointers in the record and in its tables",
     .make = checkMissingCallbacks},
    {.name = "null-services",
     .proves = "survives a host without colour services and properties, in every space",
     .make = checkNullServices},
    {.name = "hostile-answers",
     .proves = "survives errors, wild values and empty suites, and recovers",
     .make = checkHostileAnswers},
    {.name = "re-entrance",
     .proves = "a call from within a callback returns and leaves the pick that runs as it is",
     .make = checkReentrance},
    {.name = "unload",
     .proves = "leaves the process when it is unloaded, and comes back",
     .make = checkUnload},
    {.name = "descriptors",
     .proves = "opens no more files from the second pick on",
     .make = checkDescriptors},
    {.name = "threads", .proves = "starts no more threads from the second pick on", .make = checkThreads},
    {.name = "memory",
     .proves = "needs no more memory over 100 picks: at most 1 kB a pick after the 20th",
     .make = checkMemory,
     .seconds = 60},
    {.name = "environment",
     .proves = "leaves the environment, the working directory and the mask of new files as they were",
     .make = checkEnvironment},
    {.name = "signals", .proves = "leaves handlers and blocked signals as they were", .make = checkSignals},
    {.name = "locale", .proves = "leaves the locale as it was", .make = checkLocale},
    {.name = "late-writes",
     .proves = "neither writes the record nor calls the host once a call has returned",
     .make = checkLateWrites},
    {.name = "record-offsets",
     .proves = "writes the answer where it belongs, and nothing else of the record",
     .make = checkPlainPicks},
    {.name = "answer",
     .proves = "names a space for its colour, and changes none when it ends with an error",
     .make = checkPlainPicks},
    {.name = "slot", .proves = "keeps a handle of the host in its slot, or nothing", .make = checkPlainPicks},
    {.name = "handles", .proves = "disposes of every handle but the slot's", .make = checkPlainPicks},
    {.name = "buffers", .proves = "frees every buffer and block", .make = checkPlainPicks},
    {.name = "locks",
     .proves = "writes while it holds a lock, and gives every lock back",
     .make = checkPlainPicks},
    {.name = "bounds", .proves = "writes within the ends of what it was given", .make = checkPlainPicks},
    {.name = "suites", .proves = "uses suites that it holds, and releases them", .make = checkPlainPicks},
    {.name = "arguments",
     .proves = "calls the host on its thread with names, pointers and blocks that are ones",
     .make = checkPlainPicks},
};

} // namespace

std::span<const Check> checks() {
    return kChecks;
}

const Check* checkNamed(std::string_view name) {
    const auto* const found =
        std::ranges::find(kChecks, name, [](const Check& check) { return std::string_view(check.name); });
    return found == std::end(kChecks) ? nullptr : found;
}

} // namespace chromalog::plugin_check
