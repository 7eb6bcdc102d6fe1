#pragma once

#include "files/descriptor.h"
#include "files/file_io.h"
#include "files/real_file.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace chromalog {

/// A name for a temporary file beside `target`: ".chromalog-", random, ".tmp".
std::string temporaryName(const std::string& target);

/// A file in the target's folder that can take the target's place, and is gone where it did not. An unnamed
/// one appears only when it is complete, so that not even a killed process leaves anything behind; where the
/// system has none, a named one serves. While it lives it is locked: nobody takes it for a leftover.
class TemporaryFile {
  public:
    enum class Kind { unnamed, named };

    TemporaryFile(const std::string& target, Kind);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    bool isOpen() const { return file_.isOpen(); } ///< otherwise errno says why
    int descriptor() const { return file_.get(); }

    /// Where this fails nothing has changed, and errno says why. `taken` gets what the target then is.
    bool takePlace(Flush, FileIdentity* taken = nullptr);

  private:
    bool openNamed();
    bool giveName();

    std::string target_, name_;
    Descriptor file_;
    bool named_ = false; ///< visible under name_
};

/// Removes what killed processes have left of such files in a folder. Those of a process that lives stay.
void removeStaleTemporaries(const std::string& folder);

/// Waits until the disk has the folder's entries, where the file system can.
void flushFolder(const std::string& folder);

} // namespace chromalog
