#include "qt/layout/work_area.h"

#include "qt/layout/fields_box.h"
#include "qt/layout/work_column.h"

#include <QScrollArea>

#include <algorithm>

namespace chromalog {

namespace {
constexpr int gap = 8; ///< wells to what scrolls below them
} // namespace

bool WorkArea::fitsWhole(const WorkColumn& column, const FieldsBox& fields, const QWidget& wells) const {
    const int least = 2 * fields.leastFieldsWidth() + 2 * FieldsBox::kGap + wells.minimumSizeHint().width();
    const int around = column.leastHeight(width()) - fields.heightForWidth(width()) +
                       fields.heightOf(FieldsBox::Arrangement::around);
    return least <= width() && around <= height();
}

void WorkArea::layOut() {
    auto* scroll = qobject_cast<QScrollArea*>(scroll_.in(*this));
    auto* column = scroll ? qobject_cast<WorkColumn*>(scroll->widget()) : nullptr;
    auto* fields = column ? column->findChild<FieldsBox*>() : nullptr;
    QWidget* wells = wells_.in(*this);
    if (!fields || !wells || layingOut_) return;
    layingOut_ = true;
    if (fitsWhole(*column, *fields, *wells)) {
        fields->setArrangement(FieldsBox::Arrangement::around);
        column->setScrolledIn(0, false);
        scroll->setGeometry(rect());
        column->layOut();
        wells->setGeometry(fields->middle().translated(fields->pos() + column->pos()));
    } else {
        const int top = std::max(wells->minimumHeight(), wells->minimumSizeHint().height());
        wells->setGeometry(0, 0, width(), top);
        const bool halves = 2 * fields->leastFieldsWidth() + FieldsBox::kGap <= width() - 20; // a scroll bar
        fields->setArrangement(halves ? FieldsBox::Arrangement::beside : FieldsBox::Arrangement::below);
        column->setScrolledIn(height() - top - gap, !halves);
        scroll->setGeometry(0, top + gap, width(), height() - top - gap);
        column->layOut();
    }
    wells->raise();
    layingOut_ = false;
}

} // namespace chromalog
