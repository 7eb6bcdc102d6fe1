#pragma once

#include "pictures/fitted_picture.h"
#include "pictures/picture_drop.h"

#include <functional>

namespace chromalog {

/// A picture as large as there is room, with a cross on one of its pixels: the one that was pressed, or that
/// the keyboard has walked to.
class PictureView : public View {
  public:
    std::function<void(const Colour&)> picked; ///< by the pointer, also while it is dragged, or by Return
    GivePicture given;                         ///< dropped
    std::function<void()> moved;               ///< the cross, or what it stands for

    void setPicture(const Picture&, const Picture& overview); ///< the cross goes into its middle
    void setEdge(int); ///< pixels of the square whose mean is picked: 1, 3 or 5

    const Picture& picture() const { return picture_; }
    std::optional<Colour>
    sample() const;            ///< under the cross; nothing without a picture, or where it is clear
    std::string place() const; ///< "x 12, y 34, #aabbcc"; empty without a picture

    const char* className() const override { return "PictureView"; }
    bool isFlipped() const override { return true; }
    void drawRect(Canvas&) override;
    void drawDisplayLayer(Canvas&) override;
    void mouseDown(const MouseEvent&) override;
    void mouseDragged(const MouseEvent&) override;
    void mouseUp(const MouseEvent&) override { dragging_ = false; }
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    std::optional<Rect> focusMark() const override;
    std::optional<Colour> colourInFocus() override { return sample(); }

    bool acceptsColourDrags() const override { return true; }
    DragOperation draggingEntered(const DragInfo& info) override { return pictureEntered(info); }
    bool performDragOperation(const DragInfo& info) override { return pictureDropped(info, given); }

    Accessible accessible() const override;

  private:
    Rect where() const { return fittedRect(picture_, bounds()); }
    Rect square() const; ///< what is picked, on the view
    void goTo(Point);
    void moveTo(int column, int row);
    void pick();

    Picture picture_, overview_;
    Bitmap shown_; ///< the overview in device pixels, made when it is drawn
    int column_ = 0, row_ = 0, edge_ = 1;
    bool dragging_ = false;
};

} // namespace chromalog
