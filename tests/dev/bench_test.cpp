// What dev/bench makes of samples, from made-up results: nothing is measured here.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

namespace chromalog::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

json beside(const char* kind, const char* what, const json& samples, const json& bound) {
    return {{"kind", kind}, {"what", what}, {"samples", samples}, {"bound", bound}, {"goal", nullptr}};
}

/// In nanoseconds.
json operation(const char* name, const json& ours, const json& others, const json& bound = nullptr) {
    return {{"operation", name}, {"group", "made up"}, {"unit", "ns"},
            {"ours", ours},      {"bound", bound},     {"beside", others}};
}

class Bench : public testing::Test {
  protected:
    std::string write(const char* name, const std::vector<json>& operations, double load = 3.5) const {
        const json results{{"when", "now"},
                           {"load", {{1.25, 0, 0}, {load, 0, 0}}},
                           {"processors", 2},
                           {"rounds", 5},
                           {"operations", operations}};
        std::ofstream(folder_ / name) << results;
        return folder_ / name;
    }

    ProgramResult bench(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"python3", CHROMALOG_SOURCE_DIR "/dev/bench"});
        return runProgram(arguments, {{"PYTHONIOENCODING", "utf-8"}});
    }

    ProgramResult tableOf(const json& operation) const {
        return bench({"--from", write("new", {operation})});
    }

    ProgramResult compared(const json& before, const json& now) const {
        const std::string old = write("old", {before});
        return bench({"--from", write("new", {now}), "--against", old});
    }

    /// The words of the first line that holds the text, one space between any two.
    static std::string lineWith(const std::string& text, const std::string& table) {
        std::istringstream lines(table);
        for (std::string line; std::getline(lines, line);) {
            if (line.find(text) == line.npos) continue;
            std::istringstream words(line);
            std::string plain, word;
            while (words >> word)
                plain += (plain.empty() ? "" : " ") + word;
            return plain;
        }
        return "";
    }

    TemporaryFolder folder_;
};

TEST_F(Bench, ABoundThatIsHeldIsOkAndEndsWithNothing) {
    const auto result = tableOf(operation("fill", {4000, 4200, 4100},
                                          json::array({beside("limit", "memset", {1000, 1050, 1025}, 5)})));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(lineWith("fill", result.out), "fill 4.1 µs memset 1.02 µs 4.00 ≤ 5 ok");
    EXPECT_THAT(result.out, HasSubstr("load 1.25 before, 3.50 after, on 2 processors; medians of 5 rounds"));
    EXPECT_THAT(result.out, Not(HasSubstr("short")));
}

TEST_F(Bench, ABoundThatIsShortIsNamedAndEndsWithOne) {
    const auto result =
        tableOf(operation("fill", {6000}, json::array({beside("limit", "memset", {1000}, 5)})));
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(lineWith("fill", result.out), "fill 6 µs memset 1 µs 6.00 ≤ 5 short");
    EXPECT_THAT(result.out, HasSubstr("short: fill: 6.00 of memset, ≤ 5\n"));
}

TEST_F(Bench, ABoundOfItsOwnIsHeldByTheMedian) {
    const json samples{3e6, 3.5e6, 90e6};
    EXPECT_EQ(tableOf(operation("drop", samples, json::array(), 3.5e6)).exitCode, 0);
    const auto result = tableOf(operation("drop", samples, json::array(), 3.4e6));
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_THAT(result.out, HasSubstr("short: drop: 3.5 ms, ≤ 3.4 ms\n"));
}

// A load that comes and goes makes single rounds slow, for all that is measured in them.
TEST_F(Bench, RatiosAreTakenRoundByRound) {
    const auto result = tableOf(
        operation("fill", {100, 400, 100}, json::array({beside("limit", "memset", {50, 200, 100}, 1.5)})));
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(lineWith("fill", result.out), "fill 100 ns memset 100 ns 2.00 ≤ 1.5 short");
}

TEST_F(Bench, EveryComparisonHasItsLineAndVerdict) {
    const auto result = tableOf(
        operation("fill", {100},
                  json::array({beside("limit", "memset", {50}, 3), beside("plain", "by hand", {400}, 0.2),
                               beside("peer", "another", {200}, nullptr)})));
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(lineWith("memset", result.out), "fill 100 ns memset 50 ns 2.00 ≤ 3 ok");
    EXPECT_EQ(lineWith("by hand", result.out), "by hand 400 ns 0.25 ≤ 0.2 short");
    EXPECT_EQ(lineWith("another", result.out), "another 200 ns 0.50");
}

TEST_F(Bench, APeerThatIsNotInstalledIsNoFailure) {
    const auto result =
        tableOf(operation("start", {100}, json::array({beside("peer", "another", nullptr, 0.5)})));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(lineWith("start", result.out), "start 100 ns another not installed ≤ 0.5");
}

