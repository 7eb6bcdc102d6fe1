#pragma once

#include "base/translated.h"
#include "colour/working_colours.h"
#include "views/chart_view.h"

#include <array>

namespace chromalog {

constexpr int toneRings = 7;
constexpr int toneSectors = 32;

/// The eight colours around the chart, in single precision: red, green, blue.
using ToneColour = std::array<float, 3>;
using ToneCircle = std::array<ToneColour, 8>;

/// `t` is the slider's value / 100.
ToneCircle toneCircle(float t, const Colour& second, bool absolute);

/// The cell of ring 1 (mostly the second colour) to 7 (the circle alone) and sector 0..31.
Colour toneCell(const ToneCircle&, const Colour& second, int ring, int sector);

/// The tone chart: seven rings of 32 sectors around the second colour.
class toneView : public chartView {
  public:
    toneView(WorkingColours& colours, Desktop& desktop) : chartView(desktop), colours_(colours) {}

    Outlet<Button> absOrRel;   ///< state 1: absolute
    Outlet<Slider> toneSlider; ///< 100 is the full tone

    const char* className() const override { return "toneView"; }
    void drawRect(Canvas&) override;

    // What it shows: the disc in its middle, and the eight colours around.
    Colour middle() const { return colours_.getSecondColor(); }
    ToneCircle circle() const;

  protected:
    void moveToRowEnd(int direction) override;
    void moveCell(int right, int up) override; ///< up: the next ring outwards; right: clockwise
    void standAt(Point) override;
    Point cellCentre() const override;
    const char* accessibleName() const override { return translatable("Tone chart"); }

  private:
    WorkingColours& colours_;
    int ring_ = 0, sector_ = 0; ///< where the keyboard stands; ring 0 is the disc in the middle
};

} // namespace chromalog
