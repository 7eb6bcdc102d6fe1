#pragma once

#include "desktop/canvas.h"
#include "desktop/geometry.h"

#include <functional>
#include <string>

namespace chromalog {

/// The shared print settings. Lengths in points; margins leave the printable area.
struct PrintInfo {
    Size paper{612, 792};
    double left = 36, right = 36, top = 36, bottom = 36;
    double scale = 1.0;
};

/// A print job: `sheets` pages, each painted on its own canvas of `sheet` points, y down, origin top left of
/// the printable area, before the print scale is applied.
struct PrintJob {
    std::string title;
    int sheets = 1;
    Size sheet;
    std::function<void(int index, Canvas&)> paint;
};

enum class PrintOutcome { printed, cancelled, failed };

} // namespace chromalog