TEST_F(Bench, WhatCouldNotBeMeasuredSaysSo) {
    const auto result =
        tableOf(operation("start", nullptr, json::array({beside("limit", "x", nullptr, 2)}), 5));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(lineWith("start", result.out), "start not measured ≤ 5 ns");
    EXPECT_EQ(lineWith("x not", result.out), "x not measured ≤ 2");
}

TEST_F(Bench, WhatBecameSlowerIsNamed) {
    const auto result = compared(operation("drop", {100, 102, 104, 103, 101}, json::array()),
                                 operation("drop", {120, 122, 124, 123, 121}, json::array()));
    EXPECT_THAT(result.out, HasSubstr("slower: drop: 1.20 times\n"));
    EXPECT_EQ(result.exitCode, 0) << "no bound is short";
}

TEST_F(Bench, NoiseIsNotSlower) {
    const auto slower = [this](const json& before, const json& now) {
        return compared(operation("drop", before, json::array()), operation("drop", now, json::array())).out;
    };
    EXPECT_THAT(slower({100, 100, 100}, {104, 104, 104}), Not(HasSubstr("slower")))
        << "under five in a hundred";
    EXPECT_THAT(slower({80, 100, 130, 140, 90}, {110, 120, 95, 150, 125}), Not(HasSubstr("slower")))
        << "the middle halves overlap";
    EXPECT_THAT(slower({120, 121, 122}, {100, 101, 102}), Not(HasSubstr("slower"))) << "it became faster";
}

TEST_F(Bench, ABusierMachineMakesNothingSlower) {
    const auto with = [](const json& ours, const json& limit) {
        return operation("fill", ours, json::array({beside("limit", "memset", limit, nullptr)}));
    };
    const json before = with({100, 101, 102}, {50, 50.5, 51});
    EXPECT_THAT(compared(before, with({200, 202, 204}, {100, 101, 102})).out, Not(HasSubstr("slower")));
    EXPECT_THAT(compared(before, with({200, 202, 204}, {50, 50.5, 51})).out,
                HasSubstr("slower: fill: 2.00 times"));

    // One thing beside it was slow as well: that is no proof.
    json two = before, now = with({200, 202, 204}, {50, 50.5, 51});
    two["beside"].push_back(beside("peer", "another", {300, 303, 306}, nullptr));
    now["beside"].push_back(beside("peer", "another", {600, 606, 612}, nullptr));
    EXPECT_THAT(compared(two, now).out, Not(HasSubstr("slower")));
}

TEST_F(Bench, ThatTheMachineIsBusierIsSaidOfWhatIsSlower) {
    const auto old = write("old", {operation("drop", {100, 101, 102}, json::array())}, 1);
    const auto with = [&](double load) {
        return bench({"--from", write("new", {operation("drop", {200, 202, 204}, json::array())}, load),
                      "--against", old})
            .out;
    };
    EXPECT_THAT(with(1.5), AllOf(HasSubstr("slower: drop: 2.00 times\n"), Not(HasSubstr("busier"))));
    EXPECT_THAT(with(6), HasSubstr("busier than it was (load 1.1, now 3.6): measure both again\n"));
}

TEST_F(Bench, AnOperationThatIsNewOrGoneIsNotCompared) {
    const auto result =
        compared(operation("old", {1, 1}, json::array()), operation("new", {100, 100}, json::array()));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.out, Not(HasSubstr("slower")));
}

TEST_F(Bench, JsonAloneIsAllThatIsPrinted) {
    const auto stored = write("new", {operation("drop", {5}, json::array(), 1)});
    const auto result = bench({"--from", stored, "--json"});
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(json::parse(result.out, nullptr, false), json::parse(std::ifstream(stored)));
    EXPECT_THAT(result.err, HasSubstr("short: drop"));
}

TEST_F(Bench, WhatItCannotTakeEndsWithTwoAndAWord) {
    EXPECT_EQ(bench({"--from", folder_ / "missing"}).exitCode, 2);
    std::ofstream(folder_ / "broken") << "{";
    const auto broken = bench({"--from", folder_ / "broken"});
    EXPECT_EQ(broken.exitCode, 2);
    EXPECT_THAT(broken.err, HasSubstr("dev/bench: "));
    std::ofstream(folder_ / "other") << "{}";
    const auto other = bench({"--from", folder_ / "other"});
    EXPECT_EQ(other.exitCode, 2);
    EXPECT_EQ(other.err, "dev/bench: these are no results of dev/bench: no 'operations'\n");
    const auto nothing = bench({"--only", "no such operation"});
    EXPECT_EQ(nothing.exitCode, 2);
    EXPECT_EQ(nothing.err, "dev/bench: nothing is called no such operation\n");
}

} // namespace
} // namespace chromalog::test
