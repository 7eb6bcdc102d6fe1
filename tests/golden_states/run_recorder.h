#pragma once

#include "golden_states/capture.h"

#include <optional>

namespace chromalog::golden {

/// Keeps what the runs of a test leave, each in a file of its own, where CHROMALOG_RECORD names a folder for
/// them; elsewhere it does nothing. Two runs at a time are not kept: which of them left what, nobody can
/// tell.
class RunRecorder {
  public:
    explicit RunRecorder(const std::string& folder); ///< before the run, which works in the folder
    RunRecorder(const RunRecorder&) = delete;
    RunRecorder& operator=(const RunRecorder&) = delete;
    ~RunRecorder();

    void keep(const std::vector<std::string>& options, const ProgramResult&) const; ///< after it

  private:
    const std::string folder_;
    const int number_; ///< of all runs of this process
    const bool beganAlone_;
    std::optional<Capture> capture_;
};

} // namespace chromalog::golden
