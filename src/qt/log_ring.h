#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace chromalog {

/// Where a line cannot be written there, it is lost.
void sayOnStandardError(std::string_view line);

/// The last lines of the log, in memory. With `toSystem` they also go to the system's log.
class LogRing {
  public:
    static constexpr std::size_t capacity = 4096;

    explicit LogRing(bool toSystem) : toSystem_(toSystem) {}
    void add(std::string_view line);
    const std::deque<std::string>& lines() const { return lines_; }

  private:
    std::deque<std::string> lines_;
    bool toSystem_;
};

} // namespace chromalog
