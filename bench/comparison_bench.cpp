// Two lists beside one another, from their records to the lines of the result. The first argument is the
// number of swatches in each, the second the difference up to which two count as one.
#include "made_swatches.h"

#include "comparison/list_colours.h"
#include "comparison/list_comparison.h"

#include <benchmark/benchmark.h>

namespace {

using namespace chromalog;

struct Lists {
    std::unique_ptr<GlobalRecord> record;
    ConstListRecords one, two;

    explicit Lists(const benchmark::State& state)
        : record(recordWith(static_cast<int>(state.range(0)), static_cast<int>(state.range(0)))),
          one(ConstListRecords(record->swatchList1).first(static_cast<std::size_t>(state.range(0)))),
          two(ConstListRecords(record->swatchList2).first(static_cast<std::size_t>(state.range(0)))) {
        for (FCOStruct& swatch : record->swatchList2) { // the two are made alike: some differ, most are near
            swatch.SRed = swatch.SRed * 15 / 16;
            swatch.SGreen = swatch.SGreen * 31 / 32;
        }
    }
};

void compare(benchmark::State& state) {
    const Lists lists(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            comparedRows(compareLists(labsOf(lists.one), labsOf(lists.two), double(state.range(1))),
                         ComparisonView::both));
}

void doubles(benchmark::State& state) {
    const Lists lists(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(comparedRows(findDoubles(labsOf(lists.one), 0, double(state.range(1))),
                                              ComparisonView::doublesOne));
}

/// What the first question after an edit waits for.
void madeAnew(benchmark::State& state) {
    const Lists lists(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(LabGrid(labsOf(lists.one)));
}

/// The five nearest of both lists, and the nearest to each of the twelve wells.
void followed(benchmark::State& state) {
    const Lists lists(state);
    const LabGrid one(labsOf(lists.one)), two(labsOf(lists.two));
    const auto asked = labsOf(recordWith(4999, 0)->swatchList1);
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(one.nearestFew(asked[at % 4999], 5));
        benchmark::DoNotOptimize(two.nearestFew(asked[at % 4999], 5));
        for (int well = 0; well < 12; ++well) {
            benchmark::DoNotOptimize(one.nearest(asked[at % 4999]));
            benchmark::DoNotOptimize(two.nearest(asked[at++ % 4999]));
        }
    }
}

BENCHMARK(compare)->ArgsProduct({{4999}, {0, 2, 20}})->Unit(benchmark::kMillisecond);
BENCHMARK(doubles)->ArgsProduct({{4999}, {2, 20}})->Unit(benchmark::kMillisecond);
BENCHMARK(madeAnew)->Arg(4999)->Unit(benchmark::kMillisecond);
BENCHMARK(followed)->Arg(4999)->Unit(benchmark::kMillisecond);

} // namespace
