// Palettes of every kind, read and written, and the program that converts them.
#include "palettes/fit_palette.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr int kColours = 5000;

Palette madePalette() {
    Palette palette;
    palette.title = "Made";
    for (unsigned i = 0; i < kColours; ++i) {
        PaletteColour colour;
        colour.name = "Colour number " + std::to_string(i);
        const unsigned mixed = i * 2654435761u;
        for (std::size_t c = 0; c < 3; ++c)
            colour.components[c] = (mixed >> (8 * c) & 0xFF) / 255.0;
        palette.colours.push_back(std::move(colour));
    }
    return palette;
}

Palette fitted(PaletteFormat format) {
    const auto noInk = [](const PaletteComponents&) { return Rgb(); };
    return fitPalette(madePalette(), format, noInk).palette;
}

void readPalette(benchmark::State& state, const PaletteFormatRules& rules) {
    const auto file = rules.write(fitted(rules.format));
    for (auto _ : state)
        benchmark::DoNotOptimize(rules.read(file));
}

void writePalette(benchmark::State& state, const PaletteFormatRules& rules) {
    const Palette palette = fitted(rules.format);
    for (auto _ : state)
        benchmark::DoNotOptimize(rules.write(palette));
}

/// From exec to exit.
void runs(benchmark::State& state, std::vector<std::string> words) {
    std::vector<char*> command;
    for (std::string& word : words)
        command.push_back(word.data());
    command.push_back(nullptr);
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        const bool started =
            ::posix_spawnp(&child, command[0], nullptr, nullptr, command.data(), environ) == 0;
        if (!started || ::waitpid(child, &status, 0) != child || status != 0)
            return state.SkipWithError("the program failed");
    }
}

/// A file of 5,000 colours that a command makes a GIMP palette of.
void converts(benchmark::State& state, std::vector<std::string> words) {
    const auto folder = std::filesystem::temp_directory_path();
    const std::string in = folder / "palettes_bench.ase", out = folder / "palettes_bench.gpl";
    const auto file = rulesOf(PaletteFormat::ase).write(fitted(PaletteFormat::gpl));
    std::ofstream(in, std::ios::binary)
        .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    words.insert(words.end(), {in, out});
    runs(state, words);
    std::filesystem::remove(in);
    std::filesystem::remove(out);
}

void convertAFile(benchmark::State& state) {
    converts(state, {CHROMALOG_PROGRAM, "convert"});
}
BENCHMARK(convertAFile)->UseRealTime();

/// The packages that dev/cross_check installs.
void convertByNode(benchmark::State& state) {
    const std::string packages = CHROMALOG_PACKAGES;
    if (!std::filesystem::exists(packages + "/node_modules/ase-utils"))
        return state.SkipWithError("not installed");
    converts(state, {"node", packages + "/convert.cjs"});
}
BENCHMARK(convertByNode)->UseRealTime();

void execOfTrue(benchmark::State& state) {
    runs(state, {"true"});
}
BENCHMARK(execOfTrue)->UseRealTime();

void execOfNode(benchmark::State& state) {
    if (std::system("command -v node >/dev/null") != 0) return state.SkipWithError("not installed");
    runs(state, {"node", "-e", "0"});
}
BENCHMARK(execOfNode)->UseRealTime();

[[maybe_unused]] const bool registered = [] {
    for (const PaletteFormatRules& rules : paletteFormats()) {
        const std::string word(rules.word);
        if (rules.read) benchmark::RegisterBenchmark(("readPalette/" + word).c_str(), readPalette, rules);
        benchmark::RegisterBenchmark(("writePalette/" + word).c_str(), writePalette, rules);
    }
    return true;
}();

} // namespace
} // namespace chromalog
