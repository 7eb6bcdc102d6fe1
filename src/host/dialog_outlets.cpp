#include "host/dialog_outlets.h"

namespace chromalog {

std::vector<OutletEntry> DialogOutlets::table() {
    return {
        {"chromalogWindow", &chromalogWindow},
        {"okButton", &okButton},
        {"toneOrDegrade", &toneOrDegrade},
        {"absOrRel", &absOrRel},
        {"undoButton", &undoButton},
        {"redoButton", &redoButton},
        {"complementColor", &complementColor},
        {"triHarmoni1Color", &triHarmoni1Color},
        {"triHarmoni2Color", &triHarmoni2Color},
        {"quadri1Color", &quadri1Color},
        {"quadri2Color", &quadri2Color},
        {"quadri3Color", &quadri3Color},
        {"equi1Color", &equi1Color},
        {"equi2Color", &equi2Color},
        {"swatch1Scroller", &swatch1Scroller},
        {"swatch2scroller", &swatch2scroller},
        {"swatch1Name", &swatch1Name},
        {"swatch2Name", &swatch2Name},
        {"statusLine", &statusLine, true},
        {"swatchContextMenu", &swatchContextMenu},
        {"swatchContextMenu2", &swatchContextMenu2},
        {"toneSlider", &toneSlider},
    };
}

} // namespace chromalog
