#include "qt/layout/wrap_row.h"

#include <algorithm>

namespace chromalog {

namespace {
constexpr int gap = 12, lineGap = 4; ///< pixels between blocks, between lines

int heightOf(const QList<QWidget*>& line) {
    int most = 0;
    for (const QWidget* block : line)
        most = std::max(most, block->sizeHint().height());
    return most;
}

} // namespace

QList<QWidget*> WrapRow::blocks() const {
    QList<QWidget*> shown;
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!child->isHidden()) shown.append(child);
    return shown;
}

QList<QList<QWidget*>> WrapRow::lines(int width) const {
    QList<QList<QWidget*>> all;
    int left = 0;
    for (QWidget* block : blocks()) {
        const int needed = gap + block->minimumSizeHint().width();
        if (all.isEmpty() || needed > left) {
            all.append(QList<QWidget*>());
            left = width + gap;
        }
        all.last().append(block);
        left -= needed;
    }
    return all;
}

int WrapRow::heightForWidth(int width) const {
    int sum = -lineGap;
    for (const auto& line : lines(width))
        sum += heightOf(line) + lineGap;
    return std::max(0, sum);
}

void WrapRow::layOut() {
    int y = 0;
    for (const auto& line : lines(width())) {
        const int h = heightOf(line);
        int right = width();
        for (qsizetype i = line.size() - 1; i > 0; --i) {
            const int w = line[i]->minimumSizeHint().width();
            place(*line[i], {right - w, y, w, h});
            right -= w + gap;
        }
        place(*line.first(), {0, y, right, h});
        y += h + lineGap;
    }
}

void WrapRow::childrenChanged() {
    updateGeometry();
    layOut();
}

} // namespace chromalog
