#pragma once

#include "base/geometry.h"
#include "desktop/canvas.h"

#include <functional>
#include <string>

namespace chromalog {

/// Print settings: the shared ones, or those of one operation. Lengths in points; margins leave the printable
/// area.
struct PrintInfo {
    Size paper{612, 792};
    double left = 36, right = 36, top = 36, bottom = 36;
    double scale = 1.0;

    /// The paper without its margins.
    Size printable() const { return {paper.w - left - right, paper.h - top - bottom}; }
    /// The same as a job draws it, before the scale is applied; in single precision.
    Size page() const {
        const float s = scale > 0 ? static_cast<float>(scale) : 1.0F;
        return {static_cast<float>(printable().w / s), static_cast<float>(printable().h / s)};
    }
};

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
