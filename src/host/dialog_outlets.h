#pragma once

#include "desktop/form.h"

namespace chromalog {

/// The dialog's outlets beside those that show the two working colours.
struct DialogOutlets {
    Outlet<Window> chromalogWindow;
    Outlet<Button> okButton, toneOrDegrade, absOrRel, undoButton, redoButton;
    Outlet<ColorWell> complementColor, triHarmoni1Color, triHarmoni2Color, quadri1Color, quadri2Color,
        quadri3Color, equi1Color, equi2Color;
    Outlet<LevelIndicator> baterieSwatch;
    Outlet<ColorWell> nearColor;
    Outlet<TextField> nearR, nearG, nearB, nearC, nearM, nearY, nearK, nearName;
    Outlet<ScrollView> swatch1Scroller, swatch2scroller;
    Outlet<TextField> findColor1, findColor2, found1, found2, swatch1Name, swatch2Name;
    Outlet<Stepper> seachStep1, seachStep2;
    Outlet<Menu> swatchContextMenu, swatchContextMenu2;
    Outlet<Slider> toneSlider;

    std::vector<OutletEntry> table(); ///< each under the name that interface files give it
};

} // namespace chromalog
