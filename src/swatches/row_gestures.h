#pragma once

#include "swatches/list_extras.h"
#include "swatches/list_marks.h"
#include "swatches/row_commands.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// One list under several selected rows: presses with Shift and Ctrl, keys, drags of all of them, a name that
/// is edited in place. The selected row of the list itself is always the one that was pressed last.
class RowGestures : public ListExtras {
  public:
    RowGestures(CSwatchListDelegate& delegate, CSwatchList& list, CSwatchList& other)
        : delegate_(delegate), list_(list), other_(other), marks_(list, delegate.desktop()) {}

    /// What tells a search's hits among the rows that show; empty: none is marked.
    std::function<bool(const FCOStruct&)> isHit;
    RowGestures* across = nullptr; ///< of the other list

    const RowSelection& selection() const { return selection_; }
    const ListMarks& marks() const { return marks_; }
    void showSigns(std::vector<RowSign> signs) { marks_.showSigns(std::move(signs)); }
    /// What a command on rows takes: those selected together, else the list's own if it has a swatch.
    std::vector<int> rows() const;

    void selectAll();
    void selectOwnRow() { selection_.clear(); } ///< the list's own selected row alone
    void rename();                              ///< opens an edit of the name in the list's own selected row
    void erase();
    void bringAcross(Across);                    ///< below the other list's own selected row
    void sort(SortKey, const Colour& reference); ///< the rows that are selected together, else all

    // The list's own.
    void pressed(const MouseEvent&, int before) override;
    void released(const MouseEvent&) override;
    void menuOpens() override;
    bool keyDown(const KeyEvent&) override;
    void dragBegins() override;
    void dragEnds() override { dragged_.clear(); }
    void draggedOver(const DragInfo*) override;
    bool takesDrop(const DragInfo&) override;
    void dropped(int row) override;
    void contentsChanged() override;
    void drawMarks(Canvas& canvas) override { marks_.draw(canvas, selection_, isHit); }

  private:
    bool selectionKey(const KeyEvent&);
    void extend(int row);
    void moveBy(int direction);
    void selectTogether(int first, int count);
    void landed(int first, int count);
    int gapAt(const DragInfo&) const;
    std::optional<int> gapOf(const DragInfo&) const;
    const std::vector<int>* draggedRows(const DragInfo&) const;

    CSwatchListDelegate& delegate_;
    CSwatchList& list_;
    CSwatchList& other_;
    ListMarks marks_;
    RowSelection selection_;
    std::vector<int> dragged_; ///< by the drag that is under way; empty where it carries one swatch
    bool keeps_ = false;       ///< a plain press inside the selection: it goes when no drag follows
};

} // namespace chromalog
