#pragma once

#include "desktop/form.h"

namespace chromalog {

/// The dialog's outlets beside those of the working colours, of the search and of the nearest swatch.
struct DialogOutlets {
    Outlet<Window> chromalogWindow;
    Outlet<Button> okButton, toneOrDegrade, absOrRel, undoButton, redoButton;
    Outlet<ColorWell> complementColor, triHarmoni1Color, triHarmoni2Color, quadri1Color, quadri2Color,
        quadri3Color, equi1Color, equi2Color;
    Outlet<ScrollView> swatch1Scroller, swatch2scroller;
    Outlet<TextField> swatch1Name, swatch2Name, statusLine;
    Outlet<Menu> swatchContextMenu, swatchContextMenu2;
    Outlet<Slider> toneSlider;

    std::vector<OutletEntry> table(); ///< each under the name that interface files give it
};

} // namespace chromalog
