#pragma once

#include "desktop/desktop.h"
#include "exchange/library_view.h"

#include <memory>

namespace chromalog {

/// The person's library below the data directory, and what other programs keep unless that directory is one
/// of this program's own.
PaletteLibrary libraryOf(const Desktop&);

/// The library beside the dialog: a panel that floats above it. Files that come and go are followed while it
/// shows.
class LibraryPanel {
  public:
    /// `load` gets the path of the palette that was chosen.
    LibraryPanel(Desktop&, Window& dialog, std::function<void(const std::string& path)> load);

    /// `note`: into which list a click loads; `left`: on which side of the dialog that list stands.
    void show(const std::string& note, bool left);
    void refresh();

  private:
    FormOwner owner();
    void hide();
    void watch();

    Desktop& desktop_;
    Window& dialog_;
    const PaletteLibrary library_;
    std::uint64_t state_ = 0;
    LibraryView view_;
    Outlet<Window> libraryWindow;
    Outlet<ScrollView> libraryScroller;
    Outlet<TextField> libraryNote;
    std::unique_ptr<Timer> watch_;
    std::unique_ptr<Form> form_; ///< after the outlets and the view: its controls go first
};

} // namespace chromalog
