#pragma once

#include "colour/harmony.h"
#include "colour/working_colours.h"
#include "desktop/view.h"
#include "views/wheel_picture.h"
#include "views/wheel_rim.h"
#include "views/wheel_tool.h"

#include <cstdint>
#include <vector>

namespace chromalog {

/// The colour wheel: hue around the centre, saturation outwards, at the dialog's brightness. Picks and
/// harmony colours are read from its own picture at one pixel a point; the screen gets a picture at its own
/// scale.
class chromaticCircleView : public View {
  public:
    explicit chromaticCircleView(WorkingColours& colours) : colours_(colours) {}

    void drawOnce(); ///< the picture is that of the view's size and the dialog's brightness now
    void drawRect(Canvas&) override;
    void drawDisplayLayer(Canvas&) override; ///< a smooth rim, the surround outside of it, halos
    Colour getColorAtPoint(Point) const;     ///< of the picture; the nearest pixel outside
    void setHarmonyColors(); ///< places the harmony points and hands out their colours; does not redraw
    void setCursorWithColor(const Colour&); ///< moves the selected point to the colour's hue and saturation
    const Bitmap& picture() const;          ///< rendered when it is first read: picks do not need it
    Point selectedPoint() const { return selectedPoint_; }
    const HarmonyPoints& harmony() const { return harmony_; }
    void addTool(WheelTool&); ///< from now on, until it is removed; it lives that long
    void removeTool(WheelTool&);

    const char* className() const override { return "chromaticCircleView"; }
    void sizeChanged() override;
    void mouseDown(const MouseEvent&) override;
    void mouseDragged(const MouseEvent&) override;
    void mouseUp(const MouseEvent&) override;
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override; ///< arrows: one point, with Shift ten
    std::optional<Rect> focusMark() const override;
    std::optional<Colour> colourAt(Point) override; ///< of the picture, within the rim
    std::optional<Colour> colourInFocus() override { return colours_.getSecondColor(); }
    Accessible accessible() const override;

  private:
    void pick(Point);
    bool isWithinRim(Point) const;
    float pictureRow(double y) const;
    Colour pixelAt(double x, float row) const;
    const Bitmap& shownPicture(double scale);
    void drawRim(Canvas&);
    Path markers() const;

    WorkingColours& colours_;
    Point selectedPoint_; ///< stands for the second working colour
    HarmonyPoints harmony_;
    mutable WheelPicture picture_; ///< one pixel a point
    mutable bool current_ = false; ///< the picture is that of the side and brightness
    int side_ = 0;                 ///< of the picture, in pixels
    WheelPicture sharpPicture_;    ///< at the screen's scale, where that is not 1
    WheelRim rim_;                 ///< of what the screen gets
    float brightness_ = 0;         ///< of the picture
    float sharpBrightness_ = 0;    ///< of the sharp picture
    bool rendered_ = false;
    std::vector<WheelTool*> tools_;
    WheelTool* holding_ = nullptr; ///< took the press; null too once it was removed
    bool handleHeld_ = false;      ///< a tool took the press
};

} // namespace chromalog
