#pragma once

#include "desktop/form.h"

namespace chromalog {

/// The dialog's outlets beside those of the colours, of their views and of the lists.
struct DialogOutlets {
    Outlet<Window> chromalogWindow;
    Outlet<Button> okButton, undoButton, redoButton, toggleSecondColor;
    Outlet<TextField> statusLine;

    /// Each under the name that interface files give it.
    std::vector<OutletEntry> table() {
        return {{"chromalogWindow", &chromalogWindow},
                {"okButton", &okButton},
                {"undoButton", &undoButton},
                {"redoButton", &redoButton},
                {"toggleSecondColor", &toggleSecondColor, true},
                {"statusLine", &statusLine, true}};
    }
};

} // namespace chromalog
