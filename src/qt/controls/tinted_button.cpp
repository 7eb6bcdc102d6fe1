#include "qt/controls/tinted_button.h"

#include "qt/contrast.h"
#include "qt/controls/focus_ring.h"
#include "qt/convert.h"
#include "qt/mishap.h"

#include <QPainter>

namespace chromalog {

namespace {

/// Towards the ink as long as that stays readable, else away from it.
QColor fillWhileDown(const QColor& fill, const QColor& ink) {
    const bool dark = ink == Qt::black;
    const QColor nearer = dark ? fill.darker(115) : fill.lighter(130);
    if (contrast(nearer, ink) >= 4.5) return nearer;
    return dark ? fill.lighter(115) : fill.darker(130);
}

} // namespace

void TintedButton::setTint(const Colour& tint) {
    tint_ = tint;
    update();
}

QVariantList TintedButton::rgba() const {
    return componentsOf(tint_);
}

void TintedButton::paintEvent(QPaintEvent* event) try {
    if (!tint_) return QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = readableOn(*tint_);
    QColor fill = toQt(*tint_);
    if (isDown()) fill = fillWhileDown(fill, ink);
    painter.setBrush(fill);
    painter.setPen(QPen(palette().color(QPalette::Dark), isDefault() ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    if (showsKeyboardFocus(*this)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ink, 1, Qt::DashLine));
        painter.drawRoundedRect(QRectF(rect()).adjusted(4, 4, -4, -4), 2, 2);
    }
    painter.setPen(isEnabled() ? ink : palette().color(QPalette::Disabled, QPalette::ButtonText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
} catch (...) {
    mishap();
}

} // namespace chromalog
