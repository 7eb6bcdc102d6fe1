#pragma once

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace chromalog {

/// An open file of the system, or none. Going away it closes the file and leaves errno as it is, so that the
/// reason of a failure survives the clearing up.
class Descriptor {
  public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~Descriptor() {
        const int why = errno;
        close();
        errno = why;
    }

    int get() const { return fd_; }
    bool isOpen() const { return fd_ >= 0; }
    /// False where closing tells of a write that failed late, as network file systems do.
    bool close() { return fd_ < 0 || ::close(std::exchange(fd_, -1)) == 0; }

  private:
    int fd_;
};

} // namespace chromalog
