// A loop that does not end must fail, not stop everybody: no test is without a time limit.
#include "support/run_program.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace chromalog {
namespace {

using nlohmann::json;

double limitOf(const json& test) {
    for (const json& property : test.value("properties", json::array()))
        if (property["name"] == "TIMEOUT") return property["value"];
    return 0;
}

TEST(TimeLimits, EveryTestHasOne) {
    const auto listed =
        runProgram({CHROMALOG_CTEST, "--test-dir", CHROMALOG_BINARY_DIR, "--show-only=json-v1"});
    ASSERT_EQ(listed.exitCode, 0) << listed.err;
    const json tests = json::parse(listed.out, nullptr, false)["tests"];
    ASSERT_GT(tests.size(), 10u);
    for (const json& test : tests) {
        const std::string name = test["name"];
        if (name.ends_with("_NOT_BUILT")) continue;
        EXPECT_GT(limitOf(test), 0) << name;
        EXPECT_LE(limitOf(test), 300 * CHROMALOG_SLOWDOWN) << name;
    }
}

} // namespace
} // namespace chromalog
