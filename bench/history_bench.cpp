// Snapshots of the global record beside one copy of it.
#include "history/snapshot_stack.h"
#include "record/global_record.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

using namespace chromalog;

std::unique_ptr<GlobalRecord> fullRecord() {
    auto record = std::make_unique<GlobalRecord>();
    std::mt19937 random(1);
    for (FCOStruct* list : {record->swatchList1, record->swatchList2})
        for (int i = 0; i < 4999; ++i) {
            list[i].Namen[0] = 12;
            for (int k = 1; k <= 12; ++k)
                list[i].Namen[k] = static_cast<std::uint8_t>('a' + random() % 26);
            list[i].SRed = random() % 65536;
        }
    return record;
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
    const auto record = fullRecord();
    SnapshotStack stack([](const UndoAction&) {});
    for (int i = 0; i < 21; ++i)
        push(stack, *record);
    int row = 0;
    for (auto _ : state) {
        record->swatchList1[row++ % 4999].SRed ^= 1;
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
BENCHMARK(stepAfterOneEdit);          // at most 1.3 copies
BENCHMARK(stepAfterAWholeListChange); // at most 1.3 copies
BENCHMARK(firstStepOfAPick);
BENCHMARK(restoring); // at most 1.15 copies

} // namespace
