// Sorting, searching and the nearest colour on 4,999 swatches, each beside the plainest way to do it.
#include "swatches/nearest.h"
#include "swatches/search.h"
#include "swatches/sort.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <numeric>
#include <random>
#include <string>

namespace {

using namespace chromalog;

constexpr int kCount = 4999;

const std::vector<FCOStruct>& swatches() {
    static const std::vector<FCOStruct> list = [] {
        std::vector<FCOStruct> made(kListCapacity);
        std::mt19937 random(3);
        for (FCOStruct& record : made) {
            const std::string name =
                "PANTONE " + std::to_string(random() % 9000) + (random() % 2 ? " C" : " U");
            record.Namen[0] = static_cast<std::uint8_t>(name.size());
            std::copy(name.begin(), name.end(), record.Namen + 1);
            record.SRed = random() % 65536;
            record.SGreen = random() % 65536;
            record.SBlue = random() % 65536;
        }
        return made;
    }();
    return list;
}

/// Each round works on an unsorted copy, made outside the clock.
template <typename Work> void onCopies(benchmark::State& state, Work work) {
    std::vector<FCOStruct> list = swatches();
    for (auto _ : state) {
        state.PauseTiming();
        list = swatches();
        state.ResumeTiming();
        work(ListRecords(list).first(kCount));
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

void searchPlain(benchmark::State& state) {
    std::vector<FCOStruct> list = swatches();
    for (auto _ : state) {
        std::vector<FoundEntry> hits;
        for (int i = 0; i < kCount; ++i) {
            list[i].Namen[1 + list[i].Namen[0]] = 0;
            const std::string_view name = reinterpret_cast<const char*>(list[i].Namen) + 1;
            bool ascii = true;
            for (const char c : name)
                ascii = ascii && static_cast<unsigned char>(c) < 0x80;
            if (ascii && name.find("300") != name.npos)
                hits.push_back({i, static_cast<float>(i) / static_cast<float>(kCount)});
        }
        benchmark::DoNotOptimize(hits.data());
    }
}

void searchOurs(benchmark::State& state) {
    std::vector<FCOStruct> list = swatches();
    for (auto _ : state)
        benchmark::DoNotOptimize(findByName(list, list, kCount, "300").data());
}

void nearestPlain(benchmark::State& state) {
    const auto& list = swatches();
    for (auto _ : state) {
        const float r = 0.3F * 65535, g = 0.2F * 65535, b = 0.7F * 65535;
        float best = 1e13F;
        int index = 0;
        for (int i = 0; i < kCount; ++i) {
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
    const auto& list = swatches();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            nearestSwatch(ConstListRecords(list).first(kCount), Colour::rgb(0.3, 0.2, 0.7)));
}

BENCHMARK(sortByNamePlain);
BENCHMARK(sortByNameOurs); // not slower
BENCHMARK(sortByHuePlain);
BENCHMARK(sortByHueOurs); // not slower
BENCHMARK(searchPlain);
BENCHMARK(searchOurs); // not slower
BENCHMARK(nearestPlain);
BENCHMARK(nearestOurs); // not slower

} // namespace
