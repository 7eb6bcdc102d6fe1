#pragma once

#include "base/print_info.h"
#include "desktop/canvas.h"

#include <functional>
#include <string>

namespace chromalog {

/// A job laid out: `sheets` pages, each painted on its own canvas of `sheet` points, y down, origin top left
/// of the printable area, clipped to the sheet, before the scale is applied. No sheets: the paper has no room
/// for the job.
struct PrintPages {
    int sheets = 0;
    Size sheet;
    std::function<void(int index, Canvas&)> paint;
};

/// What is printed. It is laid out once, for the settings that the operation runs with: a person may change
/// them in the print dialog.
struct PrintJob {
    std::string title;
    std::function<PrintPages(const PrintInfo&)> layOut;
};

enum class PrintOutcome { printed, cancelled, failed };

} // namespace chromalog
