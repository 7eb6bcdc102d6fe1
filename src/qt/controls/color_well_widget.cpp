#include "qt/controls/color_well_widget.h"

#include "base/colour_text.h"
#include "qt/contrast.h"
#include "qt/controls/focus_ring.h"
#include "qt/convert.h"
#include "qt/drags.h"
#include "qt/mishap.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace chromalog {

namespace {
constexpr Size dragPicture{20, 20};
} // namespace

ColorWellWidget::ColorWellWidget(QWidget* parent) : QWidget(parent) {
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
}

void ColorWellWidget::setColor(const Colour& colour) {
    colour_ = colour;
    redraw();
    QAccessibleValueChangeEvent changed(this, valueText());
    QAccessible::updateAccessibility(&changed);
    QAccessibleEvent described(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&described);
}

QVariantList ColorWellWidget::rgba() const {
    return componentsOf(colour_);
}

QString ColorWellWidget::valueText() const {
    return toQt(spokenText(colour_));
}

void ColorWellWidget::copyAsHex() try {
    QGuiApplication::clipboard()->setText(valueText().section(' ', -1));
} catch (...) {
    mishap();
}

/// The tool tip begins with the colour, as it is now.
bool ColorWellWidget::event(QEvent* event) try {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const QString told = toolTip().isEmpty() ? valueText() : valueText() + '\n' + toolTip();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), told, this);
    return true;
} catch (...) {
    mishap();
    return true;
}

void ColorWellWidget::paintEvent(QPaintEvent*) try {
    QPainter painter(this);
    const QRect whole = rect();
    QRect inside = whole;
    if (framed_) { // a hairline that is seen on light and dark, and on the colour itself
        painter.fillRect(whole, hairline(palette()));
        inside.adjust(1, 1, -1, -1);
    }
    QColor shown = toQt(colour_);
    shown.setAlpha(255);
    painter.fillRect(inside, isEnabled() ? shown : palette().color(QPalette::Window));
    if (showsKeyboardFocus(*this)) paintFocusRing(painter, whole);
} catch (...) {
    mishap();
}

void ColorWellWidget::redraw() {
    // Where wells touch at a fractional scale they share pixels: these are painted anew by all or by none.
    guarded([this] { framed_ || !parentWidget() ? update() : parentWidget()->update(); });
}

void ColorWellWidget::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    pressedAt_ = event->position();
}

void ColorWellWidget::mouseMoveEvent(QMouseEvent* event) try {
    if (!pressed_ || !drags_ || !(event->buttons() & Qt::LeftButton)) return;
    if ((event->position() - pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
    pressed_ = false;
    DragRequest request;
    request.source = this;
    request.image = {dragPicture, colour_, false, {}};
    request.pasteboard = {true, false, colour_, std::nullopt};
    drags_->begin(request, this);
} catch (...) {
    mishap();
}

void ColorWellWidget::mouseReleaseEvent(QMouseEvent* event) try {
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    if (isPressable() && rect().contains(event->position().toPoint())) Q_EMIT clicked();
} catch (...) {
    mishap();
}

void ColorWellWidget::keyPressEvent(QKeyEvent* event) try {
    if (event->key() == Qt::Key_Space && isPressable()) return Q_EMIT clicked();
    if (event->matches(QKeySequence::Copy)) return copyAsHex();
    QWidget::keyPressEvent(event);
} catch (...) {
    mishap();
}

void ColorWellWidget::dragEnterEvent(QDragEnterEvent* event) try {
    const DragInfo info = dragInfoOf(*event, {});
    const bool takes = onDrop_ && info.source != this && info.pasteboard.colourType && info.sourceAllows;
    if (!takes) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
} catch (...) {
    mishap();
}

void ColorWellWidget::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ColorWellWidget::dropEvent(QDropEvent* event) try {
    const QPointF at = event->position();
    const DragInfo info = dragInfoOf(*event, {at.x(), height() - at.y()});
    if (!onDrop_ || !info.pasteboard.colour) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setColor(*info.pasteboard.colour);
    onDrop_(info);
} catch (...) {
    mishap();
}

} // namespace chromalog
