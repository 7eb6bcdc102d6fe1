#pragma once

#include "colour/working_colours.h"
#include "desktop/colour_place.h"
#include "swatches/added_colours.h"
#include "swatches/swatch_panels.h"

#include <string>
#include <vector>

namespace chromalog {

/// Copy, paste, into a list, into a working colour: what a person can do with any colour that stands in the
/// dialog, and with the colours of a harmony together. Menus are made when they open.
class ColoursAtHand : public ColourOperations {
  public:
    ColoursAtHand(WorkingColours& colours, SwatchPanels& panels, Desktop& desktop, ColorServicesProc services)
        : colours_(colours), panels_(panels), desktop_(desktop), services_(services) {}

    void offerMenus(); ///< in the lists' own menus, after the outlets are connected

    /// Wells of harmonies beside those of the two colours' own table; they live as long as this is asked.
    void haveMoreWells(std::vector<OutletEntry> wells) { moreWells_ = std::move(wells); }

    bool standsForColours(const std::string& outlet) const override;
    MenuItems menuOf(const ColourPlace&) override;
    void copy(const ColourPlace&) override;
    bool paste(const ColourPlace&) override;
    void add(const ColourPlace&, int list) override;

  private:
    SwatchPanel& panel(int list) { return list == 2 ? panels_.two : panels_.one; }
    SwatchPanel* listAt(const std::string& outlet); ///< null where no list stands there
    AddedColour named(const ColourPlace&) const;
    std::vector<AddedColour> schemeAt(const std::string& outlet);
    std::vector<AddedColour> onPasteboard();

    MenuItems copyItems(const ColourPlace&);
    MenuItems useItems(const ColourPlace&);
    MenuItems addItems(const ColourPlace&);
    MenuItems schemeItems(const std::string& outlet);
    MenuItems rowItems(SwatchPanel&);

    void copyText(const std::string&);
    void use(const ColourPlace&, bool asFirst);
    void addTo(int list, const std::vector<AddedColour>&);

    WorkingColours& colours_;
    SwatchPanels& panels_;
    Desktop& desktop_;
    const ColorServicesProc services_;
    std::vector<OutletEntry> moreWells_;
};

} // namespace chromalog
