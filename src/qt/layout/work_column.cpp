#include "qt/layout/work_column.h"

#include "qt/layout/stage_box.h"

#include <QCoreApplication>

#include <algorithm>

namespace chromalog {

namespace {
constexpr int gap = 12; ///< between sections

int weightOf(const QWidget& section) {
    return section.property("grow").toInt();
}

} // namespace

QList<QWidget*> WorkColumn::sections() const {
    QList<QWidget*> shown;
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!child->isHidden()) shown.append(child);
    if (stageFirst_)
        std::stable_partition(shown.begin(), shown.end(),
                              [](auto* child) { return qobject_cast<StageBox*>(child); });
    return shown;
}

int WorkColumn::heightAround(const QWidget* stage, int width) const {
    const QList<QWidget*> all = sections();
    int sum = int(std::max<qsizetype>(0, all.size() - 1)) * gap;
    for (const QWidget* section : all)
        if (section != stage) sum += heightOf(*section, width);
    return sum;
}

void WorkColumn::setScrolledIn(int viewHeight, bool stageFirst) {
    if (viewHeight_ == viewHeight && stageFirst_ == stageFirst) return;
    viewHeight_ = viewHeight;
    stageFirst_ = stageFirst;
    updateGeometry();
}

int WorkColumn::leastStage(int width) const {
    auto* stage = qobject_cast<StageBox*>(stage_.shownIn(*this));
    if (!stage) return 0;
    const QWidget* fields = fields_.shownIn(*this);
    const int above = stageFirst_ || !fields ? 0 : heightOf(*fields, width) + gap;
    const int useful = std::max(StageBox::kLeastSide, stage->usefulHeight(width));
    return std::clamp(viewHeight_ - above, StageBox::kLeastSide, useful);
}

int WorkColumn::leastHeight(int width) const {
    const QWidget* stage = stage_.shownIn(*this);
    return heightAround(stage, width) + (stage ? StageBox::kLeastSide : 0);
}

QSize WorkColumn::minimumSizeHint() const {
    return {0, heightAround(stage_.shownIn(*this), width()) + leastStage(width())};
}

void WorkColumn::layOut() {
    auto* stage = qobject_cast<StageBox*>(stage_.shownIn(*this));
    const int around = heightAround(stage, width());
    const int left = std::max(0, height() - around);
    const int stageHeight = stage ? std::min(left, stage->usefulHeight(width())) : 0;
    int spare = left - stageHeight, weights = 0;
    for (const QWidget* section : sections())
        weights += weightOf(*section);
    int y = 0;
    for (QWidget* section : sections()) {
        int h = section == stage ? stageHeight : heightOf(*section, width());
        if (const int weight = weightOf(*section); weight > 0) {
            const int share = spare * weight / weights;
            h += share;
            spare -= share;
            weights -= weight;
        }
        place(*section, {0, y, width(), h});
        y += h + gap;
    }
}

void WorkColumn::childrenChanged() {
    updateGeometry();
    layOut();
    if (QWidget* area = parentWidget() ? parentWidget()->parentWidget() : nullptr;
        area && area->parentWidget())
        QCoreApplication::postEvent(area->parentWidget(), new QEvent(QEvent::LayoutRequest));
}

} // namespace chromalog
