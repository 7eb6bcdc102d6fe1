// Sorting, searching and the nearest colour, each beside the plainest way to do it. The argument is the
// number of swatches.
#include "made_swatches.h"

#include "swatches/nearest.h"
#include "swatches/search.h"
#include "swatches/sort.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numeric>
#include <string_view>
#include <vector>

namespace {

using namespace chromalog;

int countOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

std::vector<FCOStruct> swatches() {
    std::vector<FCOStruct> made(kListCapacity);
    makeSwatches(made);
    return made;
}

/// Each round works on an unsorted copy, made outside the clock.
template <typename Work> void onCopies(benchmark::State& state, Work work) {
    const std::vector<FCOStruct> unsorted = swatches();
    std::vector<FCOStruct> list = unsorted;
    for (auto _ : state) {
        state.PauseTiming();
        list = unsorted;
        state.ResumeTiming();
        work(ListRecords(list).first(static_cast<std::size_t>(countOf(state))));
        benchmark::ClobberMemory();
    }
}

template <typename Less> void gatherSorted(ListRecords list, Less less) {
    std::vector<int> order(list.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return less(a, b); });
    std::vector<FCOStruct> sorted;
    sorted.reserve(list.size());
    for (const int i : order)
        sorted.push_back(list[i]);
    std::copy(sorted.begin(), sorted.end(), list.begin());
}

void sortByNamePlain(benchmark::State& state) {
    onCopies(state, [](ListRecords list) {
        gatherSorted(list,
                     [&](int a, int b) { return zeroTerminatedName(list[a]) < zeroTerminatedName(list[b]); });
    });
}

void sortByNameOurs(benchmark::State& state) {
    onCopies(state, sortByName);
}

void sortByHuePlain(benchmark::State& state) {
    onCopies(state, [](ListRecords list) {
        std::vector<float> hues;
        for (const FCOStruct& record : list)
            hues.push_back(hueOf(record));
        gatherSorted(list, [&](int a, int b) { return hues[a] < hues[b]; });
    });
}

void sortByHueOurs(benchmark::State& state) {
    onCopies(state, sortByHue);
}

void searchPlain(benchmark::State& state, std::string_view text) {
    std::vector<FCOStruct> list = swatches();
    const int count = countOf(state);
    for (auto _ : state) {
        std::vector<FoundEntry> hits;
        for (int i = 0; i < count; ++i) {
            list[i].Namen[1 + list[i].Namen[0]] = 0;
            const std::string_view name = reinterpret_cast<const char*>(list[i].Namen) + 1;
            bool ascii = true;
            for (const char c : name)
                ascii = ascii && static_cast<unsigned char>(c) < 0x80;
            if (ascii && name.find(text) != name.npos)
                hits.push_back({i, static_cast<float>(i) / static_cast<float>(count)});
        }
        benchmark::DoNotOptimize(hits.data());
    }
}

void searchOurs(benchmark::State& state, std::string_view text) {
    std::vector<FCOStruct> list = swatches();
    for (auto _ : state)
        benchmark::DoNotOptimize(findByName(list, list, countOf(state), text).data());
}

void nearestPlain(benchmark::State& state) {
    const auto list = swatches();
    for (auto _ : state) {
        const float r = 0.3F * 65535, g = 0.2F * 65535, b = 0.7F * 65535;
        float best = 1e13F;
        int index = 0;
        for (int i = 0; i < countOf(state); ++i) {
            const float x = r - static_cast<float>(list[i].SRed), y = g - static_cast<float>(list[i].SGreen),
                        z = b - static_cast<float>(list[i].SBlue);
            const float s = x * x + y * y + z * z;
            if (s < best) best = s, index = i;
        }
        benchmark::DoNotOptimize(index);
        benchmark::DoNotOptimize(std::sqrt(best));
    }
}

void nearestOurs(benchmark::State& state) {
    const auto list = swatches();
    const auto searched = ConstListRecords(list).first(static_cast<std::size_t>(countOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(nearestSwatch(searched, Colour::rgb(0.3, 0.2, 0.7)));
}

#define AT_ALL_COUNTS ->Arg(10)->Arg(100)->Arg(1000)->Arg(4999)
BENCHMARK(sortByNamePlain) AT_ALL_COUNTS;
BENCHMARK(sortByNameOurs) AT_ALL_COUNTS;
BENCHMARK(sortByHuePlain) AT_ALL_COUNTS;
BENCHMARK(sortByHueOurs) AT_ALL_COUNTS;
BENCHMARK_CAPTURE(searchPlain, Blue, "Blue") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(searchOurs, Blue, "Blue") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(searchPlain, e, "e") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(searchOurs, e, "e") AT_ALL_COUNTS;
BENCHMARK(nearestPlain) AT_ALL_COUNTS;
BENCHMARK(nearestOurs) AT_ALL_COUNTS;

} // namespace
