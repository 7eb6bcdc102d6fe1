// What a person waits for in the whole dialog: one drop, and one drag event on the strip, up to the painted
// frame.
#include "abi/picker_record.h"
#include "base/colour.h"
#include "dialog/chromalog_controler.h"
#include "qt/application_guard.h"
#include "qt/drags.h"
#include "qt/qt_desktop.h"
#include "qt/view_widget.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace chromalog {
namespace {

constexpr std::int16_t kCount = 4999;

struct Offscreen {
    Offscreen() { setenv("QT_QPA_PLATFORM", "offscreen", 0); }
    test::TemporaryFolder folder;
};

/// The dialog on the toolkit's platform without a screen, with two long lists and a data folder of its own.
class Dialog : Offscreen {
  public:
    Dialog() {
        record->pickerRecord = &picker;
        for (FCOStruct* list : {record->swatchList1, record->swatchList2})
            for (int i = 0; i < kCount; ++i) {
                list[i].Namen[0] = static_cast<std::uint8_t>(
                    std::snprintf(reinterpret_cast<char*>(list[i].Namen) + 1, 255, "Colour %d", i));
                list[i].SRed = i * 13;
            }
        record->numColors1 = record->numColors2 = kCount;
        QtDesktopSettings settings;
        settings.dataDirectory = folder.path();
        desktop = std::make_unique<QtDesktop>(settings);
        controler = std::make_unique<ChromalogControler>(*record, *desktop);
        view("chromaView").setMinimumSize(512, 512);
        view("chromalogWindow").show();
        paint();
    }

    QWidget& view(const char* outlet) { return *desktop->widget(outlet); }
    void mouse(QWidget& widget, QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, widget.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
    void drop(QWidget& widget, QPointF at, const QMimeData& data) {
        QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &enter);
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
    void paint() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    ApplicationGuard application;
    PickerRecord picker{};
    std::unique_ptr<GlobalRecord> record = std::make_unique<GlobalRecord>();
    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<ChromalogControler> controler;
};

void drop(benchmark::State& state) {
    Dialog dialog;
    Pasteboard colour;
    colour.colourType = colour.textType = true;
    colour.colour = Colour::rgb(0, 1, 0.5); // near to no swatch
    colour.text = "Dropped";
    const ColourMime data(colour);
    QWidget &source = dialog.view("swatch2"), &target = dialog.view("swatch1");
    for (auto _ : state) {
        dialog.mouse(source, QEvent::MouseButtonPress, {20, 40});
        dialog.mouse(source, QEvent::MouseButtonRelease, {20, 40});
        dialog.drop(target, {20, 60}, data);
        dialog.paint();
        state.PauseTiming();
        CSwatchList& list = dialog.controler->panels().one.view;
        if (list.getNumberOfColors() != kCount + 1) state.SkipWithError("not inserted");
        list.setSelectedColor(2);
        list.deleteEntry();
        dialog.paint();
        state.ResumeTiming();
    }
}

void stripDrag(benchmark::State& state) {
    Dialog dialog;
    QWidget& strip = dialog.view("lumiView");
    dialog.mouse(strip, QEvent::MouseButtonPress, {5, 5});
    dialog.paint();
    double at = 5;
    for (auto _ : state) {
        at = at < strip.height() - 6 ? at + 1 : 5;
        dialog.mouse(strip, QEvent::MouseMove, {5, at});
        dialog.paint();
    }
    state.counters["wheel"] = dialog.view("chromaView").width();
}

BENCHMARK(drop)->Unit(benchmark::kMillisecond);      // under 8 ms at the median
BENCHMARK(stripDrag)->Unit(benchmark::kMillisecond); // under 4 ms at the median

} // namespace
} // namespace chromalog
