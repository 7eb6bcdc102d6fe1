#include "files/file_io.h"

#include "files/descriptor.h"
#include "files/replace_file.h"
#include "files/temporary_file.h"

#include <algorithm>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

struct Extent {
    std::size_t begin, end;
};

/// What the disk holds next of a file that is `said` bytes long; the file's position is its begin. What lies
/// between `from` and there reads as zeros. Where nobody knows of holes: all that is left. Nothing where the
/// disk fails.
std::optional<Extent> nextExtent(int fd, std::size_t from, std::size_t said) {
    const auto seek = [fd](std::size_t to, int whence) {
        return ::lseek(fd, static_cast<off_t>(to), whence);
    };
    const Extent rest{from, std::numeric_limits<std::size_t>::max()};
    if (from >= said) return rest;
    off_t begin = seek(from, SEEK_DATA);
    if (begin < 0 && errno == ENXIO) begin = seek(0, SEEK_END);
    if (begin < 0) return rest;
    const off_t end = seek(static_cast<std::size_t>(begin), SEEK_HOLE);
    const std::size_t next = std::max(from, static_cast<std::size_t>(begin)); // a file may become shorter
    if (seek(next, SEEK_SET) < 0) return std::nullopt;
    return end > begin ? Extent{next, static_cast<std::size_t>(end)} : Extent{next, rest.end};
}

/// Reads to the file's end, whatever its length was said to be. False where the disk fails. Holes are not
/// read: the system would first make pages of zeros for them.
bool readToEnd(int fd, std::vector<std::uint8_t>& data, std::size_t said, std::size_t limit) {
    constexpr std::size_t kLeast = 4096;
    std::size_t filled = 0, end = 0;
    data.resize(std::min(limit, said + 1)); // one more than said: the end shows at the first reading
    while (filled < limit) {
        if (filled >= end) {
            const auto extent = nextExtent(fd, filled, said);
            if (!extent) return false;
            filled = std::min(limit, extent->begin);
            end = extent->end;
        }
        if (filled >= data.size()) data.resize(std::min(limit, std::max(kLeast, 2 * filled)));
        const ssize_t got = ::read(fd, data.data() + filled, std::min(data.size(), end) - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    data.resize(filled);
    return true;
}

} // namespace

std::optional<std::vector<std::uint8_t>> readDataFromFileAtURL(const std::string& path, std::size_t limit,
                                                               FileIdentity* read) {
    // Not blocking: opening a pipe without a writer would wait for one.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EOPNOTSUPP;
        return std::nullopt;
    }
    std::vector<std::uint8_t> data;
    if (!readToEnd(file.get(), data, static_cast<std::size_t>(status.st_size), limit)) return std::nullopt;
    if (read) *read = identityOf(status);
    return data;
}

bool writeDataToFileAtURL(const std::string& path, std::span<const std::uint8_t> data, std::size_t zeros,
                          Flush flush) {
    const auto file = realFile(path);
    if (!file) return false;
    struct stat there;
    const bool exists = ::stat(file->c_str(), &there) == 0;
    if (exists ? !mayBeReplaced(*file, there) : path.empty() || errno != ENOENT) return false;
    removeStaleTemporaries(folderOf(*file));
    const auto mode = exists ? std::optional(there.st_mode) : std::nullopt;
    if (!replaceFile(*file, data, zeros, flush, mode))
        return exists && onlyTheFolderRefuses(errno) && writeInPlace(*file, data, zeros, flush);
    if (flush == Flush::toDisk) flushFolder(folderOf(*file));
    return true;
}

std::string reasonOf(int error) {
    return std::generic_category().message(error);
}

} // namespace chromalog
