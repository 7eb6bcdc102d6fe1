#pragma once

#include <vector>

namespace chromalog {

/// Several rows of a list that a person selected together. It stands beside the list's own selected row, the
/// one that was pressed last: while it is empty, that one alone counts.
class RowSelection {
  public:
    const std::vector<int>& rows() const { return rows_; } ///< in rising order, none twice
    bool empty() const { return rows_.empty(); }
    bool has(int row) const;

    void clear();
    void set(std::vector<int> rising);
    void setAll(int count); ///< rows 0 up to `count`, without it
    /// Adds the row or takes it away. `selected` is the list's own row until then: it joins the first one.
    void toggle(int row, int selected);
    /// All from the row that was pressed last without Shift, at first `selected`, to this one.
    void extendTo(int row, int selected);

  private:
    std::vector<int> rows_;
    int anchor_ = -1; ///< -1: none yet
};

} // namespace chromalog
