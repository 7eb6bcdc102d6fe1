#pragma once

#include "desktop/view.h"
#include "exchange/palette_library.h"

#include <functional>

namespace chromalog {

/// The palettes of the library, one below the other: a name, and its first colours as a strip.
class LibraryView : public View {
  public:
    std::function<void(int row)> chosen; ///< by a click, or by Return on the row that the keyboard stands on

    void setEntries(std::vector<LibraryEntry>);
    const std::vector<LibraryEntry>& entries() const { return entries_; }
    void fitHeight(); ///< to its rows, or to the clip where that is higher

    const char* className() const override { return "LibraryView"; }
    bool isFlipped() const override { return true; }
    void drawRect(Canvas&) override;
    void mouseDown(const MouseEvent&) override;
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    std::optional<Rect> focusMark() const override;

    Accessible accessible() const override;
    int accessibleRowCount() const override { return static_cast<int>(entries_.size()); }
    AccessibleRow accessibleRow(int) const override;
    std::optional<int> accessibleSelectedRow() const override;
    int accessibleRowAt(Point) const override;
    void selectAccessibleRow(int) override;

  private:
    Rect rowRect(int row) const;
    bool has(int row) const { return row >= 0 && row < static_cast<int>(entries_.size()); }

    std::vector<LibraryEntry> entries_;
    std::vector<std::vector<Colour>> strips_;
    int row_ = 0; ///< where the keyboard stands
};

} // namespace chromalog
