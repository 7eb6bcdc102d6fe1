#include "files/write_lock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>

namespace chromalog {
namespace {

/// Whether another program could have the lock in that way at this moment.
bool couldLock(const std::string& file, int how) {
    const Descriptor other(::open(file.c_str(), O_RDWR | O_CLOEXEC));
    return ::flock(other.get(), how | LOCK_NB) == 0;
}

TEST(WriteLock, IsOneProgramsAlone) {
    const test::TemporaryFolder folder;
    const std::string file = folder / "lists.lock";
    {
        const WriteLock lock(file);
        EXPECT_FALSE(lock.refused());
        EXPECT_FALSE(couldLock(file, LOCK_SH));
    }
    EXPECT_TRUE(couldLock(file, LOCK_EX));
}

TEST(OpenMark, IsSharedAndSeenByTheNext) {
    const test::TemporaryFolder folder;
    const std::string file = folder / "lists.open";
    const OpenMark first(file);
    EXPECT_FALSE(first.others());
    EXPECT_TRUE(couldLock(file, LOCK_SH));
    EXPECT_FALSE(couldLock(file, LOCK_EX));
    const OpenMark second(file);
    EXPECT_TRUE(second.others());
}

} // namespace
} // namespace chromalog
