#pragma once

#include "colour/working_colours.h"
#include "desktop/desktop.h"
#include "views/chromatic_circle_view.h"

#include <memory>
#include <vector>

namespace chromalog {

/// A harmony of any angle: the colours that many degrees to either side of the second one on the wheel, read
/// from its picture as the other harmonies are. A panel that floats above the dialog has their wells and the
/// angle; while it shows, the wheel has a handle near its rim on either side. The angle is kept for the next
/// pick.
class CustomAngle : public WheelTool {
  public:
    static constexpr int kLeast = 5, kMost = 175, kFirst = 30; ///< degrees

    CustomAngle(WorkingColours&, chromaticCircleView&, Desktop&, Window& dialog, ColourOperations&);
    ~CustomAngle() override;

    std::vector<OutletEntry> wells();
    void show();
    int degrees() const { return degrees_; }
    std::vector<Point> handles() const; ///< their middles, in the wheel's coordinates

    void drawOverWheel(Canvas&) override;
    void harmonyPlaced() override;
    bool takesPress(Point) override;
    void handleDragged(Point) override;

  private:
    FormOwner owner(ColourOperations&);
    Point centre() const;
    double direction() const; ///< of the selected point, in radians, y up
    HarmonyPoints points() const;
    void hide();
    void setDegrees(int);
    void fieldEdited();
    void showDegrees();
    void keep(); ///< for the next pick: when the panel closes, and with the pick

    WorkingColours& colours_;
    chromaticCircleView& wheel_;
    Desktop& desktop_;
    int degrees_ = kFirst;
    Outlet<Window> customAngleWindow;
    Outlet<TextField> customAngleDegrees;
    Outlet<ColorWell> origCustomAngle, customAngle1Color, customAngle2Color;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
