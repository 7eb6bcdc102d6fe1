#include "files/size_limit_signal.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {
namespace {

int handled = 0; ///< signals that reached the handler of others

bool isBlocked() {
    sigset_t now;
    pthread_sigmask(SIG_BLOCK, nullptr, &now);
    return sigismember(&now, SIGXFSZ) == 1;
}

bool isPending() {
    sigset_t now;
    sigpending(&now);
    return sigismember(&now, SIGXFSZ) == 1;
}

void setBlocked(bool blocked) {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGXFSZ);
    pthread_sigmask(blocked ? SIG_BLOCK : SIG_UNBLOCK, &set, nullptr);
}

/// Each test is a process of its own under a limit that no write can keep.
class SizeLimitSignal : public testing::Test {
  protected:
    /// The exit code of `run`, or minus the signal that ended it.
    template <typename Run> int underTheLimit(Run run) {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_FSIZE, &none);
            file_ = ::open((folder_ / "file").c_str(), O_WRONLY | O_CREAT, 0600);
            ::_exit(run());
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    bool writeFails() const { return ::write(file_, "x", 1) < 0 && errno == EFBIG; }

  private:
    test::TemporaryFolder folder_;
    int file_ = -1;
};

TEST_F(SizeLimitSignal, AWriteBeforeAndAfterIsEndedByTheSignalAndOneInBetweenOnlyFails) {
    EXPECT_EQ(underTheLimit([&] { return writeFails() ? 0 : 1; }), -SIGXFSZ);
    const auto guarded = [&] {
        const SizeLimitSignalBlock block;
        return writeFails() && writeFails();
    };
    EXPECT_EQ(underTheLimit([&] { return guarded() && !isPending() && !isBlocked() ? 0 : 1; }), 0);
    EXPECT_EQ(underTheLimit([&] { return guarded() && writeFails() ? 0 : 1; }), -SIGXFSZ);
}

TEST_F(SizeLimitSignal, TheHandlerOfOthersStaysAndHearsNothingOfIt) {
    const auto run = [&] {
        ::signal(SIGXFSZ, [](int) { ++handled; });
        {
            const SizeLimitSignalBlock block;
            if (!writeFails()) return 1;
        }
        if (handled != 0) return 2;
        return writeFails() && handled == 1 ? 0 : 3;
    };
    EXPECT_EQ(underTheLimit(run), 0);
}

TEST_F(SizeLimitSignal, OneThatWasPendingBeforeStaysPending) {
    const auto run = [&] {
        setBlocked(true);
        ::raise(SIGXFSZ);
        {
            const SizeLimitSignalBlock block;
            if (!writeFails()) return 1;
        }
        return isPending() && isBlocked() ? 0 : 2;
    };
    EXPECT_EQ(underTheLimit(run), 0);
}

TEST_F(SizeLimitSignal, WhoeverHadItBlockedFindsItPending) {
    const auto run = [&] {
        setBlocked(true);
        {
            const SizeLimitSignalBlock block;
            if (!writeFails()) return 1;
        }
        return isPending() && isBlocked() ? 0 : 2;
    };
    EXPECT_EQ(underTheLimit(run), 0);
}

TEST_F(SizeLimitSignal, TheOutermostOfSeveralTakesItAway) {
    const auto run = [&] {
        {
            const SizeLimitSignalBlock outer;
            {
                const SizeLimitSignalBlock inner;
                if (!writeFails()) return 1;
            }
            if (!isBlocked() || !isPending()) return 2;
        }
        return !isPending() && !isBlocked() ? 0 : 3;
    };
    EXPECT_EQ(underTheLimit(run), 0);
}

} // namespace
} // namespace chromalog
