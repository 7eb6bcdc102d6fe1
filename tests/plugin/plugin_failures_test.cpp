// The module where the system or the host behaves unexpectedly: file sizes.
#include "plugin/plugin_check.h"

#include <csignal>
#include <sys/resource.h>

namespace chromalog::standalone {
namespace {

/// A lower limit of this process for as long as it lives.
class LowerLimit {
  public:
    LowerLimit(__rlimit_resource what, rlim_t most) : what_(what) {
        getrlimit(what_, &before_);
        const rlimit lower{std::min(most, before_.rlim_max), before_.rlim_max};
        setrlimit(what_, &lower);
    }
    ~LowerLimit() { setrlimit(what_, &before_); }
    LowerLimit(const LowerLimit&) = delete;
    LowerLimit& operator=(const LowerLimit&) = delete;

  private:
    __rlimit_resource what_;
    rlimit before_{};
};

TEST_F(PlugInCheck, AFileSizeLimitOfTheHostsEndsNoPickAndItsHandlerIsNotCalled) {
    static int signals = 0;
    std::signal(SIGXFSZ, [](int) { ++signals; });
    {
        const LowerLimit size(RLIMIT_FSIZE, 10'000);
        EXPECT_EQ(pick().result, 0);
    }
    EXPECT_EQ(signals, 0);
    EXPECT_FALSE(fs::exists(preferences()));
    std::raise(SIGXFSZ);
    EXPECT_EQ(signals, 1) << "neither blocked nor another's now";
}

} // namespace
} // namespace chromalog::standalone
