#pragma once

#include "plugin_check/checks.h"
#include "plugin_check/trial.h"

#include <optional>
#include <string>
#include <vector>

namespace chromalog::plugin_check {

/// What is to be checked, and how.
struct Plan {
    Request request; ///< of every process, but for its check and folder
    std::vector<const Check*> checks;
    std::optional<int> limit; ///< seconds; else each check's own
};

struct Verdict {
    enum class End { ok, failed, skipped, unable };
    const Check* check = nullptr;
    End end = End::ok;
    std::vector<std::string> lines; ///< the faults, each once; or the one reason why it was not made
    double seconds = 0;
};

/// In the order of the plan. Throws std::runtime_error where a process cannot be started.
std::vector<Verdict> carryOut(const Plan&);

/// A line a fault, three of a check at most, or one for a check that found none; how many of each at the end.
std::string asText(const std::vector<Verdict>&);
/// `error`: why nothing could be checked, if so.
std::string asJson(const std::vector<Verdict>&, const std::string& plugin, const std::string& error = {});
std::string listAsJson(); ///< what checks there are
/// 0 no check failed, 1 some did, 2 some could not be made.
int exitCodeOf(const std::vector<Verdict>&);

} // namespace chromalog::plugin_check
