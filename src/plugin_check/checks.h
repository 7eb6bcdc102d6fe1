#pragma once

#include <span>
#include <string_view>

namespace chromalog::plugin_check {

class Trial;

/// One thing that a host wants of every plug-in.
struct Check {
    const char* name;
    const char* proves; ///< one line
    void (*make)(Trial&);
    int seconds = 20; ///< that it may take
    bool picks = true;
};

std::span<const Check> checks();
/// Null where there is none of this name.
const Check* checkNamed(std::string_view name);

// The calls of the entry.
void checkExports(Trial&);
void checkAboutCall(Trial&);
void checkPick(Trial&);
void checkTwoPicks(Trial&);
void checkOption(Trial&);
void checkReentrance(Trial&);
void checkUnload(Trial&);
void checkLateWrites(Trial&);
/// Ordinary picks: of what is named of them, each fault belongs to its check.
void checkPlainPicks(Trial&);

// Hosts that lack something, refuse or rave.
void checkRefusedMemory(Trial&);
void checkMissingSuites(Trial&);
void checkMissingCallbacks(Trial&);
void checkNullServices(Trial&);
void checkHostileAnswers(Trial&);

// The host's process.
void checkDescriptors(Trial&);
void checkThreads(Trial&);
void checkMemory(Trial&);
void checkEnvironment(Trial&);
void checkLocale(Trial&);
void checkSignals(Trial&);

} // namespace chromalog::plugin_check
