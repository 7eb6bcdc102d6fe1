#include "qt/controls/window_control.h"

#include "qt/item_menu.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace chromalog {

DialogWindow::DialogWindow(QWidget* parent) : QDialog(parent, Qt::Dialog | kDialogFlags) {}

void DialogWindow::reject() {
    if (!onClose) return hide();
    if (closing_) return; // the answer to a close may itself close the window
    closing_ = true;
    guarded(onClose);
    closing_ = false;
}

void DialogWindow::keyPressEvent(QKeyEvent* event) try {
    if (event->matches(QKeySequence::Cancel))
        for (auto* button : findChildren<QAbstractButton*>())
            if (button->property("pressedByEscape").toBool()) return button->click();
    QDialog::keyPressEvent(event);
} catch (...) {
    mishap();
}

WindowControl::WindowControl(DialogWindow* dialog) : WidgetControl(dialog) {}

void WindowControl::whenClosed(std::function<void()> f) {
    if (widget_) widget_->onClose = std::move(f);
}

void WindowControl::makeKeyAndOrderFront() {
    if (!widget_) return;
    widget_->show();
    widget_->raise();
    widget_->activateWindow();
}

void WindowControl::orderOut() {
    if (widget_) widget_->hide();
}

/// A window below a modal one in the tree of windows is not blocked by it.
void WindowControl::attachAsChildOf(Window& parent) {
    auto* above = dynamic_cast<WindowControl*>(&parent);
    if (!widget_ || !above || !above->dialog()) return;
    const bool shown = widget_->isVisible();
    widget_->setParent(above->dialog(), Qt::Tool | kDialogFlags);
    widget_->setVisible(shown);
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
