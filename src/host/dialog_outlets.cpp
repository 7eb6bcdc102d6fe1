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
        {"baterieSwatch", &baterieSwatch},
        {"nearColor", &nearColor},
        {"nearR", &nearR},
        {"nearG", &nearG},
        {"nearB", &nearB},
        {"nearC", &nearC},
        {"nearM", &nearM},
        {"nearY", &nearY},
        {"nearK", &nearK},
        {"nearName", &nearName},
        {"swatch1Scroller", &swatch1Scroller},
        {"swatch2scroller", &swatch2scroller},
        {"findColor1", &findColor1},
        {"findColor2", &findColor2},
        {"found1", &found1},
        {"found2", &found2},
        {"swatch1Name", &swatch1Name},
        {"swatch2Name", &swatch2Name},
        {"seachStep1", &seachStep1},
        {"seachStep2", &seachStep2},
        {"swatchContextMenu", &swatchContextMenu},
        {"swatchContextMenu2", &swatchContextMenu2},
        {"toneSlider", &toneSlider},
    };
}

} // namespace chromalog
