#pragma once

#include "files/file_io.h"
#include "files/real_file.h"
#include "files/write_lock.h"
#include "prefs/copy_keeper.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace chromalog {

/// How a write of the preferences file went.
struct StoreOutcome {
    int error = 0;        ///< 0: written; else nothing was, and this is why (an errno)
    bool notKept = false; ///< because what is there could not be kept
    std::string kept{};   ///< the copy that was made of what another program wrote or nobody had read
};

/// The preferences file over one pick. What is replaced is the file that this process read or wrote last; any
/// other one is kept beside it first, and where that cannot be done nothing is written. Other programs of
/// ours are kept out while it looks and writes. The path may be a symbolic link.
class PreferencesStore {
  public:
    explicit PreferencesStore(std::string path);

    /// Another pick, in another program, was open on the same file when this one began.
    bool othersOpen() const { return mark_.others(); }

    /// Reads the file into memory that is all zeros, as much as it holds: how many bytes. Nothing where errno
    /// says why.
    std::optional<std::size_t> read(std::span<std::uint8_t> zeros, std::vector<Extent>* held = nullptr);
    void skip(); ///< it is not read: what is there, whoever wrote it, is kept as PATH.skipped

    /// Writes `data`, followed by `zeros` zero bytes. The first time, the file as it was when the pick began
    /// stays as PATH.before where that can be done.
    StoreOutcome write(std::span<const std::uint8_t> data, std::size_t zeros, Flush);

  private:
    bool keepStranger(const std::string& real);

    std::string path_;
    OpenMark mark_;
    CopyKeeper copies_;
    std::optional<FileIdentity> atStart_; ///< the file when the pick began
    bool skipped_ = false;
};

} // namespace chromalog
