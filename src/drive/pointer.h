#pragma once

#include "base/geometry.h"

#include <QPointF>
#include <QPointer>
#include <QWidget>

namespace chromalog::drive {

/// A place on the screen: the innermost widget there, and the exact point in its own pixels.
struct PointerTarget {
    QPointer<QWidget> widget;
    QPointF at;
};

/// The widget's point for a position in its view's coordinates: y up from the bottom edge, or down where the
/// view is flipped. Exact; the edges 0 and width or height, and points outside, are allowed.
QPointF widgetPoint(const QWidget&, Point inView);

/// What a press at the position meets. A position that a scroll area hides is scrolled into view first.
PointerTarget targetOf(QWidget& outlet, Point inView);
PointerTarget middleOf(QWidget&);
/// Where the box of a check or radio button is: at the side that is read first.
PointerTarget boxOf(QWidget&);

/// The pointer's events, sent to the widget itself: dispatch by the window would round to whole pixels and
/// could not reach the edges.
void press(const PointerTarget&, Qt::MouseButton, Qt::KeyboardModifiers);
void moveTo(const PointerTarget&, Qt::MouseButton buttons, Qt::KeyboardModifiers);
void release(const PointerTarget&, Qt::MouseButton, Qt::KeyboardModifiers);

/// What the window system sends beside a press of the right button.
void askForMenu(const PointerTarget&);

/// Press and release with the left button. The widget may be gone after either.
void click(const PointerTarget&, Qt::KeyboardModifiers = Qt::NoModifier);

/// The second press comes as the window system tells of one.
void doubleClick(const PointerTarget&);

} // namespace chromalog::drive
