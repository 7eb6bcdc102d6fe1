#include "host/chromalog_controler.h"

#include "colour/colour_text.h"
#include "host/globals.h"
#include "host/host_conversion.h"
#include "host/list_name.h"

#include <cmath>

namespace chromalog {
namespace {

constexpr std::int16_t kUsesSecondColor = 1;

} // namespace

ChromalogControler* ChromalogControler::chromalogControler() {
    return gChromalogControler;
}

ChromalogControler::ChromalogControler(GlobalRecord& data, Desktop& desktop)
    : data_(data), desktop_(desktop) {
    gChromalogControler = this;
    loadForm();
    zeroInit();
    degradeView_.setPrinting(false);
    toneView_.setPrinting(false);
    loadPrefs();
    takeHostColour();
    startLists();
    placeSecondColour();
    history_ = std::make_unique<ProtocolControler>(static_cast<HistoryDesk&>(*this));
    history_->forceHideProtocolWindow();
}

ChromalogControler::~ChromalogControler() {
    desktop_.statusLine().onChange = nullptr;
    if (gChromalogControler == this) gChromalogControler = nullptr;
}

void ChromalogControler::zeroInit() {
    colours_.zeroInit();
    data_.swatchName1[0] = 0;
    data_.swatchName2[0] = 0;
}

void ChromalogControler::takeHostColour() {
    PickParms& parms = pickParms();
    std::int16_t c[4];
    for (int i = 0; i < 4; ++i)
        c[i] = static_cast<std::int16_t>(parms.colorComponents[i] >> 8);
    parms.resultSpace = plugIncolorServicesRGBSpace;
    // A failure leaves the components as they are, and they are used as they stand.
    if (parms.sourceSpace != plugIncolorServicesRGBSpace)
        HostCSConvertColor(colorServices(), parms.sourceSpace, plugIncolorServicesRGBSpace, c);
    colours_.setSecondColor(Colour::rgb(c[0] / 255.0, c[1] / 255.0, c[2] / 255.0));
}

void ChromalogControler::startLists() {
    for (int twice = 0; twice < 2; ++twice) {
        swatch1_.setSwatchList(data_.swatchList1);
        swatch2_.setSwatchList(data_.swatchList2);
    }
    swatch1_.setNumberOfColors(data_.numColors1);
    swatch2_.setNumberOfColors(data_.numColors2);
    outlets_.toneOrDegrade->setState(0);
    switchTone();
    search_.observeFields();
    swatch1_.initFromControler();
    swatch2_.initFromControler();
}

void ChromalogControler::placeSecondColour() {
    const auto brightness = [this] { return static_cast<float>(colours_.getSecondColor().brightness()); };
    colours_.showFirstColor();
    setLuminosity(brightness());
    redrawCircle();
    chromaView_.setCursorWithColor(colours_.getSecondColor());
    setHarmonyColors();
    outlets_.undoButton->setEnabled(false);
    outlets_.redoButton->setEnabled(false);
    swatch1_.setNeedsDisplay();
    swatch2_.setNeedsDisplay();
    setOkButton();
    setLuminosity(brightness());
    placeStripCursor();
    redrawWheelAndPlace();
    chromaView_.setNeedsDisplay();
}

std::int64_t ChromalogControler::showWindow() {
    Window& window = *outlets_.chromalogWindow;
    if (!window.connected()) {
        desktop_.log("no dialog window to run");
        return 0;
    }
    window.makeKeyAndOrderFront();
    const std::int64_t code = desktop_.runModal(window);
    window.orderOut();
    return code;
}

void ChromalogControler::makeActiveWindow() {
    outlets_.chromalogWindow->makeKeyAndOrderFront();
}

void ChromalogControler::setOkButton() {
    // Any value but 0 reads as the second colour here, while OK asks for exactly 1: kept.
    const bool second = data_.useSecondColor != 0;
    outlets_.okButton->setTitle(second ? "Use 2nd color" : "Use 1st color");
    outlets_.okButton->setBackground(second ? colours_.getSecondColor() : colours_.getFirstColor());
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
    const Colour& chosen =
        data_.useSecondColor == kUsesSecondColor ? colours_.getSecondColor() : colours_.getFirstColor();
    std::uint16_t* components = pickParms().colorComponents; // the fourth stays as it was
    components[0] = wordOf(chosen.red());
    components[1] = wordOf(chosen.green());
    components[2] = wordOf(chosen.blue());
    desktop_.stopModal(0); // first: the pick ends also where the lists cannot be saved
    savePrefs(Flush::toDisk);
}

void ChromalogControler::cancelPressed() {
    desktop_.stopModal(0);
    savePrefs(Flush::toDisk);
    outlets_.chromalogWindow->orderOut();
}

void ChromalogControler::savePrefs(Flush flush) {
    storeViewCounts();
    stored_.save(data_, flush);
}

void ChromalogControler::loadPrefs() {
    if (!stored_.open(data_, desktop_.optionKeyHeld())) return;
    swatch1_.setNumberOfColors(data_.numColors1);
    swatch2_.setNumberOfColors(data_.numColors2);
    if (data_.swatchName1[0] != 0) showListName(1);
    if (data_.swatchName2[0] != 0) showListName(2);
}

void ChromalogControler::showListName(int number) {
    std::uint8_t* field = number == 1 ? data_.swatchName1 : data_.swatchName2;
    if (const auto name = terminatedListName(ListNameField(field, 257)))
        (number == 1 ? outlets_.swatch1Name : outlets_.swatch2Name)->setText(*name);
}

} // namespace chromalog
