#include "files/temporary_file.h"

#include "files/flush.h"

#include <cstdio>
#include <ctime>
#include <memory>
#include <random>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

constexpr std::string_view kBeginning = ".chromalog-", kEnd = ".tmp";
constexpr std::time_t kDay = 24 * 60 * 60;

/// Whoever removes leftovers may have come between opening and locking: then the file is lost, and another
/// one is made.
bool holdsItsFile(int fd) {
    struct stat status;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK; // a file system without locks
    return ::fstat(fd, &status) != 0 || status.st_nlink > 0;
}

/// Locked by nobody, or, where there are no locks, a day old.
bool isLeftOver(int fd) {
    struct stat status;
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) return true;
    return errno != EWOULDBLOCK && status.st_mtime + kDay < std::time(nullptr);
}

} // namespace

std::string temporaryName(const std::string& target) {
    char random[20];
    std::random_device device;
    std::snprintf(random, sizeof random, "%08x%08x", device(), device());
    return folderOf(target).append("/").append(kBeginning).append(random).append(kEnd);
}

TemporaryFile::TemporaryFile(const std::string& target, Kind kind)
    : target_(target), name_(temporaryName(target)) {
    if (kind == Kind::named) {
        constexpr int tries = 100; // several programs may be looking for leftovers at this moment
        for (int i = 0; i < tries && !openNamed(); ++i)
            name_ = temporaryName(target);
        return;
    }
#ifdef O_TMPFILE
    file_ = Descriptor(::open(folderOf(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (file_.isOpen()) ::flock(file_.get(), LOCK_EX | LOCK_NB); // for the moment in which it has a name
#else
    errno = EOPNOTSUPP;
#endif
}

/// True where there is nothing to try again.
bool TemporaryFile::openNamed() {
    file_ = Descriptor(::open(name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file_.isOpen()) return errno != EEXIST;
    named_ = holdsItsFile(file_.get());
    if (!named_) file_ = Descriptor();
    return named_;
}

TemporaryFile::~TemporaryFile() {
    const int why = errno;
    if (named_) ::unlink(name_.c_str());
    errno = why;
}

bool TemporaryFile::takePlace(Flush flush, FileIdentity* taken) {
    if (flush == Flush::toDisk && flushToDisk(file_.get()) != 0) return false;
    if (!named_ && !giveName()) return false;
    const Descriptor descriptor(::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0)); // with the lock
    if (!file_.close() || ::rename(name_.c_str(), target_.c_str()) != 0) return false;
    named_ = false;
    struct stat status;
    const bool known =
        descriptor.isOpen() ? ::fstat(descriptor.get(), &status) == 0 : ::stat(target_.c_str(), &status) == 0;
    if (taken) *taken = known ? identityOf(status) : FileIdentity();
    return true;
}

bool TemporaryFile::giveName() {
    const std::string open = "/proc/self/fd/" + std::to_string(file_.get());
    named_ = ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name_.c_str(), AT_SYMLINK_FOLLOW) == 0;
    return named_;
}

void removeStaleTemporaries(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with(kBeginning) || !name.ends_with(kEnd)) continue;
        const std::string path = folder + '/' + entry->d_name;
        const Descriptor file(
            ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
        if (file.isOpen() && isLeftOver(file.get())) ::unlink(path.c_str());
    }
}

void flushFolder(const std::string& folder) {
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.isOpen()) flushToDisk(open.get());
}

} // namespace chromalog
