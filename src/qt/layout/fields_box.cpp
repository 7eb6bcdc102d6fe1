#include "qt/layout/fields_box.h"

#include <algorithm>

namespace chromalog {

namespace {
constexpr double share = 0.26; ///< of the width, for the fields of one colour, where there is room
} // namespace

void FieldsBox::setArrangement(Arrangement arrangement) {
    if (arrangement_ == arrangement) return;
    arrangement_ = arrangement;
    updateGeometry();
    layOut();
}

int FieldsBox::leastFieldsWidth() const {
    int most = 0;
    for (const Part* side : {&first_, &second_})
        if (const QWidget* part = side->in(*this)) most = std::max(most, part->minimumSizeHint().width());
    return most;
}

int FieldsBox::fieldsWidth(int width) const {
    const int least = leastFieldsWidth();
    return std::clamp(int(width * share), least, least * 4 / 3);
}

int FieldsBox::rowsHeight() const {
    int most = 0;
    for (const Part* side : {&first_, &second_})
        if (const QWidget* part = side->in(*this)) most = std::max(most, part->sizeHint().height());
    return most;
}

int FieldsBox::heightOf(Arrangement arrangement) const {
    return arrangement == Arrangement::below ? 2 * rowsHeight() + kGap : rowsHeight();
}

QRect FieldsBox::middle() const {
    const int fields = fieldsWidth(width());
    return {fields + kGap, 0, width() - 2 * fields - 2 * kGap, height()};
}

void FieldsBox::layOut() {
    QWidget *first = first_.in(*this), *second = second_.in(*this);
    if (!first || !second) return;
    const int rows = rowsHeight(), w = width();
    if (arrangement_ == Arrangement::below) {
        place(*first, {0, 0, w, rows});
        place(*second, {0, rows + kGap, w, rows});
        return;
    }
    const int fields = arrangement_ == Arrangement::around ? fieldsWidth(w) : (w - kGap) / 2;
    place(*first, {0, 0, fields, rows});
    place(*second, {w - fields, 0, fields, rows});
}

void FieldsBox::childrenChanged() {
    updateGeometry();
    layOut();
}

} // namespace chromalog
