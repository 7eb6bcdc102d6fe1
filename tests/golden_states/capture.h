#pragma once

#include "golden_states/record.h"
#include "support/run_program.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace chromalog::golden {

/// Watches a folder while a run of the program works in it.
class Capture {
  public:
    explicit Capture(std::string folder); ///< before the run

    /// What the run left, after it: how it ended, the states that it wrote, in the script's order, and the
    /// files that it changed. The folder's own name reads "$" in all of it, a moment "DATE".
    Record after(const std::string& where, const std::vector<std::string>& options, const std::string& script,
                 const ProgramResult&) const;

  private:
    using Stamp = std::pair<std::filesystem::file_time_type, std::uintmax_t>;
    std::map<std::string, Stamp> files() const;
    std::string steady(std::string text) const; ///< without the folder's name and dates

    const std::string folder_;
    const std::map<std::string, Stamp> before_;
};

/// A state as it is stored: each swatch and each hit in a line of its own.
json stateDigest(json state);

} // namespace chromalog::golden
