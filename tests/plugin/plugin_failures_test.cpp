// The module where the system or the host behaves unexpectedly: memory, file sizes, calls within a call.
#include "plugin/plugin_check.h"

#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <utility>

namespace chromalog::standalone {
namespace {

/// This process's address space in bytes.
rlim_t addressSpace() {
    std::ifstream in("/proc/self/statm");
    rlim_t pages = 0;
    in >> pages;
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

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

TEST_F(PlugInCheck, AFileThatTheMemoryCannotHoldLeavesTheListAndTheDialog) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address space is the sanitizer's";
#endif
    if (addressSpace() == 0) GTEST_SKIP() << "needs /proc";
    const std::string one = swatchFile("one.aco").string(),
                      large = swatchFile("large.aco", 60'000'000).string();
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    const std::string choose = "press loadSwatch1:\nchoose '";
    play(choose + one + "'\nok\n"); // everything that a panel loads is there afterwards
    ASSERT_EQ(run.pick(kOffered).result, 0);

    play(choose + large + "'\nstate '" + (folder / "state").string() + "'\npress killSwatch2:\nok\n");
    {
        const LowerLimit memory(RLIMIT_AS, addressSpace() + 40'000'000);
        EXPECT_EQ(run.pick(kOffered).result, 0);
    }
    EXPECT_FALSE(host.endWith) << "the script was played to its end";
    const SlotMemory memory(host, run.slot());
    EXPECT_EQ(memory.record->numColors1, 1);
    EXPECT_EQ(memory.record->swatchList1[0].SRed, 65535);
    EXPECT_EQ(memory.record->swatchName1[0], std::string("one.aco").size());
    std::ifstream in(folder / "state");
    const std::string state{std::istreambuf_iterator<char>(in), {}};
    EXPECT_THAT(state, ::testing::HasSubstr("out of memory")) << "a line of the log";
}

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

/// Calls back once, from within a conversion.
struct AskingBack : ClosedConverter {
    mutable std::function<void()> once;
    Components convert(Space from, Space to, const Components& components) const override {
        if (const auto call = std::exchange(once, nullptr)) call();
        return ClosedConverter::convert(from, to, components);
    }
};

struct CallsWithinACall : PlugInCheck {
    explicit CallsWithinACall(AskingBack* made = new AskingBack)
        : PlugInCheck(std::unique_ptr<ColourConverter>(made)), converter(*made) {}
    AskingBack& converter;
};

TEST_F(CallsWithinACall, FromTheColourServicesReturnAtOnceWithOneLine) {
    const PluginModule module(CHROMALOG_MODULE);
    HostRun run(host, module.entry());
    PickerRecord record{};
    record.sSPBasic = basicSuite();
    record.handleProcs = handleProcs();
    std::intptr_t slot = 0;
    std::int16_t result = 0x5AA5;
    converter.once = [&] { module.entry()(pickerSelectorPick, &record, &slot, &result); };
    ::testing::internal::CaptureStderr();
    const HostRun::Answer answer = run.pick({Space::cmyk, {1000, 2000, 3000, 4000}});
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(converter.once, nullptr) << "the host was asked while the pick started";
    EXPECT_EQ(result, 0x5AA5);
    EXPECT_EQ(slot, 0);
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.colour.components[0], 58981) << "the pick that runs is none the worse";
    EXPECT_EQ(host.ledger.calls("newProc"), 1);
    EXPECT_THAT(said, ::testing::StartsWith("Chromalog: "));
    EXPECT_EQ(std::ranges::count(said, '\n'), 1) << said;
}

} // namespace
} // namespace chromalog::standalone
