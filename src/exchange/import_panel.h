#pragma once

#include "desktop/desktop.h"
#include "exchange/import_plan.h"
#include "exchange/import_source.h"
#include "exchange/patches_view.h"

#include <memory>
#include <optional>

namespace chromalog {

/// Shows what an import would bring and lose, before anything changes; a person chooses the way or cancels.
/// A fresh one for every time.
class ImportPanel {
  public:
    /// `into`: what the list is called; `rows`: it as it stands.
    ImportPanel(Desktop&, const ImportSource&, const std::string& into, ConstListRecords rows,
                const CmykToRgb&, const std::string& ink);
    std::optional<ImportWay> run(); ///< returns when it is closed; nothing: cancelled

  private:
    FormOwner owner();
    void show(const ImportSource&, const std::string& into, ConstListRecords rows, const CmykToRgb&,
              const std::string& ink);
    void choose(ImportWay);

    Desktop& desktop_;
    std::optional<ImportWay> chosen_;
    PatchesView patches_;
    Outlet<Window> importWindow;
    Outlet<TextField> importNote;
    Outlet<TextView> importLoss;
    Outlet<Button> importReplace, importAppend, importNew;
    std::unique_ptr<Form> form_; ///< after the outlets and the view: its controls go first
};

} // namespace chromalog
