// Undo as the toolkit offers it: its stack, with commands that hold the whole record as a byte array.
#include "made_swatches.h"

#include <QByteArray>
#include <QUndoStack>

#include <benchmark/benchmark.h>

#include <cstring>

namespace chromalog {
namespace {

class RecordCommand : public QUndoCommand {
  public:
    explicit RecordCommand(GlobalRecord& record)
        : record_(record), before_(reinterpret_cast<const char*>(&record), sizeof record) {}
    void undo() override { std::memcpy(static_cast<void*>(&record_), before_.constData(), sizeof record_); }
    void redo() override {} // the change is made before the command is pushed

  private:
    GlobalRecord& record_;
    QByteArray before_;
};

void undoStackStep(benchmark::State& state) {
    const auto record = recordWith(4999, 4999);
    QUndoStack stack;
    stack.setUndoLimit(20);
    for (int i = 0; i < 21; ++i)
        stack.push(new RecordCommand(*record));
    int row = 0;
    for (auto _ : state) {
        record->swatchList1[row++ % 4999].SRed ^= 1;
        stack.push(new RecordCommand(*record));
    }
}

void undoStackRestoring(benchmark::State& state) {
    const auto record = recordWith(4999, 4999);
    QUndoStack stack;
    stack.push(new RecordCommand(*record));
    for (auto _ : state) {
        stack.undo();
        stack.redo();
        benchmark::ClobberMemory();
    }
}

BENCHMARK(undoStackStep);
BENCHMARK(undoStackRestoring);

} // namespace
} // namespace chromalog
