// Snapshots of the global record beside one copy of it.
#include "made_swatches.h"

#include "history/snapshot_stack.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

namespace {

using namespace chromalog;

constexpr int kCount = 4999;

std::unique_ptr<GlobalRecord> fullRecord() {
    return recordWith(kCount, kCount);
}

std::span<std::byte> bytesOf(GlobalRecord& record) {
    return std::as_writable_bytes(std::span(&record, 1));
}

void copyOfTheRecord(benchmark::State& state) {
    const auto record = fullRecord();
    const auto copy = std::make_unique<GlobalRecord>();
    for (auto _ : state) {
        record->swatchList1[0].SRed ^= 1;
        std::memcpy(copy.get(), record.get(), sizeof *record);
        benchmark::DoNotOptimize(copy.get());
        benchmark::ClobberMemory();
    }
}

void push(SnapshotStack& stack, GlobalRecord& record) {
    stack.setLevelLimit(20);
    stack.beginGroup();
    stack.registerUndo({std::make_shared<Snapshot>(bytesOf(record), stack.latest()), "step"});
    stack.endGroup();
}

void stepAfterOneEdit(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const auto record = recordWith(count, count);
    SnapshotStack stack([](const UndoAction&) {});
    for (int i = 0; i < 21; ++i)
        push(stack, *record);
    int row = 0;
    for (auto _ : state) {
        record->swatchList1[row++ % count].SRed ^= 1;
        push(stack, *record);
    }
    state.counters["stored"] = static_cast<double>(stack.storedBytes());
}

void stepAfterAWholeListChange(benchmark::State& state) {
    const auto record = fullRecord();
    SnapshotStack stack([](const UndoAction&) {});
    const auto change = [&] {
        for (FCOStruct& swatch : record->swatchList1)
            swatch.SRed ^= 1, ++swatch.Namen[1];
    };
    for (int i = 0; i < 21; ++i) {
        change();
        push(stack, *record);
    }
    for (auto _ : state) {
        state.PauseTiming();
        change();
        state.ResumeTiming();
        push(stack, *record);
    }
    state.counters["stored"] = static_cast<double>(stack.storedBytes());
}

void firstStepOfAPick(benchmark::State& state) {
    const auto record = fullRecord();
    for (auto _ : state) {
        Snapshot snapshot(bytesOf(*record), nullptr);
        benchmark::DoNotOptimize(&snapshot);
        state.PauseTiming();
        { const Snapshot gone = std::move(snapshot); }
        state.ResumeTiming();
    }
}

void restoring(benchmark::State& state) {
    const auto record = fullRecord();
    const Snapshot snapshot(bytesOf(*record), nullptr);
    for (auto _ : state) {
        snapshot.restore(bytesOf(*record));
        benchmark::ClobberMemory();
    }
}

BENCHMARK(copyOfTheRecord);
BENCHMARK(stepAfterOneEdit)->Arg(10)->Arg(100)->Arg(1000)->Arg(kCount);
BENCHMARK(stepAfterAWholeListChange);
BENCHMARK(firstStepOfAPick);
BENCHMARK(restoring);

} // namespace
