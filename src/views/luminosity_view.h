#pragma once

#include "desktop/view.h"

namespace chromalog {

/// What the strip asks of the dialog.
class luminosityDesk {
  public:
    virtual ~luminosityDesk() = default;
    virtual Colour getSecondColor() const = 0;
    virtual void setLuminosity(float) = 0; ///< not held to 0..1
    virtual void redrawCircle() = 0;
    virtual void setHarmonyColors() = 0;
};

/// The luminosity strip: the second colour's hue and saturation at 100 levels of brightness, black at the
/// bottom.
class luminosityView : public View {
  public:
    explicit luminosityView(luminosityDesk& desk) : desk_(desk) {}

    const char* className() const override { return "luminosityView"; }
    void drawRect(Canvas&) override;
    void setCursorWithColor(const Colour&); ///< redraws from the second colour; the argument plays no part

    void mouseDown(const MouseEvent& event) override { pick(event.location); }
    void mouseDragged(const MouseEvent& event) override { pick(event.location); }
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override; ///< arrows: one percent, with Shift ten; Home and End: the ends
    Accessible accessible() const override;
    void setAccessibleValue(double percent) override;

  private:
    void pick(Point);
    void setBrightness(float);
    double percent() const; ///< of full brightness, whole

    luminosityDesk& desk_;
};

} // namespace chromalog
