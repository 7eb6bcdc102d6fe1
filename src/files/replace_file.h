#pragma once

#include "files/file_io.h"
#include "files/real_file.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include <sys/types.h>

namespace chromalog {

// Ways to write a file whose path is the real one. Where one of them fails, errno says why.

/// Puts `data`, followed by `zeros` zero bytes, in the place of the file through a temporary one beside it.
/// On any failure, a killed process included, what was there stays whole. `mode` is that of the file that is
/// replaced; without one the system's mask decides. `written` gets what the file then is.
bool replaceFile(const std::string& file, std::span<const std::uint8_t> data, std::size_t zeros, Flush,
                 std::optional<mode_t> mode, FileIdentity* written = nullptr);

/// Puts a copy of `from`, with its mode and its time, in the place of `to` in the same way. False also where
/// `from` changes meanwhile.
bool copyFile(const std::string& from, const std::string& to, Flush);

/// Whether a failure to replace a file says that this folder lets nobody else's files be replaced, while the
/// file itself may still be written.
bool onlyTheFolderRefuses(int why);

/// Writes over the file itself. What needs more room is written first: a full disk leaves the old contents.
bool writeInPlace(const std::string& file, std::span<const std::uint8_t> data, std::size_t zeros, Flush);

} // namespace chromalog
