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

/// Reads to the file's end, whatever its length was said to be, or to the limit: how many bytes. Nothing
/// where the disk fails. `roomFor` gives so many bytes at least of one buffer, zero where nothing was read
/// yet. Holes are not read: the system would first make pages of zeros for them.
template <typename RoomFor>
std::optional<std::size_t> readToEnd(int fd, std::size_t said, std::size_t limit, RoomFor roomFor,
                                     std::vector<Extent>* held = nullptr) {
    std::size_t filled = 0, end = 0;
    while (filled < limit) {
        if (filled >= end) {
            const auto extent = nextExtent(fd, filled, said);
            if (!extent) return std::nullopt;
            filled = std::min(limit, extent->begin);
            end = extent->end;
        }
        const std::span<std::uint8_t> room = roomFor(std::min(limit, filled + 1));
        const ssize_t got = ::read(fd, room.data() + filled, std::min(room.size(), end) - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        if (held) held->push_back({filled, filled + static_cast<std::size_t>(got)});
        filled += static_cast<std::size_t>(got);
    }
    return filled;
}

/// A regular file that is open, and what is known of it; errno says why not. Opened without blocking: a pipe
/// without a writer would be waited for.
bool openRegular(const std::string& path, std::optional<Descriptor>& file, struct stat& status) {
    file.emplace(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file->isOpen() || ::fstat(file->get(), &status) != 0) return false;
    if (!S_ISREG(status.st_mode)) errno = S_ISDIR(status.st_mode) ? EISDIR : EOPNOTSUPP;
    return S_ISREG(status.st_mode);
}

} // namespace

std::optional<std::vector<std::uint8_t>> readDataFromFileAtURL(const std::string& path, std::size_t limit,
                                                               FileIdentity* read) {
    static constexpr std::size_t kLeast = 4096;
    std::optional<Descriptor> file;
    struct stat status;
    if (!openRegular(path, file, status)) return std::nullopt;
    const auto said = static_cast<std::size_t>(status.st_size);
    std::vector<std::uint8_t> data(std::min(limit, said + 1)); // one more: the end shows at the first reading
    const auto roomFor = [&data, limit](std::size_t least) {
        if (data.size() < least) data.resize(std::min(limit, std::max(kLeast, 2 * least)));
        return std::span(data);
    };
    const auto length = readToEnd(file->get(), said, limit, roomFor);
    if (!length) return std::nullopt;
    data.resize(*length);
    if (read) *read = identityOf(status);
    return data;
}

std::optional<std::size_t> readFileInto(const std::string& path, std::span<std::uint8_t> zeros,
                                        FileIdentity* read, std::vector<Extent>* held) {
    std::optional<Descriptor> file;
    struct stat status;
    if (!openRegular(path, file, status)) return std::nullopt;
    const auto said = static_cast<std::size_t>(status.st_size);
    const auto length = readToEnd(
        file->get(), said, zeros.size(), [zeros](std::size_t) { return zeros; }, held);
    if (length && read) *read = identityOf(status);
    return length;
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
