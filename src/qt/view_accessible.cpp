#include "qt/view_accessible.h"

#include "qt/controls/control_accessible.h"
#include "qt/controls/status_label.h"
#include "qt/controls/well_accessible.h"
#include "qt/convert.h"
#include "qt/list_table.h"
#include "qt/mishap.h"
#include "qt/view_widget.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <map>

namespace chromalog {

namespace {

/// One row of a list, made when it is asked for. It survives its list only as an invalid object.
class RowAccessible : public QAccessibleInterface,
                      public QAccessibleActionInterface,
                      public QAccessibleTableCellInterface {
  public:
    RowAccessible(ViewWidget* list, int row) : list_(list), row_(row) {}

    bool isValid() const override { return view() && row_ < view()->accessibleRowCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(list_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        return guarded(QRect(), [this] {
            if (!isValid()) return QRect();
            const QRect inList = list_->toWidget(view()->accessibleRow(row_).rect).toRect();
            return QRect(list_->mapToGlobal(inList.topLeft()), inList.size());
        });
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override try {
        if (!isValid()) return {};
        const AccessibleRow row = view()->accessibleRow(row_);
        if (kind == QAccessible::Name) return toQt(row.name);
        return kind == QAccessible::Value || kind == QAccessible::Description ? toQt(row.value) : QString();
    } catch (...) {
        mishap();
        return {};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.invalid = !isValid();
        state.focusable = true;
        state.selected =
            guarded(false, [this] { return isValid() && view()->accessibleSelectedRow() == row_; });
        state.focused = state.selected && list_->hasFocus();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
        if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
        return nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString&) override {
        if (isValid()) guarded([this] { view()->selectAccessibleRow(row_); });
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    bool isSelected() const override { return state().selected; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return 0; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

  private:
    View* view() const { return list_ ? list_->view() : nullptr; }

    QPointer<ViewWidget> list_;
    int row_;
};

QAccessible::Role roleOf(Accessible::Role role) {
    switch (role) {
    case Accessible::Role::colourChooser:
        return QAccessible::ColorChooser;
    case Accessible::Role::slider:
        return QAccessible::Slider;
    case Accessible::Role::list:
        return QAccessible::List;
    case Accessible::Role::chart:
        return QAccessible::Chart;
    }
    return QAccessible::Client;
}

/// Values in words have no way of their own to a screen reader: the description begins with them.
QString descriptionOf(const Accessible& told) {
    return told.range || told.value.empty() ? toQt(told.description)
                                            : toQt(told.value + ". " + told.description);
}

class ViewAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit ViewAccessible(ViewWidget* widget) : QAccessibleWidget(widget, QAccessible::Client) {}
    ~ViewAccessible() override {
        for (const auto& [row, id] : rows_)
            QAccessible::deleteAccessibleInterface(id);
    }

    QAccessible::Role role() const override {
        return guarded(QAccessible::Client,
                       [this] { return view() ? roleOf(view()->accessible().role) : QAccessible::Client; });
    }
    QString text(QAccessible::Text kind) const override try {
        if (!view()) return QAccessibleWidget::text(kind);
        const Accessible told = view()->accessible();
        if (kind == QAccessible::Name) return toQt(told.name);
        if (kind == QAccessible::Value) return toQt(told.value);
        if (kind == QAccessible::Description) return descriptionOf(told);
        return QAccessibleWidget::text(kind);
    } catch (...) {
        mishap();
        return {};
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return range() ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
        if (type == QAccessible::TableInterface)
            return role() == QAccessible::List ? static_cast<QAccessibleTableInterface*>(&table_) : nullptr;
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* focusChild() const override {
        const auto row = view() ? view()->accessibleSelectedRow() : std::nullopt;
        return row && widget()->hasFocus() ? child(*row) : QAccessibleWidget::focusChild();
    }
    void announceRows() { news_.announce(*widget(), *view()); }

    int childCount() const override { return view() ? view()->accessibleRowCount() : 0; }
    QAccessibleInterface* child(int row) const override try {
        if (row < 0 || row >= childCount()) return nullptr;
        QAccessible::Id& id = rows_[row];
        if (id == 0)
            id = QAccessible::registerAccessibleInterface(
                new RowAccessible(static_cast<ViewWidget*>(widget()), row));
        return QAccessible::accessibleInterface(id);
    } catch (...) {
        mishap();
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [row, id] : rows_)
            if (QAccessible::accessibleInterface(id) == wanted) return row;
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint at = widget()->mapFromGlobal(QPoint(x, y));
        if (!view() || !widget()->rect().contains(at)) return nullptr;
        return child(view()->accessibleRowAt(static_cast<ViewWidget*>(widget())->toView(at)));
    }

    QVariant currentValue() const override { return range() ? QVariant(range()->value) : QVariant(); }
    QVariant minimumValue() const override { return range() ? QVariant(range()->minimum) : QVariant(); }
    QVariant maximumValue() const override { return range() ? QVariant(range()->maximum) : QVariant(); }
    QVariant minimumStepSize() const override { return range() ? QVariant(range()->step) : QVariant(); }
    void setCurrentValue(const QVariant& value) override {
        guarded([&] {
            if (view()) view()->setAccessibleValue(value.toDouble());
        });
    }

  private:
    View* view() const { return widget() ? static_cast<ViewWidget*>(widget())->view() : nullptr; }
    std::optional<Accessible::Range> range() const {
        return guarded(std::optional<Accessible::Range>(),
                       [this] { return view() ? view()->accessible().range : std::nullopt; });
    }

    mutable std::map<int, QAccessible::Id> rows_; ///< rows that were asked for
    ListTable table_{[this] { return view(); }, [this](int row) { return child(row); }};
    ListNews news_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* widget = dynamic_cast<ViewWidget*>(object);
    const auto make = [widget]() -> QAccessibleInterface* { return new ViewAccessible(widget); };
    return widget ? guarded<QAccessibleInterface*>(nullptr, make) : nullptr;
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(makeGroupAccessible);
    QAccessible::installFactory(makeStepperAccessible);
    QAccessible::installFactory(makeMenuButtonAccessible);
    QAccessible::installFactory(makeAccessible);
    QAccessible::installFactory(makeWellAccessible);
    QAccessible::installFactory(makeStatusAccessible);
}

void removeAccessibility() {
    QAccessible::removeFactory(makeGroupAccessible);
    QAccessible::removeFactory(makeStepperAccessible);
    QAccessible::removeFactory(makeMenuButtonAccessible);
    QAccessible::removeFactory(makeAccessible);
    QAccessible::removeFactory(makeWellAccessible);
    QAccessible::removeFactory(makeStatusAccessible);
}

void announceView(ViewWidget& widget) {
    if (!QAccessible::isActive() || !widget.view()) return;
    const Accessible told = widget.view()->accessible();
    QAccessibleValueChangeEvent changed(&widget, told.range ? QVariant(told.range->value)
                                                            : QVariant(toQt(told.value)));
    QAccessible::updateAccessibility(&changed);
    if (told.range) return;
    QAccessibleEvent described(&widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&described);
    if (told.role != Accessible::Role::list) return;
    if (auto* list = dynamic_cast<ViewAccessible*>(QAccessible::queryAccessibleInterface(&widget)))
        list->announceRows();
}

} // namespace chromalog
