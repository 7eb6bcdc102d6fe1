#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct stat;

namespace chromalog {

/// The file that a path stands for: symbolic links followed, a dangling one to the file that it would make.
/// Nothing for links that lead in a circle; errno then says so.
std::optional<std::string> realFile(std::string path);

std::string folderOf(const std::string& file); ///< "." for a bare name

/// Whether this file may be replaced by another one: a regular file that we may write. Otherwise errno says
/// why not.
bool mayBeReplaced(const std::string& file, const struct stat&);

/// What tells a file from every other one, and from itself after a change.
struct FileIdentity {
    std::uint64_t device = 0, inode = 0;
    std::int64_t size = 0, seconds = 0, nanoseconds = 0; ///< bytes; when its contents changed last

    bool operator==(const FileIdentity&) const = default;
    bool sameFile(const FileIdentity& other) const { return device == other.device && inode == other.inode; }
};

FileIdentity identityOf(const struct stat&);
std::optional<FileIdentity> identityOf(const std::string& file); ///< nothing where errno says why

} // namespace chromalog
