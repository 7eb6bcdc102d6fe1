#include "drive/pointer.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>

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
        area->ensureVisible(0, std::clamp(int(at.y()), 0, widget.height()), 0,
                            area->verticalScrollBar()->singleStep()); // one row more
}

/// As if the window system had sent it: a click then gives the focus, among others. sendEvent would take the
/// mark away.
void notify(QWidget& widget, QEvent& event) {
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

void send(const PointerTarget& target, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers modifiers) {
    if (!target.widget) return;
    const QWidget* window = target.widget->window();
    QMouseEvent event(type, target.at, target.widget->mapTo(window, target.at),
                      target.widget->mapToGlobal(target.at), button, buttons, modifiers);
    notify(*target.widget, event);
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

PointerTarget targetOf(QWidget& outlet, Point inView) {
    const QPointF at = widgetPoint(outlet, inView);
    scrollIntoView(outlet, at);
    QWidget* inner = outlet.childAt(at.toPoint());
    if (!inner) return {&outlet, at};
    return {inner, inner->mapFrom(&outlet, at)};
}

PointerTarget middleOf(QWidget& widget) {
    return targetOf(widget, {widget.width() / 2.0, widget.height() / 2.0});
}

PointerTarget boxOf(QWidget& button) {
    const double inside = std::min(button.width(), button.height()) / 2.0;
    return {&button, {button.isLeftToRight() ? inside : button.width() - inside, button.height() / 2.0}};
}

void press(const PointerTarget& target, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    send(target, QEvent::MouseButtonPress, button, button, modifiers);
}

void moveTo(const PointerTarget& target, Qt::MouseButton buttons, Qt::KeyboardModifiers modifiers) {
    send(target, QEvent::MouseMove, Qt::NoButton, buttons, modifiers);
}

void release(const PointerTarget& target, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    send(target, QEvent::MouseButtonRelease, button, Qt::NoButton, modifiers);
}

void askForMenu(const PointerTarget& target) {
    if (!target.widget) return;
    QContextMenuEvent event(QContextMenuEvent::Mouse, target.at.toPoint(),
                            target.widget->mapToGlobal(target.at).toPoint());
    notify(*target.widget, event);
}

void click(const PointerTarget& target, Qt::KeyboardModifiers modifiers) {
    press(target, Qt::LeftButton, modifiers);
    release(target, Qt::LeftButton, modifiers);
}

void doubleClick(const PointerTarget& target) {
    click(target);
    send(target, QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    release(target, Qt::LeftButton, Qt::NoModifier);
}

} // namespace chromalog::drive
