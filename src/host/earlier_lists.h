#pragma once

#include "desktop/desktop.h"
#include "prefs/lists_summary.h"
#include "swatches/list_commands.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// The panel of the copies that were kept beside the preferences file: a person chooses one and brings back
/// either of its lists, one step of undo each. A fresh one for every time. The copies are read as it opens:
/// recording a step may itself replace one of them.
class EarlierLists {
  public:
    EarlierLists(ListCommandsDesk&, const std::string& preferences);
    void run(); ///< returns when it is closed

  private:
    struct Copy {
        ListsSummary summary;
        std::vector<std::uint8_t> file; ///< whole
    };

    FormOwner owner();
    void readCopies(const std::string& preferences);
    void show();
    void bringBack(ListNumber);

    ListCommandsDesk& desk_;
    std::vector<Copy> copies_;
    Outlet<Window> earlierListsWindow;
    Outlet<RowList> earlierLists;
    Outlet<TextField> earlierListsNote;
    Outlet<Button> bringBackList1, bringBackList2;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
