#pragma once

#include "files/file_io.h"

#include <cstddef>
#include <string>
#include <utility>

namespace chromalog {

/// Keeps preferences files beside themselves before they are replaced. A copy is another name of the real
/// file (a hard link) and takes no room; where links are refused it is a second file. Of one pick; the write
/// lock is held around every call. `real` is the file behind `preferences`. Where a call is false the copy
/// could not be made, and errno says why.
class CopyKeeper {
  public:
    explicit CopyKeeper(std::string preferences) : preferences_(std::move(preferences)) {}

    /// As PREFERENCES.before: the lists before the latest pick. Lists without colours replace none with.
    bool keepBefore(const std::string& real);
    /// As PREFERENCES.skipped: what a person did not want to open. An older one is dated first.
    bool keepSkipped(const std::string& real);
    /// As PREFERENCES.kept-DATE: what another program wrote, or nobody could read. One of each pick: what it
    /// keeps later takes the place of what it kept before.
    bool keepDated(const std::string& real);

    /// Where a dated copy was made: removes the oldest of them over the limit, those without colours first. A
    /// copy without colours pushes none with out. For when the file is replaced.
    void prune();

    /// The name of the copy that was made last, as KeptCopy::name; empty where none was.
    const std::string& latest() const { return latest_; }

  private:
    bool keepAs(const std::string& real, const std::string& name, Flush);
    std::string pathOf(const std::string& name) const { return preferences_ + '.' + name; }
    bool isKept(const std::string& real) const;
    std::string freshName() const;

    std::string preferences_, latest_;
    std::string dated_;      ///< the name of this pick's own dated copy
    std::string toMakeRoom_; ///< the dated copy that was made since the latest pruning
};

/// How many dated copies stay; those younger than a day stay beside them.
inline constexpr std::size_t kMostDatedCopies = 5;

} // namespace chromalog
