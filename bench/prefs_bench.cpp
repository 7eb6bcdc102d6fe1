// Writing the preferences file, beside a plain temporary file that is written and renamed.
#include "prefs/preferences_file.h"
#include "prefs/preferences_store.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr const char* kTarget = "prefs_bench.prf";
constexpr const char* kTemporary = "prefs_bench.tmp";

std::unique_ptr<GlobalRecord> recordWith(int colours1, int colours2) {
    auto record = std::make_unique<GlobalRecord>();
    std::mt19937 random(1);
    const auto fill = [&](FCOStruct* list, int count) {
        for (int i = 0; i < count; ++i) {
            list[i].Namen[0] = static_cast<std::uint8_t>(
                std::snprintf(reinterpret_cast<char*>(list[i].Namen) + 1, 255, "Colour %d", i));
            list[i].SRed = random() % 65536;
            list[i].SGreen = random() % 65536;
            list[i].SBlue = random() % 65536;
        }
    };
    fill(record->swatchList1, colours1);
    fill(record->swatchList2, colours2);
    record->numColors1 = static_cast<std::int16_t>(colours1);
    record->numColors2 = static_cast<std::int16_t>(colours2);
    return record;
}

void plainWriteAndRename(benchmark::State& state) {
    const auto record = recordWith(5000, 5000);
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

void preferencesWrite(benchmark::State& state) {
    const auto record = recordWith(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    PreferencesStore store(kTarget);
    for (auto _ : state)
        if (store.write(preferencesImage(*record), kPreferencesZeros, Flush::later).error != 0)
            state.SkipWithError("not written");
    for (const char* left : {"", ".lock", ".open"})
        ::unlink((std::string(kTarget) + left).c_str());
}

BENCHMARK(plainWriteAndRename)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(preferencesWrite)
    ->Args({5000, 5000}) // at most 1.25 of the plain write
    ->Args({550, 0})     // at most 0.5 of it
    ->Args({275, 275})
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

} // namespace
} // namespace chromalog
