#include "qt/list_table.h"

#include "desktop/view.h"
#include "qt/mishap.h"

#include <QWidget>

namespace chromalog {

int ListTable::rowCount() const {
    const View* view = view_();
    return view ? guarded(0, [&] { return view->accessibleRowCount(); }) : 0;
}

QList<int> ListTable::selectedRows() const {
    const View* view = view_();
    if (!view) return {};
    const auto row = guarded(std::optional<int>(), [&] { return view->accessibleSelectedRow(); });
    return row ? QList<int>{*row} : QList<int>();
}

QList<QAccessibleInterface*> ListTable::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        cells.append(row_(row));
    return cells;
}

bool ListTable::selectRow(int row) {
    View* view = view_();
    if (!view || row < 0 || row >= rowCount()) return false;
    guarded([&] { view->selectAccessibleRow(row); });
    return true;
}

namespace {

void tellOfRow(QWidget& list, QAccessible::Event what, int row) {
    QAccessibleEvent event(&list, what);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void ListNews::announce(QWidget& list, const View& view) {
    const int rows = view.accessibleRowCount();
    const int selected = view.accessibleSelectedRow().value_or(-1);
    const bool selects = selected != selected_;
    if (rows != rows_ || !selects) { // also where rows hold something else than before
        using Change = QAccessibleTableModelChangeEvent;
        Change change(&list, rows == rows_ ? Change::DataChanged : Change::ModelReset);
        QAccessible::updateAccessibility(&change);
    }
    rows_ = rows;
    selected_ = selected;
    if (!selects || selected < 0) return;
    tellOfRow(list, QAccessible::Selection, selected);
    if (list.hasFocus()) tellOfRow(list, QAccessible::Focus, selected);
}

} // namespace chromalog
