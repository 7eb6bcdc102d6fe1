#pragma once

#include <csignal>

namespace chromalog {

/// While it lives, a write past the file-size limit fails (EFBIG) and does no more: the signal that comes
/// with it, and would end the host's process, is held back in this thread and then taken away. How others
/// deal with the signal stays as it is, and one that was blocked or pending before is theirs.
class SizeLimitSignalBlock {
  public:
    SizeLimitSignalBlock() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGXFSZ);
        pendingBefore_ = isPending();
        sigset_t before;
        pthread_sigmask(SIG_BLOCK, &signal_, &before);
        blockedBefore_ = sigismember(&before, SIGXFSZ) == 1;
    }
    SizeLimitSignalBlock(const SizeLimitSignalBlock&) = delete;
    SizeLimitSignalBlock& operator=(const SizeLimitSignalBlock&) = delete;
    ~SizeLimitSignalBlock() {
        if (blockedBefore_) return;
        int taken = 0;
        if (!pendingBefore_ && isPending()) sigwait(&signal_, &taken);
        pthread_sigmask(SIG_UNBLOCK, &signal_, nullptr);
    }

  private:
    static bool isPending() {
        sigset_t pending;
        return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
    }

    sigset_t signal_;
    bool blockedBefore_ = false, pendingBefore_ = false;
};

} // namespace chromalog
