#pragma once

#include <fcntl.h>
#include <unistd.h>

namespace chromalog {

/// Waits until the disk has the file; 0, or -1 with errno.
inline int flushToDisk(int fd) {
#ifdef F_FULLFSYNC
    // On macOS fsync alone leaves the data in the drive's own memory. Not every file system can do more.
    if (::fcntl(fd, F_FULLFSYNC) == 0) return 0;
#endif
    return ::fsync(fd);
}

} // namespace chromalog
