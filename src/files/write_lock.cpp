#include "files/write_lock.h"

#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace chromalog {
namespace {

using namespace std::chrono_literals;

constexpr auto kStep = 2ms;
constexpr int kWriteSteps = 1000; // two seconds: a write takes milliseconds, its flush perhaps a second
constexpr int kMarkSteps = 10;

Descriptor openLockFile(const std::string& file) {
    return Descriptor(
        ::open(file.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666));
}

/// Tries for a while; false only where somebody else holds the lock.
bool lock(const Descriptor& file, int how, int steps) {
    for (int i = 0; file.isOpen() && ::flock(file.get(), how | LOCK_NB) != 0; ++i) {
        if (errno != EWOULDBLOCK && errno != EINTR) return true; // no locks here
        if (i >= steps) return false;
        std::this_thread::sleep_for(kStep);
    }
    return true;
}

} // namespace

WriteLock::WriteLock(const std::string& lockFile) : file_(openLockFile(lockFile)) {
    refused_ = !lock(file_, LOCK_EX, kWriteSteps);
}

OpenMark::OpenMark(const std::string& markFile) : file_(openLockFile(markFile)) {
    others_ = !lock(file_, LOCK_EX, 0);
    lock(file_, LOCK_SH, kMarkSteps); // a mark of many: the next one to ask is refused the lock for itself
}

} // namespace chromalog
