#include "golden_states/run_recorder.h"

#include "golden_states/store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace chromalog::golden {
namespace {

std::atomic<int> begun, going; ///< runs of this process

std::string recordsFolder() {
    const char* folder = std::getenv("CHROMALOG_RECORD");
    return folder ? folder : "";
}

std::string testName() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    return std::string(test->test_suite_name()) + "." + test->name();
}

/// Counts from 1 in every test.
int nextRun(const std::string& test) {
    static std::map<std::string, int> runs;
    return ++runs[test];
}

std::string fileName(std::string test, int run) {
    std::ranges::replace(test, '/', '.');
    char number[16];
    std::snprintf(number, sizeof number, " %03d", run);
    return test + number;
}

} // namespace

RunRecorder::RunRecorder(const std::string& folder)
    : folder_(folder), number_(++begun), beganAlone_(going++ == 0) {
    if (!recordsFolder().empty()) capture_.emplace(folder);
}

RunRecorder::~RunRecorder() {
    --going;
}

void RunRecorder::keep(const std::vector<std::string>& options, const ProgramResult& result) const {
    const bool wasAlone = beganAlone_ && begun == number_;
    if (!capture_ || !wasAlone) return;
    std::ifstream in(folder_ + "/script", std::ios::binary);
    const std::string script{std::istreambuf_iterator<char>(in), {}};
    const std::string test = testName();
    const int run = nextRun(test);
    writeRecord(capture_->after(test + " run " + std::to_string(run), options, script, result),
                recordsFolder() + "/" + fileName(test, run));
}

} // namespace chromalog::golden
