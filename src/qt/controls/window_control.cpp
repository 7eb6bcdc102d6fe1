#include "qt/controls/window_control.h"

#include "qt/item_menu.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace chromalog {

DialogWindow::DialogWindow(QWidget* parent) : QDialog(parent, Qt::Dialog | kDialogFlags) {}

void DialogWindow::reject() {
    if (!onClose) return hide();
    if (closing_) return; // the answer to a close may itself close the window
    closing_ = true;
    guarded(onClose);
    closing_ = false;
}

namespace {

/// Whether Return presses one button, wherever the focus is.
bool hasDefault(const QDialog& dialog) {
    const auto buttons = dialog.findChildren<QPushButton*>();
    return std::any_of(buttons.begin(), buttons.end(),
                       [](const QPushButton* button) { return button->isDefault(); });
}

} // namespace

void DialogWindow::keyPressEvent(QKeyEvent* event) try {
    if (event->matches(QKeySequence::Cancel))
        for (auto* button : findChildren<QAbstractButton*>())
            if (button->property("pressedByEscape").toBool()) return button->click();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* focused = qobject_cast<QAbstractButton*>(focusWidget()); enter && focused && !hasDefault(*this))
        return focused->click();
    QDialog::keyPressEvent(event);
} catch (...) {
    mishap();
}

WindowControl::WindowControl(DialogWindow* dialog) : WidgetControl(dialog) {}

void WindowControl::whenClosed(std::function<void()> f) {
    if (widget_) widget_->onClose = std::move(f);
}

QRect frameAround(const QRect& window, const QRect& frame) {
    return frame.contains(window) ? frame : window;
}

namespace {

QRect frameOf(const QWidget& window) {
    return frameAround(window.geometry(), window.frameGeometry());
}

/// What a panel will take of the screen: the size of its form, and a frame like its dialog's.
QSize sizeOnScreen(const QWidget& panel, const QWidget& dialog) {
    return panel.size().expandedTo(panel.minimumSizeHint()) + frameOf(dialog).size() - dialog.size();
}

/// Below the other panels that stand there; where the screen has no room for that, over them with their
/// titles free.
QPoint besideOthers(const QWidget& panel, const QWidget& dialog, QRect wanted, int gap) {
    const int bottom = dialog.screen()->availableGeometry().bottom(), title = 32; // pixels
    QRect below = wanted, over = wanted;
    for (const auto* other : dialog.findChildren<DialogWindow*>(Qt::FindDirectChildrenOnly)) {
        if (other == &panel || !other->isVisible()) continue;
        const QRect frame = frameOf(*other);
        if (frame.intersects(below)) below.moveTop(frame.bottom() + gap);
        if (frame.intersects(over)) over.moveTop(std::max(over.top(), frame.top() + title));
    }
    if (below.bottom() < bottom) return below.topLeft();
    return over.bottom() < bottom ? over.topLeft() : wanted.topLeft();
}

/// Where its screen has room, to the right of the window that carries it; else over that window's right edge.
void placeByDialog(QWidget& panel, const QWidget& dialog) {
    constexpr int gap = 8; // pixels
    const QRect around = frameOf(dialog), free = dialog.screen()->availableGeometry();
    const QSize size = sizeOnScreen(panel, dialog);
    const int width = size.width() + gap, most = free.right() - width;
    const bool fits = around.right() + gap <= most;
    const int left = fits ? around.right() + gap : std::min(most, around.right() - width);
    const int top = std::min(dialog.geometry().top() + (fits ? 0 : gap), free.bottom() - size.height());
    panel.move(
        besideOthers(panel, dialog, {{std::max(free.left(), left), std::max(free.top(), top)}, size}, gap));
}

} // namespace

void WindowControl::makeKeyAndOrderFront() {
    if (!widget_) return;
    const QWidget* dialog = widget_->parentWidget();
    if (!std::exchange(placed_, true) && dialog && widget_->property(kBeside).toBool())
        placeByDialog(*widget_, *dialog);
    widget_->show();
    widget_->raise();
    widget_->activateWindow();
}

void WindowControl::orderOut() {
    if (!widget_) return;
    if (widget_->isVisible())
        widget_->move(
            widget_->pos()); // else it comes back lower by its frame, which is not known before it shows
    widget_->hide();
}

/// A window below a modal one in the tree of windows is not blocked by it.
void WindowControl::attachAsChildOf(Window& parent) {
    auto* above = dynamic_cast<WindowControl*>(&parent);
    if (!widget_ || !above || !above->dialog()) return;
    const bool shown = widget_->isVisible();
    widget_->setParent(above->dialog(), Qt::Tool | kDialogFlags);
    widget_->setVisible(shown);
}

std::optional<QPoint> placeBeside(const QRect& window, QSize size, const QRect& available, bool left) {
    const int top = std::max(window.top(), available.top());
    QPoint first(window.left() - size.width(), top), second(window.right() + 1, top);
    if (!left) std::swap(first, second);
    for (const QPoint place : {first, second})
        if (available.contains(QRect(place, size))) return place;
    return std::nullopt;
}

void WindowControl::standBeside(Window& other, bool left) {
    const auto* beside = dynamic_cast<WindowControl*>(&other);
    if (!widget_ || !beside || !beside->dialog()) return;
    const QDialog& dialog = *beside->dialog();
    const auto place = placeBeside(frameOf(dialog), sizeOnScreen(*widget_, dialog),
                                   dialog.screen()->availableGeometry(), left);
    if (place) widget_->move(*place);
}

void MenuControl::popUp(const View& view, Point at) {
    const auto* widget = dynamic_cast<const ViewWidget*>(view.host());
    if (!menu_ || !widget) return;
    const QList<QAction*> own = menu_->actions();
    for (const auto& items : more_)
        addItems(*menu_, items());
    menu_->exec(widget->mapToGlobal(widget->toWidget(at)).toPoint());
    if (!menu_) return; // the dialog went away meanwhile
    for (QAction* item : menu_->actions())
        if (!own.contains(item)) item->deleteLater(); // with the menu that it opens
}

} // namespace chromalog
