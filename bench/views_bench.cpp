// The wheel's picture beside a memset of the same bytes and beside the plain algorithm; a whole drag event on
// the strip as far as it does not need the toolkit.
#include "views/chromatic_circle_view.h"
#include "views/luminosity_view.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

using namespace chromalog;

/// Brightnesses as a drag over a strip of some hundred points gives them.
float brightnessOf(std::int64_t event) {
    return static_cast<float>(1 + event * 37 % 509) / 510;
}

void memsetOfTheSameBytes(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    std::vector<std::uint32_t> pixels(size * size);
    int byte = 0;
    for (auto _ : state) {
        std::memset(pixels.data(), ++byte, 4 * pixels.size());
        benchmark::ClobberMemory();
    }
}

void wheelRebuild(benchmark::State& state) {
    const int size = static_cast<int>(state.range(0));
    WheelPicture picture;
    picture.render(size, 1);
    std::int64_t event = 0;
    for (auto _ : state) {
        picture.render(size, brightnessOf(++event));
        benchmark::DoNotOptimize(picture.bitmap().pixels.data());
        benchmark::ClobberMemory();
    }
}

void wheelFirstBuild(benchmark::State& state) {
    std::int64_t event = 0;
    for (auto _ : state) {
        WheelPicture picture;
        picture.render(static_cast<int>(state.range(0)), brightnessOf(++event));
        benchmark::DoNotOptimize(picture.bitmap().pixels.data());
    }
}

void wheelPlain(benchmark::State& state) {
    std::int64_t event = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(plainWheelPicture(static_cast<int>(state.range(0)), brightnessOf(++event)));
}

/// Stands in for the dialog between strip and wheel.
class Dialog {
  public:
    WorkingColours colours{nullptr};
    chromaticCircleView wheel{colours};
    luminosityView strip{colours};

    Dialog() {
        colours.zeroInit();
        colours.setSecondColor(Colour::hsb(0.3, 0.7, 1));
        colours.setLuminosity(1);
        colours.quadriOn();
        colours.changed = [this](Cause cause) {
            if (cause != Cause::luminosity) return;
            wheel.drawOnce();
            wheel.setHarmonyColors();
        };
    }
};

void stripEventWithoutPainting(benchmark::State& state) {
    Dialog dialog;
    const double size = static_cast<double>(state.range(0));
    dialog.wheel.layOut({0, 0, size, size});
    dialog.strip.layOut({0, 0, 30, size});
    dialog.wheel.drawOnce();
    dialog.wheel.setCursorWithColor(dialog.colours.getSecondColor());
    std::int64_t event = 0;
    for (auto _ : state)
        dialog.strip.mouseDragged({{15, brightnessOf(++event) * size}});
}

#define AT_ALL_SIZES(what)                                                                                   \
    BENCHMARK(what)->RangeMultiplier(2)->Range(128, 2048)->Unit(benchmark::kMicrosecond)
AT_ALL_SIZES(memsetOfTheSameBytes);
AT_ALL_SIZES(wheelRebuild);
AT_ALL_SIZES(wheelFirstBuild);
AT_ALL_SIZES(wheelPlain);
AT_ALL_SIZES(stripEventWithoutPainting);

} // namespace
