// Searching and sorting as the toolkit does it on texts that stand ready, to be read beside ours on the
// records as they are stored.
#include "made_swatches.h"

#include "qt/convert.h"
#include "record/list_store.h"
#include "record/name_text.h"

#include <QSortFilterProxyModel>
#include <QStringListModel>

#include <benchmark/benchmark.h>

#include <vector>

namespace chromalog {
namespace {

QStringList names(int count) {
    std::vector<FCOStruct> records(static_cast<std::size_t>(count));
    makeSwatches(records);
    QStringList texts;
    for (const FCOStruct& record : records)
        texts.append(toQt(macRomanToUtf8(nameBytes(record))));
    return texts;
}

void readyTexts(benchmark::State& state, const char* text) {
    const QStringList texts = names(static_cast<int>(state.range(0)));
    const QString wanted = QString::fromLatin1(text);
    for (auto _ : state) {
        std::vector<int> hits;
        for (int i = 0; i < texts.size(); ++i)
            if (texts[i].contains(wanted)) hits.push_back(i);
        benchmark::DoNotOptimize(hits.data());
    }
}

void proxyFilter(benchmark::State& state, const char* text) {
    QStringListModel model(names(static_cast<int>(state.range(0))));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    const QString wanted = QString::fromLatin1(text);
    for (auto _ : state) {
        state.PauseTiming();
        proxy.setFilterFixedString({});
        proxy.rowCount();
        state.ResumeTiming();
        proxy.setFilterFixedString(wanted);
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}

void proxySort(benchmark::State& state) {
    QStringListModel model(names(static_cast<int>(state.range(0))));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.rowCount();
    for (auto _ : state) {
        state.PauseTiming();
        proxy.sort(-1);
        state.ResumeTiming();
        proxy.sort(0);
        benchmark::DoNotOptimize(proxy.mapToSource(proxy.index(0, 0)).row());
    }
}

#define AT_ALL_COUNTS ->Arg(10)->Arg(100)->Arg(1000)->Arg(4999)
BENCHMARK_CAPTURE(readyTexts, Blue, "Blue") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(readyTexts, e, "e") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(proxyFilter, Blue, "Blue") AT_ALL_COUNTS;
BENCHMARK_CAPTURE(proxyFilter, e, "e") AT_ALL_COUNTS;
BENCHMARK(proxySort) AT_ALL_COUNTS;

} // namespace
} // namespace chromalog
