#include "dialog/earlier_lists.h"

#include "base/translated.h"
#include "files/file_io.h"
#include "history/undo_labels.h"
#include "prefs/kept_copies.h"
#include "prefs/preferences_file.h"
#include "record/global_record.h"

#include <algorithm>
#include <cstring>

namespace chromalog {

EarlierLists::EarlierLists(SwatchPanel& one, SwatchPanel& two, Desktop& desktop,
                           const std::string& preferences,
                           std::function<void(std::string_view)> setUndoablePosition)
    : panels_{&one, &two}, desktop_(desktop), setUndoablePosition_(std::move(setUndoablePosition)) {
    form_ = desktop_.loadForm("EarlierLists", owner());
    if (!form_) desktop_.log("failed to load the form EarlierLists");
    earlierListsWindow->whenClosed([this] { desktop_.stopModal(0); });
    readCopies(preferences);
    show();
}

FormOwner EarlierLists::owner() {
    return {{{"earlierListsWindow", &earlierListsWindow},
             {"earlierLists", &earlierLists},
             {"earlierListsNote", &earlierListsNote},
             {"bringBackList1", &bringBackList1},
             {"bringBackList2", &bringBackList2}},
            {{"bringBackList1:", [this] { bringBack(0); }},
             {"bringBackList2:", [this] { bringBack(1); }},
             {"closeEarlierLists:", [this] { desktop_.stopModal(0); }}}};
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
    earlierListsNote->setText(rows.empty() ? translated("No earlier lists have been kept yet.")
                                           : translated("Kept lists, the latest first:"));
}

void EarlierLists::run() {
    if (!earlierListsWindow.connected()) return;
    desktop_.runModal(*earlierListsWindow);
    earlierListsWindow->orderOut();
}

void EarlierLists::bringBack(int list) {
    const int row = earlierLists->selectedRow();
    if (row < 0 || row >= static_cast<int>(copies_.size())) return;
    const Copy& copy = copies_[static_cast<std::size_t>(row)];
    const ListsSummary::List& told = copy.summary.lists[list];
    setUndoablePosition_(undo_label::earlierLists);

    SwatchPanel& panel = *panels_[static_cast<std::size_t>(list)];
    std::memcpy(panel.records.data(), copy.file.data() + kFileLists[list], panel.records.size_bytes());
    std::memcpy(panel.storedName.data(), copy.file.data() + kFileNames[list],
                sizeof(GlobalRecord::swatchName1));
    panel.storedCount = static_cast<std::int16_t>(told.count);
    panel.view.setNumberOfColors(panel.storedCount);
    panel.view.setName(told.name);
    panel.nameField->setText(told.name);
    panel.showFromTheTop();
    panel.redisplay();
    earlierListsNote->setText(translated("List %1 is back. Undo takes it away again.", list + 1));
}

} // namespace chromalog
