// Every small plug-in has one fault: the check that it belongs to finds it, and no other complains.
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>
#include <string_view>

namespace chromalog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Faulty {
    const char* plugin;
    const char* check; ///< the one that fails
    const char* says;
};

void PrintTo(const Faulty& faulty, std::ostream* out) {
    *out << faulty.plugin;
}

class FaultyPlugIn : public testing::TestWithParam<Faulty> {};

TEST_P(FaultyPlugIn, IsCaughtByItsCheckAlone) {
#if defined(__SANITIZE_ADDRESS__)
    const std::string_view name = GetParam().plugin;
    if (name == "at_exit" || name == "grows" || name == "late_writes")
        GTEST_SKIP() << "the sanitizer keeps what is given back, and ends who reads it itself";
#endif
    const ProgramResult result =
        runProgram({PLUGIN_CHECK, std::string(FAULTY_PLUGINS "/") + GetParam().plugin + ".so"});
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_THAT(result.out, HasSubstr(GetParam().says));
    std::set<std::string> complaints;
    std::istringstream lines(result.out);
    for (std::string word, check, rest; lines >> word >> check && std::getline(lines, rest);)
        if (word == "FAILED") complaints.insert(check);
    EXPECT_THAT(complaints, ElementsAre(std::string(GetParam().check) + ":")) << result.out;
}

constexpr Faulty kFaulty[]{
    {"no_entry", "exports", "no PluginMain is exported"},
    {"data_entry", "exports", "PluginMain is data, no function"},
    {"many_names", "exports", "exports readColours"},
    {"about_fails", "about-call", "ended with -50"},
    {"fails_always", "pick", "ended with 12"},
    {"fails_later", "two-picks", "the first pick ended with 0, the second ended with -30800"},
    {"option_fails", "option", "ended with -30800, without Option with 0"},
    {"needs_memory", "refused-memory", "(the first handle refused)"},
    {"exits", "refused-memory", "exit code 3 (the first handle refused)"},
    {"needs_suite", "missing-suites", "(without the suite for windows)"},
    {"needs_callback", "missing-callbacks", "(no processEvent)"},
    {"needs_services", "null-services", "(no colour services"},
    {"trusts_host", "hostile-answers", "property"},
    {"one_at_a_time", "re-entrance", "a call from within lockProc changed how the pick that ran then ended"},
    {"stays_loaded", "unload", "is still loaded"},
    {"at_exit", "unload", "when the module was gone"},
    {"leaks_descriptor", "descriptors", "is new: '/dev/null'"},
    {"leaks_thread", "threads", "after two picks there are 3 threads, three picks later 6"},
    {"grows", "memory", "bytes a pick"},
    {"sets_variable", "environment", "after a pick FAULTY_PICKER is new: '1'"},
    {"sets_handler", "signals", "after a pick SIGUSR1 was 'the default' and is 'ignored'"},
    {"sets_locale", "locale", "after a pick the locale was 'C' and is"},
    {"late_writes", "late-writes", "the record was written after the call: 3 bytes from offset 40"},
    {"other_layout", "record-offsets", "6 bytes from offset 176"},
    {"about_writes", "record-offsets", "6 bytes from offset 188"},
    {"error_with_colour", "answer", "the pick ended with -128 and changed the colour"},
    {"no_space", "answer", "the answer's space is -1"},
    {"junk_slot", "slot", "what the plug-in's slot holds is no handle of this host"},
    {"stale_slot", "slot", "is still in the plug-in's slot"},
    {"leaks_handle", "handles", "newProc: handle 2 was not disposed of"},
    {"leaks_block", "buffers", "AllocateBlock: a block of 10 bytes was not freed"},
    {"unlocked_buffer", "locks", "the block was written while it was not locked"},
    {"leaves_locked", "locks", "is still locked at the end of the call"},
    {"past_end", "bounds", "was written past its ends"},
    {"leaks_suite", "suites", "was not released"},
    {"null_names", "arguments", "AcquireSuite: null name"},
    {"other_thread", "arguments", "IsEqual: called from another thread"},
};

INSTANTIATE_TEST_SUITE_P(, FaultyPlugIn, testing::ValuesIn(kFaulty),
                         [](const auto& faulty) { return std::string(faulty.param.plugin); });

} // namespace
} // namespace chromalog
