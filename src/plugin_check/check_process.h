#pragma once

#include "plugin_check/checks.h"
#include "plugin_check/findings.h"
#include "plugin_check/trial.h"

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>

namespace chromalog::plugin_check {

/// A folder of its own, removed with everything in it.
class OwnFolder {
  public:
    OwnFolder(); ///< throws std::runtime_error where none can be made
    ~OwnFolder();
    OwnFolder(OwnFolder&&) noexcept;
    OwnFolder& operator=(OwnFolder&&) = delete;
    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

/// This program once more, which makes one check and ends. What the plug-in prints there is not seen.
class CheckProcess {
  public:
    /// `request.folder` is filled in. Throws std::runtime_error where no process can be started.
    CheckProcess(const Check&, Request, std::chrono::seconds limit);

    const Check& check() const { return *check_; }
    double seconds() const;
    /// What it has found once it has ended, or has reached its limit and was ended; nothing while it runs.
    std::optional<Findings> findings();

  private:
    Findings ended(int status, bool tooLong) const;

    const Check* check_;
    OwnFolder folder_;
    std::chrono::seconds limit_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    pid_t process_ = -1;
};

/// Makes a check in this process.
Findings makeCheck(const Check&, const Request&);

} // namespace chromalog::plugin_check
