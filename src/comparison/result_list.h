#pragma once

#include "desktop/desktop.h"
#include "swatches/row_selection.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// A swatch as a line of a result.
struct ResultRow {
    Colour colour;
    std::optional<Colour> beside; ///< what it is compared with: the patch's other half
    std::string name;             ///< UTF-8
    std::string place;            ///< where it stands
    std::string difference;       ///< empty where it is compared with none
};

std::string differenceText(double difference); ///< "2.31"
// Lists and rows are counted from 0.
std::string placeText(int list, int row);                               ///< "List 1: 12"
std::string placesText(int list, int row, int otherList, int otherRow); ///< "1: 12 = 2: 7"

/// Lines of a result that a person can select, take and drag out. It keeps none of them: a line is asked for
/// when it is painted.
class ResultList : public View {
  public:
    /// What assistive technology is told of it.
    ResultList(Desktop& desktop, std::string name, std::string description)
        : desktop_(desktop), name_(std::move(name)), description_(std::move(description)) {}

    Outlet<ScrollView> scroller;
    std::function<void(int row)> pressed; ///< by a click without Shift and Ctrl, or by Space
    std::function<void(int row)> taken;   ///< by a double click, or by Return
    std::function<void()> selectionChanged;

    /// Of these lines none is selected and the first is in view.
    void setRows(int count, std::function<ResultRow(int)> row);
    void rowsChanged(); ///< as many as before, and perhaps others
    const RowSelection& selection() const { return selection_; }

    const char* className() const override { return "ResultList"; }
    bool isFlipped() const override { return true; }
    void sizeChanged() override { fitHeight(); }
    void drawRect(Canvas&) override;
    void drawDisplayLayer(Canvas&) override;
    void mouseDown(const MouseEvent&) override;
    bool startsDrags() const override { return true; }
    void mouseDragged(const MouseEvent&) override;
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    std::optional<Rect> focusMark() const override;
    std::string helpAt(Point) const override; ///< the whole line: a long name may be cut

    Accessible accessible() const override;
    int accessibleRowCount() const override { return count_; }
    AccessibleRow accessibleRow(int) const override;
    std::optional<int> accessibleSelectedRow() const override;
    int accessibleRowAt(Point) const override;
    void selectAccessibleRow(int) override;

  private:
    bool has(int row) const { return row >= 0 && row < count_; }
    Rect rowRect(int row) const;
    void drawRow(Canvas&, int row) const;
    void fitHeight();
    void scrollToShow(int row);
    bool moveTo(int row, bool extends);
    void selectionHasChanged();

    Desktop& desktop_;
    const std::string name_, description_;
    int count_ = 0;
    std::function<ResultRow(int)> row_;
    RowSelection selection_;
    int own_ = -1; ///< where the keyboard stands; -1: nowhere yet
};

} // namespace chromalog
