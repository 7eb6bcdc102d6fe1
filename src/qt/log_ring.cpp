#include "qt/log_ring.h"

#include "files/size_limit_signal.h"

#include <cstdio>
#include <syslog.h>

namespace chromalog {

void sayOnStandardError(std::string_view line) {
    const SizeLimitSignalBlock onlyFails;
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

/// The list's line for every redraw would push everything else out: one stands for those that follow it
/// directly.
void LogRing::add(std::string_view line) {
    constexpr std::string_view redraw = "DrawSwatches";
    if (line.starts_with(redraw) && !lines_.empty() && lines_.back().starts_with(redraw)) lines_.pop_back();
    if (lines_.size() == capacity) lines_.pop_front();
    lines_.emplace_back(line);
    if (!toSystem_) return;
    sayOnStandardError(line);
    syslog(LOG_USER | LOG_INFO, "Chromalog: %.*s", static_cast<int>(line.size()), line.data());
}

} // namespace chromalog
