#include "qt/controls/compact_field.h"

#include "qt/contrast.h"
#include "qt/controls/plain_text.h"
#include "qt/mishap.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace chromalog {

namespace {

constexpr int kSignWidth = 14;       ///< pixels of the fault's sign
constexpr double kFaultContrast = 3; ///< of frame and sign to the field's ground

/// A red that stands out from the field's ground.
QColor faultColour(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor red(0xb0, 0x00, 0x20), light(0xff, 0x8a, 0x80);
    return contrast(red, ground) >= kFaultContrast ? red : light;
}

} // namespace

int CompactField::heightNeeded() const {
    return std::max(24, fontMetrics().height() + 8);
}

int CompactField::widthFor(int digits) const {
    const int text = fontMetrics().horizontalAdvance('0') * digits + 6; // the toolkit's margins and the caret
    QStyleOptionFrame option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, 200, heightNeeded());
    return text + 2 + 200 - style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width();
}

void CompactField::keepMargins() {
    setTextMargins(1, 0, fault_.isEmpty() ? 1 : 1 + kSignWidth, 0);
}

void CompactField::setFault(const QString& why) {
    if (why == fault_) return;
    if (fault_.isEmpty()) description_ = accessibleDescription();
    fault_ = why;
    setAccessibleDescription(why.isEmpty() ? std::exchange(description_, {}) : why);
    keepMargins();
    update();
}

/// Styles set margins of their own when they polish a field: these are wide enough everywhere.
bool CompactField::event(QEvent* event) try {
    if (event->type() == QEvent::ToolTip && !fault_.isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(fault_), this);
        return true;
    }
    const bool used = QLineEdit::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) keepMargins();
    return used;
} catch (...) {
    mishap();
    return true;
}

void CompactField::paintEvent(QPaintEvent* event) try {
    QLineEdit::paintEvent(event);
    if (fault_.isEmpty()) return;
    QPainter painter(this);
    const QColor colour = faultColour(palette());
    painter.setPen(QPen(colour, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    const QRect sign =
        QStyle::visualRect(layoutDirection(), rect(), QRect(width() - kSignWidth, 0, kSignWidth, height()));
    painter.fillRect(sign, colour);
    QFont strong = font();
    strong.setBold(true);
    painter.setFont(strong);
    painter.setPen(contrast(Qt::white, colour) > contrast(Qt::black, colour) ? Qt::white : Qt::black);
    painter.drawText(sign, Qt::AlignCenter, "!");
} catch (...) {
    mishap();
}

void CompactField::focusInEvent(QFocusEvent* event) try {
    pressedIn_ = event->reason() == Qt::MouseFocusReason;
    QLineEdit::focusInEvent(event);
} catch (...) {
    mishap();
}

void CompactField::mouseReleaseEvent(QMouseEvent* event) try {
    QLineEdit::mouseReleaseEvent(event);
    const bool came = std::exchange(pressedIn_, false);
    if (selectedByClick_ && came && !hasSelectedText()) selectAll();
} catch (...) {
    mishap();
}

} // namespace chromalog
