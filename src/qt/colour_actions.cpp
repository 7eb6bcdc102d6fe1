#include "qt/colour_actions.h"

#include "qt/controls/color_well_widget.h"
#include "qt/convert.h"
#include "qt/item_menu.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include <memory>

namespace chromalog {

namespace {

enum class Where { pointer, keyboard };

std::optional<Colour> colourOf(const QWidget& widget, Where where, QPointF at) {
    if (const auto* well = qobject_cast<const ColorWellWidget*>(&widget)) return well->color();
    const auto* shown = qobject_cast<const ViewWidget*>(&widget);
    if (!shown || !shown->view()) return std::nullopt;
    return where == Where::pointer ? shown->view()->colourAt(shown->toView(at))
                                   : shown->view()->colourInFocus();
}

ColourPlace placeOf(const QWidget& widget, Where where, QPointF at = {}) {
    return {fromQt(widget.objectName()), colourOf(widget, where, at)};
}

/// A list opens a menu of its own.
bool isList(const QWidget& widget) {
    const auto* shown = qobject_cast<const ViewWidget*>(&widget);
    return shown && shown->view() && shown->view()->accessible().role == Accessible::Role::list;
}

} // namespace

ColourActions::ColourActions(QWidget& window, ColourOperations& operations)
    : QObject(&window), operations_(operations) {
    const auto watch = [this](QWidget* widget) { widget->installEventFilter(this); };
    for (auto* well : window.findChildren<ColorWellWidget*>())
        watch(well);
    for (auto* view : window.findChildren<ViewWidget*>())
        watch(view);
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (operations_.standsForColours(fromQt(button->objectName()))) watch(button);
}

bool ColourActions::eventFilter(QObject* object, QEvent* event) try {
    return handle(static_cast<QWidget&>(*object), *event);
} catch (...) {
    mishap();
    return event->type() == QEvent::KeyPress;
}

bool ColourActions::handle(QWidget& widget, QEvent& event) {
    switch (event.type()) {
    case QEvent::ContextMenu:
        return openMenu(widget, static_cast<QContextMenuEvent&>(event));
    case QEvent::KeyPress:
        return keyPressed(widget, static_cast<QKeyEvent&>(event));
    case QEvent::MouseButtonDblClick: {
        const auto& press = static_cast<QMouseEvent&>(event);
        if (press.button() == Qt::LeftButton && qobject_cast<ColorWellWidget*>(&widget))
            operations_.add(placeOf(widget, Where::pointer), press.modifiers() & Qt::AltModifier ? 2 : 1);
        return false; // it is a press too
    }
    default:
        return false;
    }
}

bool ColourActions::openMenu(QWidget& widget, const QContextMenuEvent& event) {
    if (isList(widget)) return false;
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    const MenuItems items =
        operations_.menuOf(placeOf(widget, byKey ? Where::keyboard : Where::pointer, QPointF(event.pos())));
    if (items.empty()) return false;
    const QPointer<QMenu> menu = makeMenu(items, *widget.window());
    menu->exec(byKey ? widget.mapToGlobal(widget.rect().center()) : event.globalPos());
    return true;
}

bool ColourActions::keyPressed(QWidget& widget, const QKeyEvent& event) {
    const bool shows = qobject_cast<ColorWellWidget*>(&widget) || qobject_cast<ViewWidget*>(&widget);
    const auto place = [&widget] { return placeOf(widget, Where::keyboard); };
    if (shows && event.matches(QKeySequence::Copy)) {
        operations_.copy(place());
        return true;
    }
    if (shows && event.matches(QKeySequence::Paste)) return operations_.paste(place());
    const bool bare = (event.modifiers() & ~(Qt::AltModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (event.key() != Qt::Key_Insert || !bare || isList(widget)) return false;
    operations_.add(place(), event.modifiers() & Qt::AltModifier ? 2 : 1);
    return true;
}

} // namespace chromalog
