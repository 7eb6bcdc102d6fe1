#pragma once

#include "colour/working_colours.h"
#include "desktop/desktop.h"
#include "judge/gamut_outline.h"
#include "views/chromatic_circle_view.h"

#include <memory>
#include <optional>
#include <vector>

namespace chromalog {

/// What cannot be printed, while a person has it shown: a mark beside either colour, which a press replaces
/// by the nearest printable one, and on the wheel an outline of what can be at its brightness. All of it is
/// the host's word; where the host converts nothing the item of the menu is disabled and says so.
class GamutWarning : public WheelTool {
  public:
    GamutWarning(WorkingColours&, chromaticCircleView&, Desktop&, ColorServicesProc);
    ~GamutWarning() override { wheel_.removeTool(*this); }

    std::vector<OutletEntry> table();
    void start(); ///< after the outlets are connected
    void toggle();
    void follow(); ///< nothing while it is hidden
    void usePrintable(bool first);

    void drawOverWheel(Canvas&) override;

  private:
    struct Mark {
        Outlet<Button> button{};
        HostGamut::Bytes judged{-1, -1, -1};
        std::optional<HostGamut::Bytes> printable{}; ///< while the colour itself is not
    };

    void disable(const std::string& why);
    void show(bool shown);
    void judge(Mark&, const Colour&);
    void searchLater();
    void search();
    int level() const { return GamutOutline::levelOf(colours_.getLuminosity()); }

    WorkingColours& colours_;
    chromaticCircleView& wheel_;
    Desktop& desktop_;
    const HostGamut host_;
    GamutOutline outline_;
    Outlet<Button> itemGamutWarning;
    Mark first_, second_;
    bool shown_ = false;
    int searching_ = -1, drawn_ = -1; ///< levels; -1: none
    std::unique_ptr<Timer> timer_;
};

} // namespace chromalog
