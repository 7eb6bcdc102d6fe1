#include "prefs/file_io.h"

#include "prefs/size_limit_signal.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <utility>

// The system's calls, and not the standard streams: those open a pipe and wait, report a full disk too late,
// and neither flush to the disk nor take a file's place. Another platform replaces this one file.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr std::size_t kBlock = 4096; ///< what a file system allocates at least

bool writeAll(int fd, std::span<const std::uint8_t> data, std::size_t offset) {
    while (!data.empty()) {
        const ssize_t written = ::pwrite(fd, data.data(), data.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data = data.subspan(static_cast<std::size_t>(written));
        offset += static_cast<std::size_t>(written);
    }
    return true;
}

/// Leaves blocks of zeros as holes: most of a preferences file is unused swatch slots.
bool writeSparsely(int fd, std::span<const std::uint8_t> data, std::size_t size) {
    static constexpr std::uint8_t kZeros[kBlock] = {};
    const SizeLimitSignalBlock onlyFails;
    if (::ftruncate(fd, static_cast<off_t>(size)) != 0) return false;
    std::size_t run = 0; // start of the blocks that hold something
    for (std::size_t at = 0; at < data.size(); at += kBlock) {
        const std::size_t length = std::min(kBlock, data.size() - at);
        if (std::memcmp(data.data() + at, kZeros, length) != 0) continue;
        if (!writeAll(fd, data.subspan(run, at - run), run)) return false;
        run = at + length;
    }
    return writeAll(fd, data.subspan(run), run);
}

std::filesystem::path temporaryName(const std::filesystem::path& target) {
    char name[40];
    std::random_device random;
    std::snprintf(name, sizeof name, ".chromalog-%08x%08x.tmp", random(), random());
    return target.parent_path() / name;
}

/// A temporary file in the target's folder, gone unless it took the target's place. An unnamed one appears
/// only when it is complete, so that not even a killed process leaves anything behind.
class Replacement {
  public:
    Replacement(const std::filesystem::path& target, bool unnamed)
        : target_(target), name_(temporaryName(target)), named_(!unnamed) {
#ifdef O_TMPFILE
        const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
        if (unnamed) fd_ = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
#endif
        if (named_) fd_ = ::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        named_ = named_ && fd_ >= 0;
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (fd_ >= 0) ::close(fd_);
        if (named_) ::unlink(name_.c_str());
    }

    int descriptor() const {
        return fd_;
    }

    bool takePlace(Flush flush) {
        if (flush == Flush::toDisk && ::fsync(fd_) != 0) return false;
        if (!named_ && !giveName()) return false;
        if (::close(std::exchange(fd_, -1)) != 0) return false;
        if (::rename(name_.c_str(), target_.c_str()) != 0) return false;
        named_ = false;
        return true;
    }

  private:
    bool giveName() {
        const std::string open = "/proc/self/fd/" + std::to_string(fd_);
        named_ = ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name_.c_str(), AT_SYMLINK_FOLLOW) == 0;
        return named_;
    }

    std::filesystem::path target_, name_;
    bool named_ = false; ///< the temporary file is visible under name_
    int fd_ = -1;
};

/// Closes also where there is no memory for what the file holds.
struct Closing {
    int fd;
    ~Closing() { ::close(fd); }
};

} // namespace

std::optional<std::vector<std::uint8_t>> readDataFromFileAtURL(const std::string& path, std::size_t limit) {
    // Not blocking: opening a pipe without a writer would wait for one.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return std::nullopt;
    const Closing closing{fd};
    std::optional<std::vector<std::uint8_t>> data;
    struct stat status;
    if (::fstat(fd, &status) == 0 && S_ISREG(status.st_mode)) {
        data.emplace(std::min(limit, static_cast<std::size_t>(status.st_size)));
        std::size_t filled = 0;
        while (filled < data->size()) {
            const ssize_t got = ::read(fd, data->data() + filled, data->size() - filled);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) break; // it became shorter meanwhile, or the disk fails: what was read counts
            filled += static_cast<std::size_t>(got);
        }
        data->resize(filled);
    }
    return data;
}

bool writeDataToFileAtURL(const std::string& path, std::span<const std::uint8_t> data, std::size_t zeros,
                          Flush flush) {
    if (path.empty()) return false;
    std::error_code error;
    const std::filesystem::path linked = std::filesystem::canonical(path, error);
    const std::filesystem::path target = error ? std::filesystem::path(path) : linked;
    struct stat existing;
    const bool exists = ::stat(target.c_str(), &existing) == 0;
    if (exists &&
        (!S_ISREG(existing.st_mode) || ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
        return false;

    for (const bool unnamed : {true, false}) {
        Replacement file(target, unnamed);
        if (file.descriptor() < 0) continue;
        if (exists && ::fchmod(file.descriptor(), existing.st_mode & 0777) != 0) continue;
        if (writeSparsely(file.descriptor(), data, data.size() + zeros) && file.takePlace(flush)) return true;
    }
    return false;
}

} // namespace chromalog
