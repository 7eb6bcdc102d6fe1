// Writing the preferences file, beside a plain temporary file that is written and renamed.
#include "made_swatches.h"

#include "prefs/preferences_file.h"
#include "prefs/preferences_store.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr const char* kTarget = "prefs_bench.prf";
constexpr const char* kTemporary = "prefs_bench.tmp";

void plainWriteAndRename(benchmark::State& state) {
    const auto record = recordWith(4999, 4999);
    std::vector<std::uint8_t> bytes(kPreferencesSize);
    const auto image = preferencesImage(*record);
    std::memcpy(bytes.data(), image.data(), image.size());
    for (auto _ : state) {
        const int fd = ::open(kTemporary, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            state.SkipWithError("no room");
        ::close(fd);
        if (::rename(kTemporary, kTarget) != 0) state.SkipWithError("no rename");
    }
    ::unlink(kTarget);
}

void writeStore(benchmark::State& state, Flush flush) {
    const auto record = recordWith(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    PreferencesStore store(kTarget);
    for (auto _ : state)
        if (store.write(preferencesImage(*record), kPreferencesZeros, flush).error != 0)
            state.SkipWithError("not written");
    for (const char* left : {"", ".lock", ".open"})
        ::unlink((std::string(kTarget) + left).c_str());
}

void preferencesWrite(benchmark::State& state) {
    writeStore(state, Flush::later);
}

void preferencesWriteToDisk(benchmark::State& state) {
    writeStore(state, Flush::toDisk);
}

BENCHMARK(plainWriteAndRename)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(preferencesWrite)
    ->Args({10, 10})
    ->Args({100, 100})
    ->Args({1000, 1000})
    ->Args({4999, 4999})
    ->Args({550, 0})
    ->Args({275, 275})
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK(preferencesWriteToDisk)->Args({4999, 4999})->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
} // namespace chromalog
