#include "qt/screen/frozen_screen.h"

#include "base/translated.h"
#include "qt/convert.h"
#include "qt/mishap.h"
#include "qt/screen/magnifier.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include <cmath>

namespace chromalog {

FrozenScreen::FrozenScreen(QScreen& screen)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint),
      corner_(screen.geometry().topLeft()), picture_(screen.grabWindow(0).toImage()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setCursor(Qt::CrossCursor);
    setGeometry(screen.geometry());
}

std::optional<QPoint> FrozenScreen::pixelAt(QPointF global) const {
    const double scale = picture_.devicePixelRatio();
    const QPointF inside = (global - corner_) * scale;
    const QPoint pixel(int(std::lround(inside.x())), int(std::lround(inside.y())));
    if (!picture_.rect().contains(pixel)) return std::nullopt;
    return corner_ + pixel;
}

void FrozenScreen::aimAt(QPoint pixel, const std::vector<QColor>& taken) {
    updateMagnifier();
    aim_.reset();
    if (pixels().contains(pixel)) aim_ = pixel - corner_;
    taken_ = taken;
    updateMagnifier();
    if (aim_)
        setAccessibleName(
            toQt(translated("Pick from Screen: %1", fromQt(picture_.pixelColor(*aim_).name()))));
}

void FrozenScreen::updateMagnifier() {
    if (!aim_) return;
    const double scale = picture_.devicePixelRatio();
    const QRectF place(magnifierPlace({picture_, *aim_, taken_}));
    update(QRectF(place.topLeft() / scale, place.size() / scale).toAlignedRect());
}

void FrozenScreen::paintEvent(QPaintEvent* event) try {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawImage(QPointF(), picture_);
    if (!aim_) return;
    const double point = 1 / picture_.devicePixelRatio();
    painter.scale(point, point);
    paintMagnifier(painter, {picture_, *aim_, taken_}, palette());
} catch (...) {
    mishap();
}

} // namespace chromalog
