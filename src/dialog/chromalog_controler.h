#pragma once

#include "colour/colour_entries.h"
#include "colour/working_colours.h"
#include "dialog/colour_tools.h"
#include "dialog/colour_views.h"
#include "dialog/colours_at_hand.h"
#include "dialog/dialog_outlets.h"
#include "dialog/stored_lists.h"
#include "exchange/palette_exchange.h"
#include "history/protocol_controler.h"
#include "print/print_options.h"
#include "swatches/swatch_panels.h"

namespace chromalog {

/// The dialog: its form, the order of its start, OK, Cancel and Option, the preferences, and what follows a
/// change of colour. One per pick. What a view, a list or a command does stands in its own room.
class ChromalogControler : SwatchPanelsDelegate {
  public:
    ChromalogControler(GlobalRecord&, Desktop&);
    ~ChromalogControler() override;

    static ChromalogControler* chromalogControler(); ///< of the pick that runs; null outside one

    std::int64_t showWindow(); ///< runs the dialog; the modal code, 0 at once where there is no window
    void okPressed();
    void cancelPressed();
    void toggleSecondColor(); ///< what OK does while Option is held

    // What the dialog holds, for those who watch it.
    GlobalRecord& record() { return data_; }
    ProtocolControler& history() { return *history_; }
    WorkingColours& colours() { return colours_; }
    ColourViews& views() { return views_; }
    SwatchPanels& panels() { return panels_; }
    const PrintOptions& printOptions() const { return printOptions_; }

  private:
    void loadForm();
    FormOwner formOwner();
    std::vector<ActionEntry> actions();
    void zeroInit();
    void loadPrefs();
    void savePrefs(Flush);
    void startLists();
    void placeSecondColour();
    void startHistory();
    void colourChanged(Cause); ///< all that follows a change of colour, in order
    void setOkButton();
    void printList(SwatchPanel&);

    // The lists' delegate.
    void setUndoablePosition(std::string_view labelKey) override;
    void describeSteps(std::string_view latest, std::string_view before) override {
        if (history_) history_->describeSteps(latest, before);
    }
    void setFirstColor(const FCOStruct& swatch, const std::string& name) override {
        colours_.setFirstColor(swatch, name);
    }
    bool isFirstColorId(const Colour& colour, std::int16_t index, std::string& name) override {
        return colours_.isFirstColorId(colour, index, name);
    }
    std::string hostBooks() override;

    GlobalRecord& data_;
    Desktop& desktop_;
    StoredLists stored_{desktop_};
    DialogOutlets outlets_;
    WorkingColours colours_;
    ColourEntries entries_;
    ColourViews views_{colours_, desktop_};
    SwatchPanels panels_;
    ColoursAtHand atHand_;
    PaletteExchange exchange_;
    ColourTools tools_;
    PrintOptions printOptions_;
    std::unique_ptr<Form> form_; ///< its controls go before what they point to
    std::unique_ptr<ProtocolControler> history_;
};

} // namespace chromalog
