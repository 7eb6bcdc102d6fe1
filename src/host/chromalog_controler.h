#pragma once

#include "colour/working_colours.h"
#include "desktop/desktop.h"
#include "history/protocol_controler.h"
#include "host/abi/picker_record.h"
#include "host/dialog_outlets.h"
#include "host/global_record.h"
#include "host/stored_lists.h"
#include "print/list_printing.h"
#include "print/print_options.h"
#include "swatches/list_commands.h"
#include "swatches/nearest_display.h"
#include "swatches/search_knobs.h"
#include "views/chromatic_circle_view.h"
#include "views/degrade_view.h"
#include "views/luminosity_view.h"
#include "views/my_well.h"
#include "views/tone_view.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace chromalog {

/// The dialog's controller and the hub that every view calls. One per pick: it owns the outlets and the views
/// and forwards; the work of an action is done in its room. It stores itself in gChromalogControler.
class ChromalogControler : WorkingColoursDesk,
                           chromaticCircleDesk,
                           luminosityDesk,
                           toneDesk,
                           myWellDesk,
                           CSwatchListDesk,
                           ListCommandsDesk,
                           HistoryDesk,
                           PrintDesk {
  public:
    ChromalogControler(GlobalRecord&, Desktop&);
    ~ChromalogControler() override;
    ChromalogControler(const ChromalogControler&) = delete;
    ChromalogControler& operator=(const ChromalogControler&) = delete;

    static ChromalogControler* chromalogControler();

    std::int64_t showWindow(); ///< runs the dialog; the modal code, 0 at once where there is no window
    Window& getChromalogWindow() override { return *outlets_.chromalogWindow; }
    void makeActiveWindow() override;

    // Actions of this layer.
    void okPressed();
    void cancelPressed();
    void toggleSecondColor(); ///< what OK does while Option is held

    void savePrefs() override { savePrefs(Flush::later); } ///< before every recorded change
    void setOkButton() override;
    void redrawCircle() override;
    void setHarmonyColors() override;
    void complementOn();
    void harmoniquesOn();
    void triComplementOn();
    void quadriOn();
    void changeTone();
    void switchAbs();
    void switchTone();
    void editSwatch();
    void writeToSwatch();
    void printToneOrDegrade();
    void doUndo();
    void doRedo();

    // What the dialog holds, for those who watch it.
    GlobalRecord& record() override { return data_; }
    ProtocolControler& history() { return *history_; }
    WorkingColours& colours() { return colours_; }
    const chromaticCircleView& wheel() const { return chromaView_; }
    const toneView& tone() const { return toneView_; }
    const degradeView& gradient() const { return degradeView_; }
    CSwatchList& list(int number) { return number == 1 ? swatch1_ : swatch2_; }
    ScrollView& listScroller(int number);
    const PrintOptions& printOptions() const { return printOptions_; }
    std::int16_t getHarmonyMode() const override { return harmonyMode_; }

  private:
    void zeroInit();
    void loadForm();
    FormOwner formOwner();
    std::vector<ActionEntry> actions();
    void startLists();
    void takeHostColour();
    void placeSecondColour();
    void loadPrefs();
    void savePrefs(Flush);
    void showListName(int number);
    void setHarmonyMode(std::int16_t mode);
    PickParms& pickParms() { return data_.pickerRecord->pickParms; }

    // The desks of the rooms.
    Desktop& desktop() override { return desktop_; }
    ColorServicesProc colorServices() const override { return data_.pickerRecord->colorServices; }
    void getNearFco() override { nearest_.getNearFco(swatch1_, colours_.getSecondColor(), colorServices()); }
    void placeStripCursor() override;
    void redrawWheelAndPlace() override;
    void markWheel() override { chromaView_.setNeedsDisplay(); }
    void markToneAndStrip() override;
    std::optional<std::string> selectedSwatchName(const DragSource*) override;
    float getLuminosity() const override { return colours_.getLuminosity(); }
    void setLuminosity(float l) override { colours_.setLuminosity(l); }
    Colour getSecondColor() const override { return colours_.getSecondColor(); }
    void changeSecondColor(const Colour& c) override { colours_.changeSecondColor(c); }
    float getAlpha() const override { return colours_.getAlpha(); }
    void setAlpha(float radians) override { colours_.setAlpha(radians); }
    void setoppositeColor(const Colour&, std::int16_t code) override;
    bool absoluteTone() const override { return outlets_.absOrRel->state() == 1; }
    float getToneShadeValue() const override { return static_cast<float>(outlets_.toneSlider->value()); }
    void setFirstAndSecondFromDrop(const DragSource* source, const ColorWell& target) override;
    void setFirstColor(CSwatchList&, std::int16_t index) override;
    bool isFirstColorId(const Colour& c, std::int16_t index, std::string& nameOut) override {
        return colours_.isFirstColorId(c, index, nameOut);
    }
    void activateKnobs(CSwatchList& list, double hits) override { search_.activateKnobs(list, hits); }
    ListParts list(ListNumber) override;
    std::string colourBooksFolder() override; ///< one property call
    void setUndoablePosition(std::string_view labelKey) override;
    void storeViewCounts() override;
    void restoreUndoUI() override;
    void enableUndo() override { outlets_.undoButton->setEnabled(true); }
    void disableUndo() override { outlets_.undoButton->setEnabled(false); }
    void enableRedo() override { outlets_.redoButton->setEnabled(true); }
    void disableRedo() override { outlets_.redoButton->setEnabled(false); }
    ListRecords list1Records() override { return data_.swatchList1; }
    ScrollView& scroller(CSwatchList& list) override { return listScroller(&list == &swatch1_ ? 1 : 2); }
    Menu& menu(CSwatchList&) override;
    void setSwatchPrintsize(std::int16_t size) override { printOptions_.printSize = size; }
    void setPrintAttributes(std::int16_t which, std::uint8_t flag) override {
        printOptions_.setPrintAttributes(which, flag);
    }
    std::uint8_t isNameToPrint() const override { return printOptions_.printName; }
    std::uint8_t isRGBToPrint() const override { return printOptions_.printRGB; }
    std::uint8_t isCMYKToPrint() const override { return printOptions_.printCMYK; }
    std::int16_t getMyPrintSize() const override { return printOptions_.printSize; }

    GlobalRecord& data_;
    Desktop& desktop_;
    StoredLists stored_{desktop_};

    WorkingColours colours_{*this};
    DialogOutlets outlets_;
    std::int16_t harmonyMode_ = 0;
    PrintOptions printOptions_;
    chromaticCircleView chromaView_{*this};
    luminosityView lumiView_{*this};
    toneView toneView_{*this};
    degradeView degradeView_{static_cast<toneDesk&>(*this)};
    CSwatchList swatch1_{*this}, swatch2_{*this};
    ListCommands commands_{*this};
    NearestDisplay nearest_;
    SearchKnobs search_{desktop_, swatch1_, swatch2_};
    std::unique_ptr<Form> form_; ///< its controls go before what they point to
    std::unique_ptr<ProtocolControler> history_;
};

} // namespace chromalog
