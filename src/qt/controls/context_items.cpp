#include "qt/controls/context_items.h"

#include "qt/item_menu.h"
#include "qt/mishap.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>

#include <memory>

namespace chromalog {

namespace {

class ContextItems : public QObject {
  public:
    ContextItems(QWidget& widget, std::function<MenuItems()> items)
        : QObject(&widget), widget_(widget), items_(std::move(items)) {
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override try {
        if (event->type() != QEvent::ContextMenu) return false;
        open(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    } catch (...) {
        mishap();
        return true;
    }

  private:
    void open(QPoint where) const {
        std::unique_ptr<QMenu> menu;
        if (auto* field = qobject_cast<QLineEdit*>(&widget_)) menu.reset(field->createStandardContextMenu());
        if (!menu) menu = std::make_unique<QMenu>(&widget_);
        if (!menu->isEmpty()) menu->addSeparator();
        addItems(*menu, items_());
        menu->exec(where);
    }

    QWidget& widget_; ///< the parent
    const std::function<MenuItems()> items_;
};

} // namespace

void addContextItems(QWidget& widget, std::function<MenuItems()> items) {
    new ContextItems(widget, std::move(items)); // the widget's child
}

} // namespace chromalog
