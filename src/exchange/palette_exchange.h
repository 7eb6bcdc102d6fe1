#pragma once

#include "exchange/export_panel.h"
#include "exchange/import_plan.h"
#include "exchange/import_source.h"
#include "exchange/library_panel.h"
#include "record/host_conversion.h"
#include "swatches/swatch_panel.h"

#include <functional>

namespace chromalog {

/// What Import and Export work with. All of it lives longer than they do.
struct PaletteExchangeParts {
    SwatchPanel &one, &two;
    Desktop& desktop;
    Outlet<Window>& dialog; ///< carries the sheets
    ColorServicesProc services;
    std::function<void(std::string_view labelKey)> setUndoablePosition;
    std::function<void(std::string_view latest)> describeStep;        ///< what undoing the latest step does
    std::function<std::vector<int>(const SwatchPanel&)> selectedRows; ///< of a list, in rising order
};

/// Palettes of every kind into a list, after a look at what they hold, and out of it. The buttons that load
/// and save swatch files are another matter.
class PaletteExchange {
  public:
    explicit PaletteExchange(PaletteExchangeParts parts) : parts_(std::move(parts)) {}

    void chooseFile(SwatchPanel&);
    /// Shows what the files hold; where a person goes on, it is one step of undo. What cannot be read is said
    /// on the status line.
    void importFiles(SwatchPanel&, const std::vector<std::string>& paths);
    /// The same once the drop is over, which the other program waits for; false where they cannot be read.
    bool importDropped(SwatchPanel&, const std::vector<std::string>& paths);
    /// Files that were named before the dialog showed, into list 1; nothing where there are none.
    void importWhenShown(std::vector<std::string> paths);
    void exportList(SwatchPanel&);
    void showLibrary(SwatchPanel&); ///< a click there replaces this list, as one step of undo
    void keepInLibrary(SwatchPanel&);

    std::vector<ActionEntry> actions();

  private:
    LibraryPanel& library();
    /// Nothing, and the status line says why, where one cannot be read.
    std::optional<ImportSource> read(const std::vector<std::string>& paths);
    void offer(SwatchPanel&, const ImportSource&); ///< the panel, and what is chosen there
    void take(SwatchPanel&, const ImportSource&, ImportWay);
    void write(const Palette&, PaletteFormat, const std::string& path);

    PaletteExchangeParts parts_;
    std::unique_ptr<Timer> later_;
    std::unique_ptr<LibraryPanel> library_; ///< once it was asked for
    SwatchPanel* libraryLoadsInto_ = nullptr;
};

} // namespace chromalog
