#pragma once

#include "colour/working_colours.h"
#include "desktop/view.h"

namespace chromalog {

/// The luminosity strip: the second colour's hue and saturation at 100 levels of brightness, black at the
/// bottom.
class luminosityView : public View {
  public:
    explicit luminosityView(WorkingColours& colours) : colours_(colours) {}

    const char* className() const override { return "luminosityView"; }
    void drawRect(Canvas&) override;
    void drawDisplayLayer(Canvas&) override; ///< the mark once more, with a halo
    void setCursorWithColor(const Colour&);  ///< redraws from the second colour; the argument plays no part

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

    WorkingColours& colours_;
};

} // namespace chromalog
