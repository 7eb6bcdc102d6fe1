#pragma once

#include "desktop/desktop.h"
#include "desktop/view.h"

#include <optional>

namespace chromalog {

/// A chart of colours that a click picks and a drag carries away. Picks read the view's own picture, so that
/// whatever lies under the pointer can be picked; the working colours do not change.
class chartView : public View {
  public:
    explicit chartView(Desktop& desktop) : desktop_(desktop) {}

    bool isFlipped() const override { return isPrinting_; }
    bool isPrinting() const { return isPrinting_; }
    void setPrinting(bool printing) { isPrinting_ = printing; }
    const std::optional<Colour>& selectedColor() const {
        return selectedColor_;
    } ///< nothing until the first pick

    void mouseDown(const MouseEvent&) override;
    void mouseDragged(const MouseEvent&) override;
    void mouseUp(const MouseEvent&) override; ///< tells the picked colour again: the release took it away
    bool startsDrags() const override { return true; }
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override; ///< arrows, Home, End, page keys; Space: the same cell again
    std::optional<Rect> focusMark() const override;
    std::optional<Colour> colourAt(Point) override;
    std::optional<Colour> colourInFocus() override { return colourAt(cellCentre()); }
    Accessible accessible() const override;

  protected:
    virtual void moveCell(int right, int up) = 0; ///< the cell that the keyboard stands on
    virtual void moveToRowEnd(int direction) = 0; ///< -1: the first cell of its row, 1: the last
    virtual void standAt(Point) = 0;              ///< moves the keyboard to the cell of a click
    virtual Point cellCentre() const = 0;
    virtual const char* accessibleName() const = 0;

  private:
    bool moveByKey(const KeyEvent&);
    void pick(Point);
    void tellPicked(Point);

    Desktop& desktop_;
    std::optional<Colour> selectedColor_;
    bool isPrinting_ = false;
};

} // namespace chromalog
