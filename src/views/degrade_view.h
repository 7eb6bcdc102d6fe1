#pragma once

#include "base/translated.h"
#include "views/chart_view.h"

namespace chromalog {

constexpr int gradientCells = 16; ///< a side

/// The four corners of the blend. The names are mirrored against the screen: UL shows at the top right, UR at
/// the top left, LL at the bottom right, LR at the bottom left. Kept.
struct GradientCorners {
    Colour UL = Colour::rgb(0.9, 0.1, 0.1);
    Colour UR = Colour::rgb(0.1, 0.9, 0.1);
    Colour LL = Colour::rgb(0.1, 0.1, 0.9);
    Colour LR = Colour::rgb(0.9, 0.1, 1.0);
};

/// The cell of row 0 (LL and LR) to 15 and column 0 (UR and LR) to 15.
Colour gradientCell(const GradientCorners&, int row, int column);

/// The gradient: 16 × 16 cells blended between four corner colours, which drops replace.
class degradeView : public chartView {
  public:
    explicit degradeView(Desktop& desktop) : chartView(desktop) {}

    const char* className() const override { return "degradeView"; }
    void drawRect(Canvas&) override;
    const GradientCorners& corners() const { return corners_; }

    bool acceptsColourDrags() const override { return true; }
    DragOperation draggingEntered(const DragInfo&) override;
    bool performDragOperation(const DragInfo&) override;

  protected:
    void moveToRowEnd(int direction) override;
    void moveCell(int right, int up) override;
    void standAt(Point) override;
    Point cellCentre() const override;
    const char* accessibleName() const override { return translatable("Gradient"); }

  private:
    GradientCorners corners_;
    int row_ = 0, column_ = 0; ///< where the keyboard stands
};

} // namespace chromalog
