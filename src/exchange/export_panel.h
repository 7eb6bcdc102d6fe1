#pragma once

#include "desktop/desktop.h"
#include "palettes/palette_format.h"

#include <memory>
#include <optional>

namespace chromalog {

/// What a person wants written.
struct ExportChoice {
    PaletteFormat format;
    bool selectedOnly = false;
};

/// Shows the kinds of palettes, each with what it would lose; a person chooses one. A fresh one for every
/// time.
class ExportPanel {
  public:
    ExportPanel(Desktop&, const Palette& list, std::size_t selected); ///< how many rows of it are
    std::optional<ExportChoice> run(); ///< returns when it is closed; nothing: cancelled

  private:
    FormOwner owner();
    void choose(bool selectedOnly);

    Desktop& desktop_;
    std::optional<ExportChoice> chosen_;
    Outlet<Window> exportWindow;
    Outlet<RowList> exportKinds;
    Outlet<Button> exportAll, exportSelected;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
