#pragma once

#include "colour/working_colours.h"
#include "comparison/nearest_swatches.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// The swatches of both lists that are nearest to the wells of one harmony, each below its well: a patch with
/// the difference, and where it stands as a tool tip. A click, or Return, selects the swatch in its list as a
/// press there does. What it shows it finds as it paints, when every well has its colour: while it is hidden
/// it costs nothing.
class WellNeighbours : public View {
  public:
    using Wells = std::vector<const Outlet<ColorWell>*>;

    WellNeighbours(std::string harmony, Wells wells, SwatchPanels& panels, NearestSwatches& nearest)
        : harmony_(std::move(harmony)), wells_(std::move(wells)), panels_(panels), nearest_(nearest) {}

    void follow(); ///< after a change of the colours or of a list

    const char* className() const override { return "WellNeighbours"; }
    void drawRect(Canvas&) override;
    void mouseDown(const MouseEvent&) override;
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    std::optional<Rect> focusMark() const override { return cell(own_); }
    std::string helpAt(Point) const override;

    Accessible accessible() const override;
    int accessibleRowCount() const override { return static_cast<int>(wells_.size()); }
    AccessibleRow accessibleRow(int) const override;
    std::optional<int> accessibleSelectedRow() const override { return own_; }
    int accessibleRowAt(Point) const override;
    void selectAccessibleRow(int) override;

  private:
    Rect cell(int well) const;
    std::optional<NearSwatch> neighbour(int well) const;
    std::string told(const NearSwatch&) const;
    void select(int well);

    const std::string harmony_;
    const Wells wells_;
    SwatchPanels& panels_;
    NearestSwatches& nearest_;
    int own_ = 0;          ///< where the keyboard stands
    bool painted_ = false; ///< since it was last told to follow
};

/// Those of all four harmonies.
class HarmonyNeighbours {
  public:
    HarmonyNeighbours(WorkingColours&, SwatchPanels&, NearestSwatches&);
    std::vector<OutletEntry> table();
    void follow();

  private:
    std::vector<std::unique_ptr<WellNeighbours>> views_;
};

} // namespace chromalog
