#include "files/real_file.h"

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {

std::optional<std::string> realFile(std::string path) {
    constexpr int kMostLinks = 40; // as the kernel's own limit
    for (int links = 0; links <= kMostLinks; ++links) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length < 0 && errno == ELOOP) return std::nullopt;
        if (length <= 0) return path; // no link, or nothing there: whoever opens it is told
        const std::string next(target, static_cast<std::size_t>(length));
        path = next.front() == '/' ? next : folderOf(path) + '/' + next;
    }
    errno = ELOOP;
    return std::nullopt;
}

std::string folderOf(const std::string& file) {
    const std::size_t slash = file.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : file.substr(0, slash);
}

bool mayBeReplaced(const std::string& file, const struct stat& there) {
    if (!S_ISREG(there.st_mode)) {
        errno = S_ISDIR(there.st_mode) ? EISDIR : EOPNOTSUPP;
        return false;
    }
    return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0;
}

FileIdentity identityOf(const struct stat& status) {
#ifdef __APPLE__
    const timespec& changed = status.st_mtimespec;
#else
    const timespec& changed = status.st_mtim;
#endif
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
            status.st_size, changed.tv_sec, changed.tv_nsec};
}

std::optional<FileIdentity> identityOf(const std::string& file) {
    struct stat status;
    if (::stat(file.c_str(), &status) != 0) return std::nullopt;
    return identityOf(status);
}

} // namespace chromalog
