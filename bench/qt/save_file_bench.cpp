// Replacing a file as the toolkit does it, down to the disk, with the bytes that ours writes.
#include "made_swatches.h"

#include "formats/aco_writer.h"
#include "prefs/preferences_layout.h"
#include "support/temporary_folder.h"

#include <QSaveFile>

#include <benchmark/benchmark.h>

#include <vector>

namespace chromalog {
namespace {

void save(benchmark::State& state, const std::vector<std::uint8_t>& bytes) {
    const test::TemporaryFolder folder;
    const auto size = static_cast<qint64>(bytes.size());
    for (auto _ : state) {
        QSaveFile file(QString::fromStdString(folder / "saved"));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(reinterpret_cast<const char*>(bytes.data()), size) != size || !file.commit())
            state.SkipWithError("not written");
    }
}

void savePreferencesBytes(benchmark::State& state) {
    save(state, std::vector<std::uint8_t>(kPreferencesSize, 1));
}

void saveSwatchFileBytes(benchmark::State& state) {
    std::vector<FCOStruct> records(4999);
    makeSwatches(records);
    std::vector<std::uint8_t> bytes;
    writeAco(bytes, records, 4999);
    save(state, bytes);
}

BENCHMARK(savePreferencesBytes)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(saveSwatchFileBytes)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace chromalog
