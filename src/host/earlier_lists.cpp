#include "host/earlier_lists.h"

#include "history/undo_labels.h"
#include "prefs/file_io.h"
#include "prefs/kept_copies.h"
#include "prefs/preferences_file.h"

#include <algorithm>
#include <cstring>

namespace chromalog {

EarlierLists::EarlierLists(ListCommandsDesk& desk, const std::string& preferences) : desk_(desk) {
    form_ = desk_.desktop().loadForm("EarlierLists", owner());
    if (!form_) desk_.desktop().log("failed to load the form EarlierLists");
    earlierListsWindow->onClose = [this] { desk_.desktop().stopModal(0); };
    readCopies(preferences);
    show();
}

FormOwner EarlierLists::owner() {
    return {{{"earlierListsWindow", &earlierListsWindow},
             {"earlierLists", &earlierLists},
             {"earlierListsNote", &earlierListsNote},
             {"bringBackList1", &bringBackList1},
             {"bringBackList2", &bringBackList2}},
            {{"bringBackList1:", [this] { bringBack(ListNumber::one); }},
             {"bringBackList2:", [this] { bringBack(ListNumber::two); }},
             {"closeEarlierLists:", [this] { desk_.desktop().stopModal(0); }}}};
}

void EarlierLists::readCopies(const std::string& preferences) {
    if (preferences.empty()) return;
    for (const KeptCopy& copy : keptCopies(preferences)) {
        auto file = copy.lists ? readDataFromFileAtURL(copy.path, kPreferencesSize) : std::nullopt;
        const bool known = file && std::ranges::find(copies_, *file, &Copy::file) != copies_.end();
        if (file && !known && file->size() >= kPreferencesImage)
            copies_.push_back({*copy.lists, std::move(*file)}); // one file may have several names
    }
}

void EarlierLists::show() {
    std::vector<std::string> rows;
    for (const Copy& copy : copies_)
        rows.push_back(describe(copy.summary));
    earlierLists->setRows(rows);
    bringBackList1->setEnabled(!rows.empty());
    bringBackList2->setEnabled(!rows.empty());
    earlierListsNote->setText(rows.empty() ? "No earlier lists have been kept yet."
                                           : "Kept lists, the latest first:");
}

void EarlierLists::run() {
    if (!earlierListsWindow.connected()) return;
    desk_.desktop().runModal(*earlierListsWindow);
    earlierListsWindow->orderOut();
}

void EarlierLists::bringBack(ListNumber which) {
    const int row = earlierLists->selectedRow();
    if (row < 0 || row >= static_cast<int>(copies_.size())) return;
    const Copy& copy = copies_[static_cast<std::size_t>(row)];
    const int index = which == ListNumber::one ? 0 : 1;
    const ListsSummary::List& told = copy.summary.lists[index];
    desk_.setUndoablePosition(undo_label::earlierLists);

    const ListParts list = desk_.list(which);
    const ListRecords records = list.view.records();
    std::memcpy(records.data(), copy.file.data() + kFileLists[index], records.size_bytes());
    std::memcpy(list.storedName, copy.file.data() + kFileNames[index], sizeof list.storedName);
    list.storedCount = static_cast<std::int16_t>(told.count);
    list.view.setNumberOfColors(list.storedCount);
    list.view.setName(told.name);
    list.view.setScrollSize();
    list.view.setSelectedColor(0);
    list.view.setStartColor(0);
    list.scroller.setVerticalScroller(0);
    list.nameField.setText(told.name);
    list.view.setNeedsDisplay();
    list.view.announceChange();
    earlierListsNote->setText("List " + std::to_string(index + 1) + " is back. Undo takes it away again.");
}

} // namespace chromalog
