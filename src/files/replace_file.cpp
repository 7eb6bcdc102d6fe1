#include "files/replace_file.h"

#include "files/flush.h"
#include "files/size_limit_signal.h"
#include "files/temporary_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

// The system's calls, and not the standard streams: those report a full disk too late, and neither flush to
// the disk nor take a file's place. Another platform replaces these few files.
#include <fcntl.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

constexpr std::size_t kBlock = 4096; ///< what a file system allocates at least

bool writeAll(int fd, std::span<const std::uint8_t> data, std::size_t offset) {
    while (!data.empty()) {
        const ssize_t written = ::pwrite(fd, data.data(), data.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written == 0) errno = EIO;
        if (written <= 0) return false;
        data = data.subspan(static_cast<std::size_t>(written));
        offset += static_cast<std::size_t>(written);
    }
    return true;
}

bool setLength(int fd, std::size_t length) {
    return ::ftruncate(fd, static_cast<off_t>(length)) == 0;
}

/// Leaves blocks of zeros as holes, in a file that is long enough already and holds nothing there: most of a
/// preferences file is unused swatch slots.
bool writeSparsely(int fd, std::span<const std::uint8_t> data, std::size_t offset) {
    static constexpr std::uint8_t kZeros[kBlock] = {};
    std::size_t run = 0; // start of the blocks that hold something
    for (std::size_t at = 0; at < data.size(); at += kBlock) {
        const std::size_t length = std::min(kBlock, data.size() - at);
        if (std::memcmp(data.data() + at, kZeros, length) != 0) continue;
        if (!writeAll(fd, data.subspan(run, at - run), offset + run)) return false;
        run = at + length;
    }
    return writeAll(fd, data.subspan(run), offset + run);
}

/// Fills a temporary file, an unnamed one where the system has it, and puts it in the file's place.
template <typename Fill>
bool throughTemporary(const std::string& file, Flush flush, FileIdentity* written, Fill fill) {
    using Kind = TemporaryFile::Kind;
    const SizeLimitSignalBlock onlyFails;
    for (const Kind kind : {Kind::unnamed, Kind::named}) {
        TemporaryFile temporary(file, kind);
        if (temporary.isOpen() && fill(temporary.descriptor()) && temporary.takePlace(flush, written))
            return true;
    }
    return false;
}

/// The contents of a file of `length` bytes, piece by piece; false where it does not have as many.
bool copyContents(int from, int to, std::size_t length) {
    std::vector<std::uint8_t> piece(64 * kBlock);
    for (std::size_t at = 0; at < length;) {
        const ssize_t got = ::pread(from, piece.data(), piece.size(), static_cast<off_t>(at));
        if (got < 0 && errno == EINTR) continue;
        if (got == 0) errno = EIO;
        if (got <= 0) return false;
        if (!writeSparsely(to, {piece.data(), static_cast<std::size_t>(got)}, at)) return false;
        at += static_cast<std::size_t>(got);
    }
    return true;
}

std::array<timespec, 2> timesOf(const FileIdentity& file) {
    const timespec changed{static_cast<time_t>(file.seconds), static_cast<long>(file.nanoseconds)};
    return {changed, changed};
}

} // namespace

bool replaceFile(const std::string& file, std::span<const std::uint8_t> data, std::size_t zeros, Flush flush,
                 std::optional<mode_t> mode, FileIdentity* written) {
    return throughTemporary(file, flush, written, [&](int fd) {
        if (mode && ::fchmod(fd, *mode & 0777) != 0) return false;
        return setLength(fd, data.size() + zeros) && writeSparsely(fd, data, 0);
    });
}

bool copyFile(const std::string& from, const std::string& to, Flush flush) {
    const Descriptor source(::open(from.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0) return false;
    const FileIdentity identity = identityOf(status);
    const auto length = static_cast<std::size_t>(identity.size);
    return throughTemporary(to, flush, nullptr, [&](int fd) {
        if (::fchmod(fd, status.st_mode & 0777) != 0 || !setLength(fd, length)) return false;
        if (!copyContents(source.get(), fd, length)) return false;
        if (::fstat(source.get(), &status) != 0) return false;
        if (identityOf(status) != identity) {
            errno = EAGAIN;
            return false;
        }
        return ::futimens(fd, timesOf(identity).data()) == 0;
    });
}

bool onlyTheFolderRefuses(int why) {
    return why == EACCES || why == EPERM || why == EBUSY || why == EXDEV;
}

bool writeInPlace(const std::string& file, std::span<const std::uint8_t> data, std::size_t zeros,
                  Flush flush) {
    const SizeLimitSignalBlock onlyFails;
    Descriptor open(::open(file.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!open.isOpen() || ::fstat(open.get(), &status) != 0) return false;
    const auto before = static_cast<std::size_t>(status.st_size);
    const std::size_t head = std::min(before, data.size());
    if (!writeAll(open.get(), data.subspan(head), head)) {
        const int why = errno;
        setLength(open.get(), before);
        errno = why;
        return false;
    }
    if (!writeAll(open.get(), data.first(head), 0)) return false;
    if (before > data.size() && !setLength(open.get(), data.size())) return false;
    if (zeros > 0 && !setLength(open.get(), data.size() + zeros)) return false;
    if (flush == Flush::toDisk && flushToDisk(open.get()) != 0) return false;
    return open.close();
}

} // namespace chromalog
