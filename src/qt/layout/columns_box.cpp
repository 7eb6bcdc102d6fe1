#include "qt/layout/columns_box.h"

#include <algorithm>

namespace chromalog {

namespace {
constexpr int narrow = 1200, smallGap = 8, wideGap = 16; ///< between columns
constexpr int leastDigits = 12;                          ///< wide, so that "5000 found" fits
constexpr int leastList = 160, mostList = 304, grid = 8; ///< pixels
constexpr double listShare = 0.0895, listBase = 80;      ///< 160 at 936 pixels, 304 at 2,536
} // namespace

int ColumnsBox::listWidth(int width) {
    return std::clamp(int(listBase + width * listShare), leastList, mostList) / grid * grid;
}

void ColumnsBox::layOut() {
    const int gap = width() < narrow ? smallGap : wideGap;
    const int list = std::max(listWidth(width()), leastDigits * fontMetrics().horizontalAdvance('0'));
    int left = 0, right = width();
    for (const char* name : {"library", "list1"}) {
        QWidget* column = partOf(*this, name);
        if (!column || column->isHidden()) continue;
        place(*column, {left, 0, list, height()});
        left += list + gap;
    }
    if (QWidget* second = partOf(*this, "list2")) {
        right -= list;
        place(*second, {right, 0, list, height()});
        right -= gap;
    }
    if (QWidget* work = partOf(*this, "work")) place(*work, {left, 0, right - left, height()});
}

} // namespace chromalog
