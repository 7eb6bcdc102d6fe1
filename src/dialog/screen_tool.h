#pragma once

#include "colour/working_colours.h"
#include "swatches/swatch_panels.h"

#include <memory>

namespace chromalog {

/// Colours from the screen: the last one taken becomes the second colour; several go into list 1 too, as one
/// step of undo. Until the person is done nothing changes.
class ScreenTool {
  public:
    ScreenTool(WorkingColours& colours, SwatchPanels& panels, Desktop& desktop, Outlet<Window>& dialog)
        : colours_(colours), panels_(panels), desktop_(desktop), dialog_(dialog) {}

    void pick(); ///< the one before, if it is still under way, is taken back

  private:
    void take(const ScreenColours&);

    WorkingColours& colours_;
    SwatchPanels& panels_;
    Desktop& desktop_;
    Outlet<Window>& dialog_;
    std::unique_ptr<ScreenPick> underWay_;
};

} // namespace chromalog
