#include "dialog/chromalog_controler.h"

#include "base/translated.h"
#include "dialog/earlier_lists.h"
#include "dialog/globals.h"
#include "dialog/host_side.h"
#include "print/chart_printing.h"
#include "print/list_printing.h"

namespace chromalog {
namespace {

constexpr std::int16_t kUsesSecondColor = 1;

template <typename Entry> void append(std::vector<Entry>& all, const std::vector<Entry>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

bool returnsSecond(const GlobalRecord& data) {
    return data.useSecondColor == kUsesSecondColor;
}

/// Also where the button's title and colour are left behind, as after an undo.
void showWhatOkReturns(const GlobalRecord& data, DialogOutlets& outlets) {
    outlets.toggleSecondColor->setState(returnsSecond(data) ? 1 : 0);
}

} // namespace

ChromalogControler* ChromalogControler::chromalogControler() {
    return gChromalogControler;
}

ChromalogControler::ChromalogControler(GlobalRecord& data, Desktop& desktop)
    : data_(data), desktop_(desktop), colours_(data.pickerRecord->colorServices),
      entries_(colours_, data.pickerRecord->colorServices),
      panels_(data, desktop, outlets_.chromalogWindow, data.pickerRecord->colorServices, *this),
      atHand_(colours_, panels_, desktop, data.pickerRecord->colorServices),
      exchange_({panels_.one, panels_.two, desktop, outlets_.chromalogWindow,
                 data.pickerRecord->colorServices,
                 [this](std::string_view label) { setUndoablePosition(label); },
                 [this](std::string_view latest) { describeSteps(latest, {}); },
                 [this](const SwatchPanel& panel) { return panels_.rows(panel.view).rows(); }}),
      tools_({atHand_, colours_, panels_, desktop, outlets_.chromalogWindow, data.pickerRecord->colorServices,
              [this](std::string_view label) { setUndoablePosition(label); }, views_}) {
    gChromalogControler = this;
    panels_.importFiles = [this](SwatchPanel& panel, const std::vector<std::string>& paths) {
        return exchange_.importDropped(panel, paths);
    };
    loadForm();
    zeroInit();
    loadPrefs();
    colours_.setOfferedColor(takeHostColour(*data_.pickerRecord));
    startLists();
    placeSecondColour();
    startHistory();
}

ChromalogControler::~ChromalogControler() {
    desktop_.statusLine().onChange = nullptr;
    gProtocolController = nullptr;
    if (gChromalogControler == this) gChromalogControler = nullptr;
}

void ChromalogControler::loadForm() {
    colours_.changed = [this](Cause cause) { colourChanged(cause); };
    colours_.nameOfDragged = [this](const DragSource* source) { return panels_.selectedName(source); };
    form_ = desktop_.loadForm("chromalogWindow", formOwner());
    if (!form_) desktop_.log("failed to load prismaticaDialog xib");
    colours_.observeControls();
    entries_.observeControls();
    atHand_.offerMenus();
    tools_.start();
    outlets_.chromalogWindow->whenClosed([this] { cancelPressed(); });
    StatusLine& status = desktop_.statusLine();
    status.onChange = [this, &status] { outlets_.statusLine->setText(status.text()); };
}

FormOwner ChromalogControler::formOwner() {
    FormOwner owner{outlets_.table(), actions(), &atHand_};
    append(owner.outlets, colours_.table());
    append(owner.outlets, entries_.table());
    append(owner.outlets, views_.table());
    append(owner.outlets, panels_.table());
    append(owner.outlets, tools_.table());
    append(owner.actions, colours_.actions());
    append(owner.actions, views_.actions());
    append(owner.actions, panels_.actions());
    append(owner.actions, exchange_.actions());
    append(owner.actions, tools_.actions());
    return owner;
}

std::vector<ActionEntry> ChromalogControler::actions() {
    const auto step = [this](std::string_view label) { setUndoablePosition(label); };
    return {
        {"okPressed:", [this] { okPressed(); }},
        {"cancelPressed:", [this] { cancelPressed(); }},
        {"toggleSecondColor:", [this] { toggleSecondColor(); }},
        {"writeToSwatch:",
         [this] { panels_.commands.writeToSwatch(colours_.getFirstColor(), colours_.colorName->text()); }},
        {"doUndo:", [this] { history_->undoOutAction(); }},
        {"doRedo:", [this] { history_->redoOutAction(); }},
        {"bringBackLists:",
         [this, step] { EarlierLists(panels_.one, panels_.two, desktop_, stored_.path(), step).run(); }},
        {"refreshNearest:", [this] { panels_.showNearest(colours_.getSecondColor()); }},
        {"showProtocolWindow", [this] { history_->showProtocolWindow(); }},
        {"dumpUndo", [this] { history_->dumpUndo(); }},
        {"setupPrintPage:", [this] { desktop_.runPageLayout(*outlets_.chromalogWindow); }},
        {"printFirstSwatch:", [this] { printList(panels_.one); }},
        {"printSecondSwatch:", [this] { printList(panels_.two); }},
        {"printToneOrDegrade:",
         [this] {
             printToneOrDegrade(views_.gradient, views_.tone, views_.toneOrDegrade->state(), desktop_);
         }},
    };
}

void ChromalogControler::zeroInit() {
    colours_.zeroInit();
    data_.swatchName1[0] = 0;
    data_.swatchName2[0] = 0;
}

void ChromalogControler::loadPrefs() {
    if (!stored_.open(data_, desktop_.optionKeyHeld())) return;
    panels_.takeStoredCounts();
    for (SwatchPanel* panel : panels_.both())
        if (panel->storedName[0] != 0) panel->showStoredName();
}

void ChromalogControler::savePrefs(Flush flush) {
    panels_.storeViewCounts();
    stored_.save(data_, flush);
}

void ChromalogControler::startLists() {
    panels_.start();
    views_.start();
    panels_.secondColour = [this] { return colours_.getSecondColor(); };
    panels_.search.observeFields();
    for (SwatchPanel* panel : panels_.both())
        panel->view.initFromControler();
}

void ChromalogControler::placeSecondColour() {
    const Colour& second = colours_.getSecondColor();
    colours_.showFirstColor();
    colours_.setLuminosity(static_cast<float>(second.brightness()));
    views_.redrawCircle();
    views_.wheel.setCursorWithColor(second);
    views_.wheel.setHarmonyColors();
    outlets_.undoButton->setEnabled(false);
    outlets_.redoButton->setEnabled(false);
    panels_.setNeedsDisplay();
    setOkButton();
    colours_.placeSecondColor();
}

void ChromalogControler::startHistory() {
    HistoryParts parts{desktop_,
                       data_,
                       outlets_.chromalogWindow,
                       outlets_.undoButton,
                       outlets_.redoButton,
                       [this] { savePrefs(Flush::later); },
                       [this] { panels_.storeViewCounts(); },
                       [this] {
                           panels_.showRecord();
                           showWhatOkReturns(data_, outlets_);
                       }};
    history_ = std::make_unique<ProtocolControler>(std::move(parts));
    gProtocolController = history_.get();
    history_->forceHideProtocolWindow();
}

void ChromalogControler::colourChanged(Cause cause) {
    entries_.follow();
    const Colour& second = colours_.getSecondColor();
    switch (cause) {
    case Cause::firstColour:
        setOkButton();
        break;
    case Cause::secondColour:
        panels_.showNearest(second);
        setOkButton();
        views_.tone.setNeedsDisplay(); // a click on the chart picks what it would show anew
        views_.strip.setNeedsDisplay();
        break;
    case Cause::secondEntered:
        panels_.showNearest(second);
        colours_.placeSecondColor();
        setOkButton();
        break;
    case Cause::secondPlaced:
        views_.place(second);
        break;
    case Cause::luminosity:
        views_.redrawCircle();
        views_.wheel.setHarmonyColors(); // read from the rebuilt picture
        break;
    case Cause::harmonyMode:
        views_.wheel.setHarmonyColors();
        views_.wheel.setNeedsDisplay();
        break;
    }
    tools_.colourChanged(cause);
}

std::int64_t ChromalogControler::showWindow() {
    Window& window = *outlets_.chromalogWindow;
    if (!window.connected()) {
        desktop_.log("no dialog window to run");
        return 0;
    }
    window.makeKeyAndOrderFront();
    exchange_.importWhenShown(desktop_.filesToImport());
    const std::int64_t code = desktop_.runModal(window);
    window.orderOut();
    return code;
}

void ChromalogControler::setOkButton() {
    // Any value but 0 reads as the second colour here, while OK asks for exactly 1: kept.
    const bool second = data_.useSecondColor != 0;
    outlets_.okButton->setTitle(second ? translated("Use 2nd color") : translated("Use 1st color"));
    outlets_.okButton->setBackground(second ? colours_.getSecondColor() : colours_.getFirstColor());
    showWhatOkReturns(data_, outlets_);
}

void ChromalogControler::toggleSecondColor() {
    data_.useSecondColor = data_.useSecondColor != 0 ? 0 : kUsesSecondColor;
    setOkButton();
}

void ChromalogControler::okPressed() {
    if (desktop_.optionKeyHeld()) {
        toggleSecondColor();
        return;
    }
    const Colour& colour = returnsSecond(data_) ? colours_.getSecondColor() : colours_.getFirstColor();
    returnColour(*data_.pickerRecord, colour);
    desktop_.returned(colour);
    desktop_.stopModal(0); // first: the pick ends also where the lists cannot be saved
    savePrefs(Flush::toDisk);
}

void ChromalogControler::cancelPressed() {
    desktop_.stopModal(0);
    savePrefs(Flush::toDisk);
    outlets_.chromalogWindow->orderOut();
}

void ChromalogControler::printList(SwatchPanel& panel) {
    printSwatchList(panel.view, printOptions_, data_.pickerRecord->colorServices, desktop_);
    gPrintOptionController = nullptr;
}

void ChromalogControler::setUndoablePosition(std::string_view labelKey) {
    if (history_) history_->setUndoablePosition(desktop_.localized(labelKey), labelKey);
}

std::string ChromalogControler::hostBooks() {
    return chromalog::hostBooks(*data_.pickerRecord, desktop_);
}

} // namespace chromalog
