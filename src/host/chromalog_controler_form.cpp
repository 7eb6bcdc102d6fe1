// The dialog's interface file: its outlets, its actions, and the actions of the colour views.
#include "host/chromalog_controler.h"

#include "host/earlier_lists.h"
#include "print/chart_printing.h"

namespace chromalog {

void ChromalogControler::loadForm() {
    form_ = desktop_.loadForm("chromalogWindow", formOwner());
    if (!form_) desktop_.log("failed to load prismaticaDialog xib");
    bindValueFields(colours_.first, colours_.second, colours_);
    outlets_.chromalogWindow->onClose = [this] { cancelPressed(); };
    StatusLine& status = desktop_.statusLine();
    status.onChange = [this, &status] { outlets_.statusLine->setText(status.text()); };
    myWell(colours_.origFirstColor, *this);
    myWell(colours_.origSecondColor, *this);
}

FormOwner ChromalogControler::formOwner() {
    FormOwner owner{outlets_.table(), actions()};
    for (const auto& table : {colours_.table(), nearest_.table(), search_.table()})
        owner.outlets.insert(owner.outlets.end(), table.begin(), table.end());
    for (const ActionEntry& action : commands_.actions())
        owner.actions.push_back(action);
    owner.outlets.push_back({"chromaView", &chromaView_});
    owner.outlets.push_back({"lumiView", &lumiView_});
    owner.outlets.push_back({"myToneView", &toneView_});
    owner.outlets.push_back({"myDegrade", &degradeView_});
    owner.outlets.push_back({"swatch1", &swatch1_});
    owner.outlets.push_back({"swatch2", &swatch2_});
    return owner;
}

std::vector<ActionEntry> ChromalogControler::actions() {
    return {
        {"okPressed:", [this] { okPressed(); }},
        {"cancelPressed:", [this] { cancelPressed(); }},
        {"toggleSecondColor:", [this] { toggleSecondColor(); }},
        {"complementOn:", [this] { complementOn(); }},
        {"harmoniquesOn:", [this] { harmoniquesOn(); }},
        {"triComplementOn:", [this] { triComplementOn(); }},
        {"quadriOn:", [this] { quadriOn(); }},
        {"changeTone:", [this] { changeTone(); }},
        {"switchAbs:", [this] { switchAbs(); }},
        {"switchTone:", [this] { switchTone(); }},
        {"editSwatch:", [this] { editSwatch(); }},
        {"writeToSwatch:", [this] { writeToSwatch(); }},
        {"jumpFirst:", [this] { search_.jumpFirst(); }},
        {"jumpSecond:", [this] { search_.jumpSecond(); }},
        {"deleteSwatch1:", [this] { swatch1_.deleteEntry(); }},
        {"deleteSwatch2:", [this] { swatch2_.deleteEntry(); }},
        {"doUndo:", [this] { doUndo(); }},
        {"doRedo:", [this] { doRedo(); }},
        {"bringBackLists:", [this] { EarlierLists(*this, stored_.path()).run(); }},
        {"showProtocolWindow", [this] { history_->showProtocolWindow(); }},
        {"dumpUndo", [this] { history_->dumpUndo(); }},
        {"setupPrintPage:", [this] { desktop_.runPageLayout(getChromalogWindow()); }},
        {"printFirstSwatch:", [this] { printSwatchList(swatch1_, *this); }},
        {"printSecondSwatch:", [this] { printSwatchList(swatch2_, *this); }},
        {"printToneOrDegrade:", [this] { printToneOrDegrade(); }},
    };
}

void ChromalogControler::setHarmonyMode(std::int16_t mode) {
    harmonyMode_ = mode;
    setHarmonyColors();
    chromaView_.setNeedsDisplay();
}

void ChromalogControler::complementOn() {
    setHarmonyMode(harmonyMode_ != 1 ? 1 : 0);
}
void ChromalogControler::harmoniquesOn() {
    setHarmonyMode(harmonyMode_ != 2 ? 2 : 0);
}
void ChromalogControler::triComplementOn() {
    setHarmonyMode(3);
} // unlike the two above, no toggle: kept
void ChromalogControler::quadriOn() {
    setHarmonyMode(4);
}

void ChromalogControler::changeTone() {
    toneView_.setNeedsDisplay();
}
void ChromalogControler::switchAbs() {
    toneView_.setNeedsDisplay();
}

void ChromalogControler::switchTone() {
    const bool tone = outlets_.toneOrDegrade->state() == 1;
    degradeView_.setHidden(tone);
    toneView_.setHidden(!tone);
    outlets_.absOrRel->setHidden(!tone);
    outlets_.toneSlider->setHidden(!tone);
}

void ChromalogControler::printToneOrDegrade() {
    chromalog::printToneOrDegrade(degradeView_, toneView_, outlets_.toneOrDegrade->state(), desktop_);
}

void ChromalogControler::editSwatch() {
    setFirstColor(swatch1_, swatch1_.getSelected());
    swatch1_.setNeedsDisplay();
}

void ChromalogControler::writeToSwatch() {
    commands_.writeToSwatch(colours_.getFirstColor(), colours_.colorName->text());
}

} // namespace chromalog
