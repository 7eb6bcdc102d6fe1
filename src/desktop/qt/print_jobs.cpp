#include "desktop/qt/print_jobs.h"

#include "desktop/qt/convert.h"
#include "desktop/qt/paint_canvas.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QTemporaryFile>

#include <algorithm>
#include <filesystem>

namespace chromalog {

namespace {

constexpr double pointsPerInch = 72.0;

/// One job on its way: where it goes, with what settings, beside which window.
struct Operation {
    QPrinter& printer;
    PrintPages pages;
    PrintInfo info;
    QWidget* window;
};

void paintSheet(const Operation& job, int index, QPainter& painter) {
    const double scale = job.printer.resolution() / pointsPerInch;
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

/// A truncated file lacks the closing mark: the toolkit does not report a full disk.
bool wholePdf(const QString& path) {
    QFile file(path);
    constexpr qint64 tail = 16;
    if (!file.open(QIODevice::ReadOnly) || file.size() < tail) return false;
    file.seek(file.size() - tail);
    return file.readAll().contains("%%EOF");
}

/// A free name beside the target, so that the finished file can take its place in one step.
QString temporaryBeside(const QString& path) {
    QTemporaryFile file(path + ".XXXXXX");
    file.setAutoRemove(false);
    return file.open() ? file.fileName() : QString();
}

std::pair<int, int> askedSheets(const Operation& job) {
    if (job.printer.printRange() != QPrinter::PageRange) return {0, job.pages.sheets - 1};
    return {std::max(0, job.printer.fromPage() - 1), std::min(job.pages.sheets, job.printer.toPage()) - 1};
}

PrintOutcome toPrinter(const Operation& job) {
    job.printer.setPageLayout(paperOf(job.info));
    job.printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&job.printer)) return PrintOutcome::failed;
    painter.setRenderHint(QPainter::LosslessImageRendering);
    const auto [first, last] = askedSheets(job);
    QProgressDialog progress(QObject::tr("Printing…"), QObject::tr("Cancel"), first, last + 1, job.window);
    progress.setWindowModality(Qt::WindowModal);
    for (int sheet = first; sheet <= last; ++sheet) {
        progress.setValue(sheet); // lets the person press Cancel
        if (progress.wasCanceled()) {
            job.printer.abort();
            return PrintOutcome::cancelled;
        }
        if (sheet > first && !job.printer.newPage()) return PrintOutcome::failed;
        paintSheet(job, sheet, painter);
    }
    progress.setValue(last + 1);
    return painter.end() ? PrintOutcome::printed : PrintOutcome::failed;
}

/// The file takes its name when it is whole. A job that was cancelled or failed leaves an older file of that
/// name be.
PrintOutcome toFile(const Operation& job, const QString& path) {
    const QString temporary = temporaryBeside(path);
    if (temporary.isEmpty()) return PrintOutcome::failed;
    job.printer.setOutputFormat(QPrinter::PdfFormat);
    job.printer.setOutputFileName(temporary);
    PrintOutcome outcome = toPrinter(job);
    if (outcome == PrintOutcome::printed && !wholePdf(temporary)) outcome = PrintOutcome::failed;
    std::error_code error;
    if (outcome == PrintOutcome::printed) {
        QFile::setPermissions(temporary,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
        std::filesystem::rename(fromQt(temporary), fromQt(path), error);
        if (error) outcome = PrintOutcome::failed;
    }
    if (outcome != PrintOutcome::printed) QFile::remove(temporary);
    return outcome;
}

} // namespace

QPageLayout paperOf(const PrintInfo& info) {
    const bool landscape = info.paper.w > info.paper.h;
    const QSizeF portrait(std::min(info.paper.w, info.paper.h), std::max(info.paper.w, info.paper.h));
    QPageLayout layout(QPageSize(portrait, QPageSize::Point, QString(), QPageSize::FuzzyMatch),
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
    printer.setCreator("Chromalog");
    PrintInfo agreed = info;
    QString file = nextPdf ? toQt(*nextPdf) : QString();
    nextPdf.reset();
    if (file.isEmpty()) {
        const auto answer = ask(printer, parent);
        if (!answer) return PrintOutcome::cancelled;
        agreed = *answer;
        file = printer.outputFileName();
    }
    const Operation operation{printer, job.layOut(agreed), agreed, parent};
    if (operation.pages.sheets <= 0) return PrintOutcome::failed;
    return file.isEmpty() ? toPrinter(operation) : toFile(operation, file);
}

} // namespace chromalog
