#pragma once

#include "base/colour.h"
#include "pictures/picture_drop.h"

#include <functional>
#include <string>
#include <vector>

namespace chromalog {

/// A colour that stands for a part of a picture.
struct TakenColour {
    Colour colour;
    std::string name;
    double share = 0; ///< of the picture, 0..1
};

/// The colours of a picture, one below the other, each with its name and its share.
class TakenColoursView : public View {
  public:
    std::function<void(const Colour&)> picked; ///< by a click, or by Return on the row of the keyboard
    GivePicture given;                         ///< a picture that was dropped

    void setColours(std::vector<TakenColour>);
    const std::vector<TakenColour>& colours() const { return colours_; }

    const char* className() const override { return "TakenColoursView"; }
    bool isFlipped() const override { return true; }
    void drawRect(Canvas&) override;
    void sizeChanged() override { fitHeight(); }
    void mouseDown(const MouseEvent&) override;
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    std::optional<Rect> focusMark() const override;

    bool acceptsColourDrags() const override { return true; }
    DragOperation draggingEntered(const DragInfo& info) override { return pictureEntered(info); }
    bool performDragOperation(const DragInfo& info) override { return pictureDropped(info, given); }

    Accessible accessible() const override;
    int accessibleRowCount() const override { return static_cast<int>(colours_.size()); }
    AccessibleRow accessibleRow(int) const override;
    std::optional<int> accessibleSelectedRow() const override;
    int accessibleRowAt(Point) const override;
    void selectAccessibleRow(int) override;

  private:
    void fitHeight();
    Rect rowRect(int row) const;
    bool has(int row) const { return row >= 0 && row < accessibleRowCount(); }
    void pick(int row);

    std::vector<TakenColour> colours_;
    int row_ = 0; ///< where the keyboard stands
};

} // namespace chromalog
