#include "qt/panels/print_jobs.h"

#include "base/translated.h"
#include "files/file_io.h"
#include "files/size_limit_signal.h"
#include "qt/convert.h"
#include "qt/paint_canvas.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>

#include <algorithm>
#include <cerrno>

namespace chromalog {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr int pdfResolution = 1200;
constexpr const char* creator = "Chromalog";

/// One job on its way: what is printed, with what settings, and the sheets that were asked for.
struct Operation {
    QString title;
    PrintPages pages;
    PrintInfo info;
    int first = 0;
    int last = 0;
};

void paintSheet(const Operation& job, int index, QPainter& painter) {
    const double scale = painter.device()->logicalDpiX() / pointsPerInch;
    painter.save();
    painter.scale(scale, scale);
    painter.translate(job.info.left, job.info.top);
    painter.scale(job.info.scale, job.info.scale);
    const Rect sheet{0, 0, job.pages.sheet.w, job.pages.sheet.h};
    painter.setClipRect(toQt(sheet));
    PaintCanvas canvas(painter, {sheet, true, sheet, false, true});
    job.pages.paint(index, canvas);
    painter.restore();
}

/// Paints the sheets one after the other. `goOn` is asked before each of them.
template <typename GoOn>
PrintOutcome paintSheets(const Operation& job, QPagedPaintDevice& device, GoOn goOn) {
    QPainter painter;
    if (!painter.begin(&device)) return PrintOutcome::failed;
    painter.setRenderHint(QPainter::LosslessImageRendering);
    for (int sheet = job.first; sheet <= job.last; ++sheet) {
        if (!goOn(sheet)) return PrintOutcome::cancelled;
        if (sheet > job.first && !device.newPage()) return PrintOutcome::failed;
        paintSheet(job, sheet, painter);
    }
    return painter.end() ? PrintOutcome::printed : PrintOutcome::failed;
}

/// Makes a PDF document of the job in memory, where a person can cancel it without a trace.
PrintOutcome makePdf(const Operation& job, QByteArray& document, QWidget* window) {
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(job.title);
    writer.setCreator(creator);
    writer.setResolution(pdfResolution);
    writer.setPageLayout(paperOf(job.info, QPageSize::ExactMatch));
    QProgressDialog progress(toQt(translated("Printing…")), toQt(translated("Cancel")), job.first,
                             job.last + 1, window);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    return paintSheets(job, writer, [&](int sheet) {
        progress.setValue(sheet); // lets the person press Cancel
        return !progress.wasCanceled();
    });
}

PrintOutcome toFile(const Operation& job, const QString& path, QWidget* window, StatusLine& status) {
    QByteArray document;
    const PrintOutcome outcome = makePdf(job, document, window);
    if (outcome != PrintOutcome::printed) return outcome;
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(document.constData()),
                          std::size_t(document.size()));
    if (writeDataToFileAtURL(fromQt(path), bytes)) return PrintOutcome::printed;
    status.sayNotWritten(StatusLine::About::printing, fromQt(path), reasonOf(errno));
    return PrintOutcome::failed;
}

/// A printer is sent what was painted even when the job ends half-way, so it is painted only after the person
/// had the chance to cancel.
PrintOutcome toPrinter(const Operation& job, QPrinter& printer, QWidget* window) {
    QByteArray rehearsal;
    const PrintOutcome outcome = makePdf(job, rehearsal, window);
    if (outcome != PrintOutcome::printed) return outcome;
    const SizeLimitSignalBlock onlyFails; // the spool file may be too long
    printer.setPageLayout(paperOf(job.info));
    printer.setFullPage(true);
    return paintSheets(job, printer, [](int) { return true; });
}

void takeAskedSheets(Operation& job, const QPrinter& printer) {
    job.last = job.pages.sheets - 1;
    if (printer.printRange() != QPrinter::PageRange) return;
    job.first = std::max(0, printer.fromPage() - 1);
    job.last = std::min(job.last, printer.toPage() - 1);
}

} // namespace

QPageLayout paperOf(const PrintInfo& info, QPageSize::SizeMatchPolicy match) {
    const bool landscape = info.paper.w > info.paper.h;
    const QSizeF portrait(std::min(info.paper.w, info.paper.h), std::max(info.paper.w, info.paper.h));
    QPageLayout layout(QPageSize(portrait, QPageSize::Point, QString(), match),
                       landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

std::optional<PrintInfo> PrintJobs::ask(QPrinter& printer, QWidget* parent) const {
    const QPageLayout offered = paperOf(info);
    printer.setPageLayout(offered);
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    PrintInfo agreed = info;
    const QSize paper = printer.pageLayout().fullRectPoints().size();
    if (paper != offered.fullRectPoints().size())
        agreed.paper = {double(paper.width()), double(paper.height())};
    return agreed;
}

PrintOutcome PrintJobs::run(const PrintJob& job, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(toQt(job.title));
    printer.setCreator(creator);
    PrintInfo agreed = info;
    QString file = nextPdf ? toQt(*nextPdf) : QString();
    nextPdf.reset();
    if (file.isEmpty()) {
        const auto answer = ask(printer, parent);
        if (!answer) return PrintOutcome::cancelled;
        agreed = *answer;
        file = printer.outputFileName();
    }
    Operation operation{toQt(job.title), job.layOut(agreed), agreed};
    takeAskedSheets(operation, printer);
    if (operation.first > operation.last)
        return PrintOutcome::failed; // no sheets, or none of those asked for
    status_.takeBack(StatusLine::About::printing);
    return file.isEmpty() ? toPrinter(operation, printer, parent) : toFile(operation, file, parent, status_);
}

} // namespace chromalog
