// What a person waits for in the whole dialog: one drop, and one drag event on the strip, up to the painted
// frame.
#include "long_lists_dialog.h"

#include "base/colour.h"
#include "qt/drags.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace chromalog {
namespace {

void mouse(QWidget& widget, QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, widget.mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void dropOn(QWidget& widget, QPointF at, const QMimeData& data) {
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// The argument is the number of swatches in each list.
void drop(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    LongListsDialog dialog(count);
    dialog.open();
    Pasteboard colour;
    colour.colourType = colour.textType = true;
    colour.colour = Colour::rgb(0, 1, 0.5); // near to no swatch
    colour.text = "Dropped";
    const ColourMime data(colour);
    QWidget &source = dialog.view("swatch2"), &target = dialog.view("swatch1");
    for (auto _ : state) {
        mouse(source, QEvent::MouseButtonPress, {20, 40});
        mouse(source, QEvent::MouseButtonRelease, {20, 40});
        dropOn(target, {20, 60}, data);
        dialog.paint();
        state.PauseTiming();
        CSwatchList& list = dialog.controler->panels().one.view;
        if (list.getNumberOfColors() != count + 1) state.SkipWithError("not inserted");
        list.setSelectedColor(2);
        list.deleteEntry();
        dialog.paint();
        dialog.desktop->finishBackground(); // people take longer than the write between two drops
        state.ResumeTiming();
    }
}

/// One movement a round, up and down the strip of a dialog that is shown.
void drag(benchmark::State& state, LongListsDialog& dialog) {
    QWidget& strip = dialog.view("lumiView");
    mouse(strip, QEvent::MouseButtonPress, {5, 5});
    dialog.paint();
    double at = 5;
    for (auto _ : state) {
        at = at < strip.height() - 6 ? at + 1 : 5;
        mouse(strip, QEvent::MouseMove, {5, at});
        dialog.paint();
    }
    state.counters["wheel"] = dialog.view("chromaView").width();
}

/// The arguments are the number of swatches in each list, and the wheel's size.
void stripDrag(benchmark::State& state) {
    LongListsDialog dialog(static_cast<int>(state.range(0)));
    const int wheel = static_cast<int>(state.range(1));
    dialog.view("chromaView").setFixedSize(wheel, wheel);
    dialog.open();
    drag(state, dialog);
}

/// With the panel of the nearest swatches, and with those under the wells.
void stripDragWithNearest(benchmark::State& state) {
    LongListsDialog dialog(static_cast<int>(state.range(0)));
    dialog.open();
    for (const char* item : {"itemNearestSwatches", "itemNearestUnder"})
        dialog.window().findChild<QAction*>(item)->trigger();
    dialog.paint();
    drag(state, dialog);
    if (!dialog.view("nearQuadri").isVisible() || !dialog.view("nearestRows").isVisible())
        state.SkipWithError("not shown");
}

/// The arguments are the window's size.
void openAtSize(LongListsDialog& dialog, const benchmark::State& state) {
    dialog.open();
    dialog.window().resize(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    dialog.paint();
}

void stripDragInWindow(benchmark::State& state) {
    LongListsDialog dialog(4999);
    openAtSize(dialog, state);
    drag(state, dialog);
}

void stripDragWithToneChart(benchmark::State& state) {
    LongListsDialog dialog(4999);
    openAtSize(dialog, state);
    dialog.showToneChart();
    drag(state, dialog);
    state.counters["chart"] = dialog.view("myToneView").width();
}

/// Inks by the plainest formula, and less of them than there are colours.
std::int16_t convert(ColorServicesInfo* info) {
    std::int16_t* c = info->colorComponents;
    if (info->resultSpace != plugIncolorServicesCMYKSpace) return 0;
    const int least = std::min({c[0], c[1], c[2]});
    for (int i = 0; i < 3; ++i)
        c[i] = static_cast<std::int16_t>(std::min<int>(c[i], least + 120));
    c[3] = 255;
    return 0;
}

/// A dialog whose host converts, with nothing or all of the menu "Tools" shown.
class JudgingDialog : public LongListsDialog {
  public:
    JudgingDialog(int wheel, bool shown) : LongListsDialog(4999, convert) {
        view("chromaView").setFixedSize(wheel, wheel);
        open();
        for (const char* item : {"itemContrast", "itemCustomAngle", "itemGamutWarning"})
            if (shown) window().findChild<QAction*>(item)->trigger();
        for (int turn = 0; turn < 1000; ++turn)
            paint(); // the first outline is found
    }
};

/// The arguments are the wheel's size, and whether the tools are shown.
void stripDragJudged(benchmark::State& state) {
    JudgingDialog dialog(static_cast<int>(state.range(0)), state.range(1) != 0);
    drag(state, dialog);
}

/// One movement on the wheel a round, up to the painted frame.
void wheelDragJudged(benchmark::State& state) {
    JudgingDialog dialog(static_cast<int>(state.range(0)), state.range(1) != 0);
    QWidget& wheel = dialog.view("chromaView");
    const double middle = wheel.width() / 2.0;
    mouse(wheel, QEvent::MouseButtonPress, {middle, middle});
    int moves = 0;
    for (auto _ : state) {
        const int along = ++moves % (wheel.width() / 2);
        mouse(wheel, QEvent::MouseMove, {middle - along / 2.0, middle + along / 3.0});
        dialog.paint();
    }
}

#define AT_ALL_WINDOWS                                                                                       \
    ->Args({1200, 800})->Args({1600, 1200})->Args({2560, 1440})->Unit(benchmark::kMillisecond)->UseRealTime()

BENCHMARK(drop)->Arg(10)->Arg(100)->Arg(1000)->Arg(4999)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(stripDrag)
    ->ArgsProduct({{10, 100, 1000, 4999}, {512}})
    ->ArgsProduct({{4999}, {128, 256, 1024, 2048}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(stripDragJudged)->ArgsProduct({{512}, {0, 1}})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(wheelDragJudged)->ArgsProduct({{512}, {0, 1}})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(stripDragWithNearest)->Arg(4999)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(stripDragInWindow) AT_ALL_WINDOWS;
BENCHMARK(stripDragWithToneChart) AT_ALL_WINDOWS;

} // namespace
} // namespace chromalog
