// Colour differences, the grid of a list and the colours of a picture, each beside its limit.
#include "spaces/ciede2000.h"
#include "spaces/lab_grid.h"
#include "spaces/picture_colours.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace chromalog {
namespace {

using Labs = std::vector<Lab>;

/// Of the colours between two corners of the RGB cube.
Labs randomLabs(unsigned seed, const Rgb& low = {0, 0, 0}, const Rgb& high = {1, 1, 1}) {
    std::mt19937 random(seed);
    const auto between = [&](double from, double to) {
        return from + (to - from) * (random() / 4294967296.0);
    };
    Labs labs;
    for (int i = 0; i < 5000; ++i) {
        const double red = between(low.red, high.red), green = between(low.green, high.green);
        labs.push_back(labOf(Rgb{red, green, between(low.blue, high.blue)}));
    }
    return labs;
}

Labs blues() {
    return randomLabs(4, {0, 0, 0.6}, {0.4, 0.4, 1});
}
Labs violets() {
    return randomLabs(5, {0.5, 0, 0.8}, {0.8, 0.4, 1});
}

void colourDifference(benchmark::State& state) {
    const auto labs = randomLabs(1);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ciede2000(labs[i & 1023], labs[(i * 7 + 1) & 1023]));
        ++i;
    }
}

constexpr double kAny = std::numeric_limits<double>::infinity();

/// Each list against the other, grids and all.
void compare(benchmark::State& state, const Labs& first, const Labs& second, double within) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(nearestOfEach(first, LabGrid(second), within));
        benchmark::DoNotOptimize(nearestOfEach(second, LabGrid(first), within));
    }
}

void compareLists(benchmark::State& state) {
    compare(state, randomLabs(1), randomLabs(2), kAny);
}
void compareNearLists(benchmark::State& state) {
    compare(state, randomLabs(1, {0.2, 0.2, 0.2}, {0.25, 0.25, 0.25}),
            randomLabs(2, {0.2, 0.2, 0.2}, {0.25, 0.25, 0.25}), kAny);
}
void compareEqualLists(benchmark::State& state) {
    compare(state, randomLabs(1), randomLabs(1), kAny);
}
void compareBluesWithViolets(benchmark::State& state) { // where the formula is hardest to bound
    compare(state, blues(), violets(), 5);
}

void nearDoublesOfList(benchmark::State& state) {
    const auto list = randomLabs(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(nearDoubles(list, static_cast<double>(state.range(0))));
}
void fiveNearest(benchmark::State& state) {
    const LabGrid grid(randomLabs(1));
    const auto asked = randomLabs(3);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(grid.nearestFew(asked[i++ & 1023], 5));
}

enum Picture { gradient, noise, flat };

/// 24 megapixels.
std::vector<std::uint32_t> picture(Picture kind) {
    constexpr std::uint32_t width = 6000, height = 4000;
    std::mt19937 random(1);
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t y = 0; y < height; ++y)
        for (std::uint32_t x = 0; x < width; ++x) {
            const std::uint32_t grain = random();
            const std::uint32_t smooth = (x * 200 / width + (grain & 15)) << 16 |
                                         (y * 200 / height + (grain >> 8 & 15)) << 8 |
                                         ((x + y) * 200 / (width + height) + (grain >> 16 & 15));
            const std::uint32_t rgb = kind == gradient ? smooth
                                      : kind == noise  ? grain >> 8
                                                       : x / 1000 * 0x152535;
            pixels.push_back(0xFF000000 | rgb);
        }
    return pixels;
}

void coloursOfPicture(benchmark::State& state) {
    const auto pixels = picture(static_cast<Picture>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            pictureColours(pixels, static_cast<int>(state.range(1)), PictureOrder::amount));
}

BENCHMARK(coloursOfPicture) // at most 400 ms, one core
    ->Args({gradient, 12})
    ->Args({gradient, 64})
    ->Args({noise, 12})
    ->Args({noise, 64})
    ->Args({flat, 12})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(colourDifference)->Unit(benchmark::kNanosecond);
BENCHMARK(compareLists)->Unit(benchmark::kMillisecond); // at most 150 ms, all four
BENCHMARK(compareNearLists)->Unit(benchmark::kMillisecond);
BENCHMARK(compareEqualLists)->Unit(benchmark::kMillisecond);
BENCHMARK(compareBluesWithViolets)->Unit(benchmark::kMillisecond);
BENCHMARK(nearDoublesOfList)->Arg(1)->Arg(5)->Arg(30)->Unit(benchmark::kMillisecond);
BENCHMARK(fiveNearest)->Unit(benchmark::kMicrosecond); // after every pointer move, far below a frame

} // namespace
} // namespace chromalog
