#pragma once

#include "desktop/desktop.h"
#include "prefs/lists_summary.h"
#include "swatches/swatch_panel.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// The panel of the copies that were kept beside the preferences file: a person chooses one and brings back
/// either of its lists, one step of undo each. A fresh one for every time. The copies are read as it opens:
/// recording a step may itself replace one of them.
class EarlierLists {
  public:
    /// `setUndoablePosition` records a step.
    EarlierLists(SwatchPanel& one, SwatchPanel& two, Desktop&, const std::string& preferences,
                 std::function<void(std::string_view labelKey)> setUndoablePosition);
    void run(); ///< returns when it is closed

  private:
    struct Copy {
        ListsSummary summary;
        std::vector<std::uint8_t> file; ///< whole
    };

    FormOwner owner();
    void readCopies(const std::string& preferences);
    void show();
    void bringBack(int list);

    const std::array<SwatchPanel*, 2> panels_;
    Desktop& desktop_;
    const std::function<void(std::string_view)> setUndoablePosition_;
    std::vector<Copy> copies_;
    Outlet<Window> earlierListsWindow;
    Outlet<RowList> earlierLists;
    Outlet<TextField> earlierListsNote;
    Outlet<Button> bringBackList1, bringBackList2;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
