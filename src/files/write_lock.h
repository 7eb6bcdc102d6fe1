#pragma once

#include "files/descriptor.h"

#include <string>

namespace chromalog {

/// Keeps other programs of ours from writing the same file, for as long as it lives: a lock on a file beside
/// that stays when the lock is gone. Where there can be none (a file system without locks, a folder that
/// takes no file) everybody goes on without.
class WriteLock {
  public:
    explicit WriteLock(const std::string& lockFile);
    /// Another program has held the lock for longer than any write takes.
    bool refused() const { return refused_; }

  private:
    Descriptor file_;
    bool refused_ = false;
};

/// A sign for other programs that a pick is open on the same lists, for as long as it lives.
class OpenMark {
  public:
    explicit OpenMark(const std::string& markFile);
    bool others() const { return others_; } ///< somebody else's mark stood already

  private:
    Descriptor file_;
    bool others_ = false;
};

} // namespace chromalog
