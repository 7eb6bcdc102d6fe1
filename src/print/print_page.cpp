#include "print/print_page.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr double kHair = 1e-6; ///< what rounding may push over the sheet's edge; points

bool onSheet(const Rect& r, const Rect& sheet) {
    return r.w > 0 && r.h > 0 && r.x + kHair < sheet.x + sheet.w && r.x + r.w > sheet.x &&
           r.y + kHair < sheet.y + sheet.h && r.y + r.h > sheet.y;
}

/// A line left of the sheet may reach into it: its length is not known here.
bool onSheet(const PrintLabel& label, const Rect& sheet) {
    return label.box.x + kHair < sheet.x + sheet.w && label.box.y - kPrintFont.size < sheet.y + sheet.h &&
           label.box.y + kPrintFont.size > sheet.y;
}

void paintLabels(const std::vector<PrintLabel>& labels, const Rect& sheet, Canvas& canvas) {
    if (labels.empty()) return;
    canvas.setFill(Colour());
    for (const PrintLabel& label : labels)
        if (onSheet(label, sheet)) canvas.drawText({label.box.x, label.box.y}, label.text, kPrintFont, 0);
}

} // namespace

void paintPage(const PrintPage& page, Canvas& canvas) {
    const Rect sheet = canvas.clipBounds();
    for (const PrintCell& cell : page.cells) {
        if (onSheet(cell.patch, sheet)) {
            canvas.setFill(cell.colour);
            canvas.fillRect(cell.patch);
        }
        paintLabels(cell.labels, sheet, canvas);
    }
    paintLabels(page.footer, sheet, canvas);
}

std::uint8_t printedByte(double component) {
    const double value = component * 255.0;
    // 2^62: far above any channel of 64 bits, and safe to convert.
    return std::isnan(value)
               ? 0
               : static_cast<std::uint8_t>(static_cast<std::int64_t>(std::clamp(value, -0x1p62, 0x1p62)));
}

} // namespace chromalog
