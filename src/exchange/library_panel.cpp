#include "exchange/library_panel.h"

#include <cstdlib>

namespace chromalog {
namespace {

constexpr double kSecondsBetweenLooks = 1;

} // namespace

PaletteLibrary libraryOf(const Desktop& desktop) {
    const std::string data = desktop.applicationsDirectory();
    const char* home = std::getenv("HOME");
    return {data.empty() ? data : data + "/chromalog/palettes",
            desktop.hasDataFolderOfItsOwn() ? std::vector<LibraryFolder>()
                                            : foldersOfOtherPrograms(home ? home : "")};
}

LibraryPanel::LibraryPanel(Desktop& desktop, Window& dialog, std::function<void(const std::string&)> load)
    : desktop_(desktop), dialog_(dialog), library_(libraryOf(desktop)) {
    view_.chosen = [this, load = std::move(load)](int row) {
        const std::string path = view_.entries()[static_cast<std::size_t>(row)].path;
        load(path);
    };
    form_ = desktop_.loadForm("LibraryPanel", owner());
    if (!form_) desktop_.log("failed to load the form LibraryPanel");
    libraryWindow->whenClosed([this] { hide(); });
    libraryWindow->attachAsChildOf(dialog);
}

FormOwner LibraryPanel::owner() {
    return {{{"libraryWindow", &libraryWindow},
             {"libraryScroller", &libraryScroller},
             {"libraryNote", &libraryNote},
             {"library", &view_}},
            {}};
}

void LibraryPanel::show(const std::string& note, bool left) {
    if (!libraryWindow->visible()) libraryWindow->standBeside(dialog_, left);
    libraryNote->setText(note);
    libraryWindow->makeKeyAndOrderFront();
    refresh();
    watch();
}

void LibraryPanel::refresh() {
    state_ = library_.state();
    view_.setEntries(library_.entries());
}

void LibraryPanel::hide() {
    watch_.reset();
    if (libraryWindow->visible()) libraryWindow->orderOut();
}

void LibraryPanel::watch() {
    watch_ = desktop_.startTimer(kSecondsBetweenLooks, [this] {
        if (!libraryWindow->visible()) return;
        if (library_.state() != state_) refresh();
        watch();
    });
}

} // namespace chromalog
