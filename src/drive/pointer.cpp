#include "drive/pointer.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QScrollArea>

#include <algorithm>

QT_BEGIN_NAMESPACE
/// The toolkit lets the class of this name mark an event as the window system's own.
class QSpontaneKeyEvent {
  public:
    static inline void setSpontaneous(QEvent* event) { event->setSpontaneous(); }
};
QT_END_NAMESPACE

namespace chromalog::drive {
namespace {

constexpr int kScrollMargin = 22; ///< pixels shown beyond the point: one row of a list

QScrollArea* scrollAreaOf(const QWidget& widget) {
    const QWidget* viewport = widget.parentWidget();
    auto* area = qobject_cast<QScrollArea*>(viewport ? viewport->parentWidget() : nullptr);
    return area && area->widget() == &widget ? area : nullptr;
}

void scrollIntoView(const QWidget& widget, QPointF at) {
    QScrollArea* area = scrollAreaOf(widget);
    if (!area) return;
    const double y = widget.y() + at.y();
    if (y < 0 || y > area->viewport()->height())
        area->ensureVisible(0, std::clamp(int(at.y()), 0, widget.height()), 0, kScrollMargin);
}

/// As if the window system had sent it: a click then gives the focus, among others. sendEvent would take the
/// mark away.
void notify(QWidget& widget, QEvent& event) {
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

void send(const Spot& spot, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
          Qt::KeyboardModifiers modifiers) {
    if (!spot.widget) return;
    const QWidget* window = spot.widget->window();
    QMouseEvent event(type, spot.at, spot.widget->mapTo(window, spot.at), spot.widget->mapToGlobal(spot.at),
                      button, held, modifiers);
    notify(*spot.widget, event);
}

} // namespace

QPointF widgetPoint(const QWidget& widget, Point inView) {
    const QMetaObject& type = *widget.metaObject();
    const int view = type.indexOfMethod("widgetPoint(QPointF)");
    if (view < 0) return {inView.x, widget.height() - inView.y};
    QPointF at;
    type.method(view).invoke(const_cast<QWidget*>(&widget), Qt::DirectConnection, Q_RETURN_ARG(QPointF, at),
                             Q_ARG(QPointF, QPointF(inView.x, inView.y)));
    return at;
}

Spot spotOf(QWidget& outlet, Point inView) {
    const QPointF at = widgetPoint(outlet, inView);
    scrollIntoView(outlet, at);
    QWidget* inner = outlet.childAt(at.toPoint());
    if (!inner) return {&outlet, at};
    return {inner, inner->mapFrom(&outlet, at)};
}

Spot middleOf(QWidget& widget) {
    return spotOf(widget, {widget.width() / 2.0, widget.height() / 2.0});
}

void press(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    send(spot, QEvent::MouseButtonPress, button, button, modifiers);
}

void moveTo(const Spot& spot, Qt::MouseButton held, Qt::KeyboardModifiers modifiers) {
    send(spot, QEvent::MouseMove, Qt::NoButton, held, modifiers);
}

void release(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    send(spot, QEvent::MouseButtonRelease, button, Qt::NoButton, modifiers);
}

void askForMenu(const Spot& spot) {
    if (!spot.widget) return;
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot.at.toPoint(),
                            spot.widget->mapToGlobal(spot.at).toPoint());
    notify(*spot.widget, event);
}

void click(const Spot& spot, Qt::KeyboardModifiers modifiers) {
    press(spot, Qt::LeftButton, modifiers);
    release(spot, Qt::LeftButton, modifiers);
}

} // namespace chromalog::drive
