#include "qt/layout/fit_row.h"

#include "qt/controls/fit_button.h"

#include <QLayout>

#include <algorithm>

namespace chromalog {

int FitRow::widthAt(int level) const {
    if (!layout()) return 0;
    int sum = 0, count = 0;
    for (int i = 0; i < layout()->count(); ++i) {
        QWidget* part = layout()->itemAt(i)->widget();
        if (!part || part->isHidden()) continue;
        const auto* button = qobject_cast<const FitButton*>(part);
        sum +=
            button ? button->widthAt(level) : std::max(part->minimumWidth(), part->minimumSizeHint().width());
        ++count;
    }
    return sum + std::max(0, count - 1) * layout()->spacing();
}

QSize FitRow::minimumSizeHint() const {
    return {widthAt(FitButton::kSign), layout() ? layout()->sizeHint().height() : 0};
}

QSize FitRow::sizeHint() const {
    return {widthAt(0), minimumSizeHint().height()};
}

void FitRow::layOut() {
    if (!layout() || choosing_) return;
    int level = 0;
    while (level < FitButton::kSign && widthAt(level) > width())
        ++level;
    choosing_ = true;
    for (int i = 0; i < layout()->count(); ++i)
        if (auto* button = qobject_cast<FitButton*>(layout()->itemAt(i)->widget())) button->setLevel(level);
    layout()->activate(); // it was laid out before the buttons changed
    choosing_ = false;
}

} // namespace chromalog
