#pragma once

#include "desktop/printing.h"
#include "desktop/status_line.h"

#include <QPageLayout>

#include <optional>
#include <string>

class QPainter;
class QPrinter;
class QWidget;

namespace chromalog {

/// The paper of the shared settings, without margins: a job places its printable area itself, to the point.
/// An exact match keeps a size that is nearly that of a named paper, which printers rather take.
QPageLayout paperOf(const PrintInfo&, QPageSize::SizeMatchPolicy = QPageSize::FuzzyMatch);

/// Runs print jobs: to the printer of the print dialog, or to a PDF file that was named beforehand.
class PrintJobs {
  public:
    explicit PrintJobs(StatusLine& status) : status_(status) {}

    PrintInfo info;                     ///< shared settings
    std::optional<std::string> nextPdf; ///< the next job goes there without asking

    PrintOutcome run(const PrintJob&, QWidget* parent);

  private:
    std::optional<PrintInfo> ask(QPrinter&,
                                 QWidget* parent) const; ///< the settings that the person agreed to

    StatusLine& status_; ///< says which file was not written
};

} // namespace chromalog
