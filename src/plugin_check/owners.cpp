#include "plugin_check/owners.h"

namespace chromalog::plugin_check {

namespace {

struct Owner {
    const char* says;
    const char* check;
};

/// The first that fits. What no line claims is a call with wrong arguments.
constexpr Owner kOwners[] = {
    {"outside the answer's fields", "record-offsets"},
    {"written after the call", "late-writes"},
    {"while no call of the plug-in runs", "late-writes"},
    {"'s slot", "slot"},
    {"was not disposed of", "handles"},
    {"was not freed", "buffers"},
    {"is still locked", "locks"},
    {"is locked", "locks"},
    {"not locked", "locks"},
    {"after it was unlocked", "locks"},
    {"was not released", "suites"},
    {"is not acquired", "suites"},
    {"past its ends", "bounds"},
    {"locale of numbers", "locale"},
};

} // namespace

std::string ownerOf(const std::string& misuse) {
    for (const auto& [says, check] : kOwners)
        if (misuse.find(says) != std::string_view::npos) return check;
    return "arguments";
}

} // namespace chromalog::plugin_check
