#include "qt/keyboard_focus.h"

#include "qt/controls/focus_ring.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>

namespace chromalog {

namespace {

constexpr int kRing = 2, kGap = 1; ///< pixels: of the ring, and between it and the view

/// Lies over the window, and lets everything through but the ring.
class OuterRing : public QWidget {
  public:
    explicit OuterRing(QWidget& window) : QWidget(&window) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    /// `clip`: how much of the window the view may show in.
    void goAround(const QRect& view, const QRect& clip) {
        constexpr int margin = kRing + kGap;
        const QRect outer = view.adjusted(-margin, -margin, margin, margin);
        const QRect inner = view.adjusted(-kGap, -kGap, kGap, kGap);
        setGeometry(outer);
        setMask(QRegion(outer).subtracted(inner).intersected(clip).translated(-outer.topLeft()));
        raise();
        show();
    }

  protected:
    void paintEvent(QPaintEvent*) override try {
        QPainter painter(this);
        paintFocusRing(painter, rect());
    } catch (...) {
        mishap();
    }
};

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

bool byKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

/// In the window's coordinates: what the scroll areas around the view leave, a ring's width more.
QRect clipOf(const QWidget& view) {
    const QWidget& window = *view.window();
    QRect clip = window.rect();
    for (const QWidget* up = view.parentWidget(); up && up != &window; up = up->parentWidget())
        if (qobject_cast<QAbstractScrollArea*>(up->parentWidget()))
            clip &= QRect(up->mapTo(&window, QPoint()), up->size())
                        .adjusted(-kRing - kGap, -kRing - kGap, kRing + kGap, kRing + kGap);
    return clip;
}

} // namespace

KeyboardFocus::KeyboardFocus(QWidget& window) : QObject(&window), window_(window) {
    window_.installEventFilter(this);
    for (QWidget* widget : window_.findChildren<QWidget*>())
        widget->installEventFilter(this);
}

void KeyboardFocus::show(bool byKeyboard) {
    if (window_.testAttribute(Qt::WA_KeyboardFocusChange) == byKeyboard) return;
    window_.setAttribute(Qt::WA_KeyboardFocusChange, byKeyboard);
    QWidget* shown = window_.focusWidget();
    for (int up = 0; shown && up < 3;
         ++up, shown = shown->parentWidget()) // a list's frame is its scroll area's
        shown->update();
}

void KeyboardFocus::placeRing() {
    const auto* view = qobject_cast<ViewWidget*>(window_.focusWidget());
    const bool shown = view && view->isVisible() && view->ringStandsOutside() && showsKeyboardFocus(*view);
    if (!shown) {
        if (ring_) ring_->hide();
        return;
    }
    if (!ring_) ring_ = new OuterRing(window_);
    static_cast<OuterRing*>(ring_.data())
        ->goAround(QRect(view->mapTo(&window_, QPoint()), view->size()), clipOf(*view));
}

bool KeyboardFocus::eventFilter(QObject*, QEvent* event) {
    guarded([&] {
        switch (event->type()) {
        case QEvent::KeyPress:
            if (!isModifier(static_cast<QKeyEvent*>(event)->key())) show(true);
            break;
        case QEvent::MouseButtonPress:
            show(false);
            break;
        case QEvent::FocusIn:
            if (byKeyboard(static_cast<QFocusEvent*>(event)->reason())) show(true);
            break;
        case QEvent::FocusOut:
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
            break;
        default:
            return;
        }
        placeRing();
    });
    return false;
}

} // namespace chromalog
