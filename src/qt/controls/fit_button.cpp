#include "qt/controls/fit_button.h"

#include "qt/controls/focus_ring.h"
#include "qt/controls/glyphs.h"
#include "qt/form_names.h"
#include "qt/mishap.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace chromalog {

namespace {
constexpr int side = 6;                      ///< pixels left and right of a text
constexpr int wideSide = 20;                 ///< the same, of a button that has a text only
constexpr int arrow = 12;                    ///< pixels of the arrow that opens the menu
constexpr int leastSide = 24;                ///< of the button, in both directions
constexpr int leastSign = 16, mostSign = 18; ///< a sign grows with the font so far
constexpr double stroke = 1.3;
} // namespace

FitButton::FitButton(QWidget* parent) : QPushButton(parent) {
    setProperty(kClassName, "QPushButton");
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] {
        guarded([this] {
            if (opensByAnyPress()) openMenu(); // by a key: the mouse opens it at the press
        });
    });
}

void FitButton::setTexts(const QString& texts) {
    texts_ = texts.split('|', Qt::SkipEmptyParts);
    setText(texts_.value(0));
    measure();
}

/// Assistive technology may have asked before: it is told anew what the button is.
void FitButton::setMenuName(const QString& name) {
    menuName_ = name;
    if (auto* early = QAccessible::queryAccessibleInterface(this))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}

void FitButton::measure() {
    widths_.clear();
    for (const QString& text : texts_)
        widths_.append(fontMetrics().size(Qt::TextShowMnemonic, text).width());
    updateGeometry();
}

void FitButton::changeEvent(QEvent* event) try {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) measure();
} catch (...) {
    mishap();
}

int FitButton::signSize() const {
    return std::clamp(fontMetrics().height(), leastSign, mostSign);
}

int FitButton::heightNeeded() const {
    return std::max(leastSide, fontMetrics().height() + 8);
}

int FitButton::widthAt(int level) const {
    const int extra = hasArrow() ? arrow : 0;
    if (isSignAt(level)) return std::max(leastSide, signSize() + 8) + extra;
    const int around = sign_.isEmpty() && menuName_.isEmpty() ? wideSide : side;
    return widths_.value(indexOf(level)) + 2 * around + extra;
}

int FitButton::levelThatFits(int width) const {
    int level = std::max(level_, 0);
    while (level < kSign && widthAt(level) > width)
        ++level;
    return level;
}

void FitButton::setLevel(int level) {
    if (level_ == level) return;
    level_ = level;
    updateGeometry();
    update();
}

QRect FitButton::arrowZone() const {
    if (!hasArrow()) return {};
    return QStyle::visualRect(layoutDirection(), rect(), QRect(width() - arrow - 3, 0, arrow + 3, height()));
}

QPoint FitButton::menuSpot() const {
    return hasArrow() ? arrowZone().center() : rect().center();
}

void FitButton::openMenu() {
    auto* menu = window()->findChild<QMenu*>(menuName_);
    if (!menu && makeMenu_) menu = makeMenu_();
    if (!menu) return;
    showOpen(true);
    connect(
        menu, &QMenu::aboutToHide, this, [this] { showOpen(false); }, Qt::SingleShotConnection);
    menu->popup(mapToGlobal(QPoint(0, height())));
}

/// Not by setDown(): the release that follows would then press the button.
void FitButton::showOpen(bool open) {
    menuOpen_ = open;
    update();
}

void FitButton::mousePressEvent(QMouseEvent* event) try {
    const bool opens = opensByAnyPress() || arrowZone().contains(event->position().toPoint());
    if (opens && event->button() == Qt::LeftButton) return openMenu();
    QPushButton::mousePressEvent(event);
} catch (...) {
    mishap();
}

void FitButton::keyPressEvent(QKeyEvent* event) try {
    if (event->key() == Qt::Key_Down && !menuName_.isEmpty()) return openMenu();
    QPushButton::keyPressEvent(event);
} catch (...) {
    mishap();
}

void FitButton::paintSign(QPainter& painter, const QRect& inside) const {
    const double size = signSize();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(inside.left() + (inside.width() - size) / 2, (height() - size) / 2);
    painter.scale(size / kGlyphSide, size / kGlyphSide);
    painter.setPen(QPen(painter.pen().color(), stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(glyph(sign_));
    painter.restore();
}

void FitButton::paintArrow(QPainter& painter) const {
    const QPointF c = arrowZone().center() + QPointF(0.5, 1.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), stroke));
    painter.drawPolyline(QPolygonF({c + QPointF(-3, -1.5), c + QPointF(0, 1.5), c + QPointF(3, -1.5)}));
    painter.restore();
}

QString FitButton::withTerm(const QString& text) const {
    if (terms_.isEmpty()) return text;
    for (const QString& term : terms_.split('|')) {
        QString both = text + " \u00b7 " + term;
        if (fontMetrics().size(Qt::TextShowMnemonic, both).width() + 2 * side <= width()) return both;
    }
    return text;
}

/// The style draws the button and its states, never its text.
void FitButton::paintEvent(QPaintEvent*) try {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    if (menuOpen_) option.state |= QStyle::State_Sunken;
    const bool raised =
        !quiet_ || underMouse() || showsKeyboardFocus(*this) || isDown() || menuOpen_ || isChecked();
    if (raised) painter.drawControl(QStyle::CE_PushButtonBevel, option);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                   raised ? QPalette::ButtonText : QPalette::WindowText));
    QRect inside = rect();
    if (hasArrow()) {
        paintArrow(painter);
        isRightToLeft() ? inside.setLeft(arrowZone().right()) : inside.setRight(arrowZone().left());
    }
    const int level = levelThatFits(width());
    if (isSignAt(level))
        paintSign(painter, inside);
    else
        painter.drawText(inside, Qt::AlignCenter | Qt::TextShowMnemonic, withTerm(textAt(level)));
    if (isChecked()) // styles tell a pressed button apart by its shade alone
        painter.fillRect(QRect(6, height() - 5, width() - 12, 2), palette().color(QPalette::Highlight));
    if (!showsKeyboardFocus(*this)) return;
    QStyleOptionFocusRect ring;
    ring.QStyleOption::operator=(option);
    ring.rect = rect().adjusted(3, 3, -3, -3);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, ring);
} catch (...) {
    mishap();
}

} // namespace chromalog
