#pragma once

#include "colour/working_colours.h"
#include "comparison/compare_panel.h"
#include "comparison/nearest_panel.h"
#include "comparison/well_neighbours.h"
#include "dialog/colour_views.h"
#include "dialog/colours_at_hand.h"
#include "dialog/screen_tool.h"
#include "judge/judge_tools.h"
#include "pictures/picture_panel.h"
#include "swatches/swatch_panels.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace chromalog {

/// What the tools work with. All of it lives longer than they do.
struct ColourToolsParts {
    ColoursAtHand& atHand;
    WorkingColours& colours;
    SwatchPanels& panels;
    Desktop& desktop;
    Outlet<Window>& dialog; ///< carries the panels
    ColorServicesProc services;
    std::function<void(std::string_view labelKey)> setUndoablePosition;
    ColourViews& views;
};

/// What stands beside the dialog's core to find colours and to judge them: the menu "Tools" and what it
/// opens. A tool is a file of its own and a line here.
class ColourTools {
  public:
    explicit ColourTools(ColourToolsParts);
    ColourTools(const ColourTools&) = delete;
    ColourTools& operator=(const ColourTools&) = delete;

    std::vector<OutletEntry> table();
    std::vector<ActionEntry> actions();
    void start();              ///< after the outlets are connected
    void colourChanged(Cause); ///< after all else that follows a change of colour

  private:
    void listsChanged();
    void showPictures();

    ColourToolsParts parts_;
    ComparePanel compare_{parts_.desktop, parts_.dialog, parts_.panels};
    NearestSwatches nearest_{parts_.panels};
    NearestPanel nearestPanel_{parts_.desktop, parts_.dialog, parts_.colours, parts_.panels, nearest_};
    HarmonyNeighbours neighbours_{parts_.colours, parts_.panels, nearest_};
    JudgeTools judge_;
    std::unique_ptr<PicturePanel> pictures_; ///< once it was asked for
    ScreenTool screen_{parts_.colours, parts_.panels, parts_.desktop, parts_.dialog};
};

} // namespace chromalog
