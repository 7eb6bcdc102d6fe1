#pragma once

#include <QAccessible>

#include <functional>

namespace chromalog {

class View;

/// The rows of a list as a table of one column: how assistive technology asks which row is selected, and
/// selects another.
class ListTable : public QAccessibleTableInterface {
  public:
    using Row = std::function<QAccessibleInterface*(int)>;
    /// `view` gives null while none is shown; `row` is null past the last one.
    ListTable(std::function<View*()> view, Row row) : view_(std::move(view)), row_(std::move(row)) {}

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return column == 0 ? row_(row) : nullptr;
    }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
    int columnCount() const override { return 1; }
    int rowCount() const override;

    int selectedCellCount() const override { return selectedRowCount(); }
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override; ///< none or one
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override; ///< as a click does; false past the last one
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; } ///< a list always has a selection
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    std::function<View*()> view_;
    Row row_;
};

/// What of a list was last told.
class ListNews {
  public:
    /// Tells assistive technology what has changed since: rows, their contents, the selected one.
    void announce(QWidget& list, const View&);

  private:
    int rows_ = 0;
    int selected_ = -1;
};

} // namespace chromalog
