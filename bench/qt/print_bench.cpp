// Printing a list of swatches to a PDF file, beside drawing the same rectangles and texts on the same device.
// The argument is the number of swatches.
#include "print/page_layout.h"
#include "print/print_support.h"
#include "qt/application_guard.h"
#include "qt/convert.h"
#include "qt/fonts.h"
#include "qt/panels/print_jobs.h"
#include "support/temporary_folder.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <benchmark/benchmark.h>

namespace chromalog {
namespace {

/// The headless desktop with the toolkit's printing.
class PrintingScreen : public test::HeadlessDesktop {
  public:
    StatusLine status;
    PrintJobs jobs{status};
    PrintInfo& sharedPrintInfo() override { return jobs.info; }
    PrintOutcome runPrintOperation(const PrintJob& job) override { return jobs.run(job, nullptr); }
};

struct Offscreen {
    Offscreen() { setenv("QT_QPA_PLATFORM", "offscreen", 0); }
    test::TemporaryFolder folder;
};

/// The toolkit's application is made once its platform is chosen.
struct Setting : Offscreen {
    ApplicationGuard application;
    std::vector<FCOStruct> records = test::numberedSwatches();
    std::string file = folder / "out.pdf";
};

void printList(benchmark::State& state) {
    Setting setting;
    PrintingScreen paper;
    test::PrintingDialog dialog;
    dialog.options = {0, 1, 1, 1};
    CSwatchList list(dialog);
    list.setSwatchList(setting.records.data());
    list.setNumberOfColors(static_cast<std::int16_t>(state.range(0)));
    for (auto _ : state) {
        paper.jobs.nextPdf = setting.file;
        printSwatchList(list, dialog.options, dialog.services, paper);
    }
}

void drawPages(QPainter& painter, QPdfWriter& device, const std::vector<PrintPage>& pages) {
    const double scale = device.resolution() / 72.0;
    painter.scale(scale, scale);
    painter.translate(36, 36);
    painter.setFont(fontFor(kPrintFont));
    painter.setPen(Qt::black);
    for (const PrintPage& page : pages) {
        if (&page != &pages.front()) device.newPage();
        const auto drawLabels = [&](const std::vector<PrintLabel>& labels) {
            for (const PrintLabel& label : labels)
                painter.drawText(QPointF(label.box.x, label.box.y), toQt(label.text));
        };
        for (const PrintCell& cell : page.cells) {
            painter.fillRect(toQt(cell.patch), toQt(cell.colour));
            drawLabels(cell.labels);
        }
        drawLabels(page.footer);
    }
}

void plainDrawing(benchmark::State& state) {
    Setting setting;
    SwatchPrintSetting what;
    what.options = {0, 1, 1, 1};
    what.services = test::closedForm;
    what.date = "date";
    what.userName = "user";
    const auto pages = swatchPages(
        ConstListRecords(setting.records).first(static_cast<std::size_t>(state.range(0))), {540, 720}, what);
    for (auto _ : state) {
        QFile file(QString::fromStdString(setting.file));
        file.open(QIODevice::WriteOnly);
        QPdfWriter device(&file);
        device.setResolution(1200);
        device.setPageLayout(paperOf({}));
        QPainter painter(&device);
        drawPages(painter, device, pages);
        painter.end();
    }
}

#define AT_ALL_COUNTS ->Arg(10)->Arg(100)->Arg(1000)->Arg(4999)->Unit(benchmark::kMillisecond)
BENCHMARK(plainDrawing) AT_ALL_COUNTS;
BENCHMARK(printList) AT_ALL_COUNTS;

} // namespace
} // namespace chromalog
