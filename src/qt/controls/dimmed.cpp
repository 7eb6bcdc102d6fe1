#include "qt/controls/dimmed.h"

#include <QGraphicsOpacityEffect>
#include <QVariant>
#include <QWidget>

namespace chromalog {

namespace {
constexpr double shown = 0.7; ///< of the widget, over what lies below it: its texts stay readable
} // namespace

void setDimmed(QWidget& widget, bool dimmed) {
    if (widget.property(kDimmed).toBool() == dimmed) return;
    widget.setProperty(kDimmed, dimmed);
    if (!widget.graphicsEffect()) { // kept from the first time on: a switched off one costs nothing
        auto* faded = new QGraphicsOpacityEffect(&widget);
        faded->setOpacity(shown);
        widget.setGraphicsEffect(faded);
    }
    widget.graphicsEffect()->setEnabled(dimmed);
}

} // namespace chromalog
