#include "swatches/list_commands.h"

#include "history/undo_labels.h"
#include "prefs/file_io.h"
#include "swatches/colour_book_folder.h"
#include "swatches/formats/aco_reader.h"
#include "swatches/limit_alert.h"
#include "swatches/name_text.h"

#include <algorithm>
#include <cerrno>

namespace chromalog {
namespace {

std::string_view lastPathComponent(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string_view withoutExtension(std::string_view path) {
    const std::size_t name = path.size() - lastPathComponent(path).size();
    const std::size_t dot = path.rfind('.');
    // A name that begins with its only dot has no extension.
    return dot == path.npos || dot <= name ? path : path.substr(0, dot);
}

void redisplay(CSwatchList& view) {
    view.setNeedsDisplay();
    view.announceChange();
}

/// The file's contents; where it cannot be read, the status line says why.
std::optional<std::vector<std::uint8_t>> readChosen(const std::string& path, StatusLine& status) {
    auto data = readDataFromFileAtURL(path);
    const int why = errno;
    status.takeBack(StatusLine::About::files);
    if (!data)
        status.say(StatusLine::About::files,
                   std::string(lastPathComponent(path)) + " could not be read: " + reasonOf(why));
    return data;
}

void writeChosen(const std::string& path, std::span<const std::uint8_t> data, StatusLine& status) {
    if (writeDataToFileAtURL(path, data))
        status.takeBack(StatusLine::About::files);
    else
        status.sayNotWritten(StatusLine::About::files, path, reasonOf(errno));
}

} // namespace

std::string acoPath(std::string_view chosen) {
    return std::string(withoutExtension(chosen)) + ".aco";
}

void storeListName(std::uint8_t (&stored)[256], const StoredName& name) {
    std::copy_n(name.bytes.begin(), std::min<std::size_t>(name.bytes.size(), 255), stored + 1);
    stored[0] = name.length;
}

void ListCommands::loadSwatch(ListNumber which) {
    const ListParts list = desk_.list(which);
    desk_.setUndoablePosition(undo_label::loadSwatch);
    LoadSwatch(which, 0);
    list.view.setNeedsDisplay();
    list.scroller.setNeedsDisplay();
}

void ListCommands::appendSwatch(ListNumber which) {
    const ListParts list = desk_.list(which);
    desk_.setUndoablePosition(undo_label::appendSwatch);
    LoadSwatch(which, list.view.getNumberOfColors());
    list.view.setNeedsDisplay();
    list.scroller.setNeedsDisplay();
}

void ListCommands::killSwatch(ListNumber which) {
    CSwatchList& view = desk_.list(which).view;
    desk_.setUndoablePosition(undo_label::deleteSwatch);
    view.setNumberOfColors(0);
    redisplay(view);
    desk_.list(ListNumber::one).scroller.setNeedsDisplay(); // list 1's, for list 2 as well: kept
}

void ListCommands::sortAlpha(ListNumber which) {
    CSwatchList& view = desk_.list(which).view;
    desk_.setUndoablePosition(undo_label::sortAlpha);
    view.sortSwatchList("nom");
    view.setNeedsDisplay();
}

void ListCommands::sortHue(ListNumber which) {
    CSwatchList& view = desk_.list(which).view;
    desk_.setUndoablePosition(undo_label::sortHue);
    view.sortSwatchList("color");
    view.setNeedsDisplay();
}

void ListCommands::writeToSwatch(const Colour& firstColor, std::string_view colorName) {
    desk_.setUndoablePosition(undo_label::colorChanged);
    desk_.list(ListNumber::one).view.setColor(firstColor, colorName);
}

/// Records a second step: a load or an append can be undone twice.
void ListCommands::LoadSwatch(ListNumber which, std::int16_t start) {
    desk_.setUndoablePosition(undo_label::loadSwatchFile);
    desk_.desktop().log("LoadSwatch");
    const auto answer = [this, which, start](std::optional<std::string> path) {
        if (path) swatchFileChosen(which, start, *path);
    };
    desk_.desktop().beginOpenPanel({{"aco", "ACO"}}, desk_.getChromalogWindow(), answer);
    desk_.list(which).view.setNeedsDisplay(); // before the person has chosen
}

void ListCommands::swatchFileChosen(ListNumber which, std::int16_t start, const std::string& path) {
    const auto data = readChosen(path, desk_.desktop().statusLine());
    if (!data) return;
    const ListParts list = desk_.list(which);
    const std::string_view name = lastPathComponent(path);
    const StoredName stored(name);
    std::string nameBefore = list.view.getSwatchName();
    list.view.setName(std::string(name));
    try {
        DispachSwatch(*data, list.view, start);
    } catch (...) {
        list.view.setName(std::move(nameBefore));
        throw;
    }
    storeListName(list.storedName, stored);
    list.storedCount = list.view.getNumberOfColors();
    list.view.setSelectedColor(0);
    list.view.setStartColor(0);
    list.view.setScrollSize();
    list.scroller.setVerticalScroller(0);
    list.nameField.setText(name);
    redisplay(list.view);
}

/// Takes over the whole file or, where memory runs out on the way, nothing of it.
void ListCommands::DispachSwatch(std::span<const std::uint8_t> data, CSwatchList& view, std::int16_t start) {
    const AcoHeader header = readAcoHeader(data, start);
    if (header.overLimit) desk_.desktop().runAlert(limitAlert(*header.overLimit));
    const ListRecords records = view.records();
    std::vector<FCOStruct> read(records.begin(), records.end());
    const ColourBookFolder books(desk_.colourBooksFolder()); // asked for whatever the file holds
    const auto secondCount = readAcoRecords(data, header, start, read, desk_.colorServices(), books);
    std::ranges::copy(read, records.begin());
    view.setNumberOfColors(secondCount.value_or(header.viewCount));
}

void ListCommands::saveSwatch(ListNumber which) {
    const auto answer = [this, which](std::optional<std::string> path) {
        if (!path || path->empty()) return; // an extension alone is no name
        std::vector<std::uint8_t> data;
        desk_.list(which).view.saveSwatches(data);
        writeChosen(acoPath(*path), data, desk_.desktop().statusLine());
    };
    // With its extension: of "blue 1.5" alone, ".5" would be taken for one and cut off.
    // Not the view's name, which an undo leaves: the file of another list would be replaced.
    const std::string shown = desk_.list(which).nameField.text();
    const std::string name(lastPathComponent(shown)); // stored names may hold anything
    const SavePanel panel{name.empty() ? name : acoPath(name), "aco"};
    desk_.desktop().beginSavePanel(panel, desk_.getChromalogWindow(), answer);
}

void ListCommands::loadASE() {
    const auto answer = [this](std::optional<std::string> path) {
        if (path) bookChosen(*path);
    };
    desk_.desktop().beginOpenPanel({{"acb", "ACB"}}, desk_.getChromalogWindow(), answer);
    desk_.list(ListNumber::one).view.setNeedsDisplay();
}

void ListCommands::bookChosen(const std::string& path) {
    const auto data = readChosen(path, desk_.desktop().statusLine());
    if (!data) return;
    const ListParts list = desk_.list(ListNumber::one);
    const std::string_view name = lastPathComponent(path);
    storeListName(list.storedName, StoredName(name));
    list.storedCount = loadBook(*data, list.view.records(), desk_.colorServices());
    list.view.setSelectedColor(0);
    list.nameField.setText(name);
    list.view.setScrollSize();
    list.scroller.setVerticalScroller(0);
    redisplay(list.view);
}

std::vector<ActionEntry> ListCommands::actions() {
    using Command = void (ListCommands::*)(ListNumber);
    struct Row {
        std::string_view first, second; ///< for list 1, for list 2
        Command run;
    };
    static constexpr Row kRows[] = {
        {"loadSwatch1:", "loadSwatch2:", &ListCommands::loadSwatch},
        {"appendSwatch1:", "appendSwatch2:", &ListCommands::appendSwatch},
        {"killSwatch1:", "killSwatch2:", &ListCommands::killSwatch},
        {"sortAlpha1:", "sortAlpha2:", &ListCommands::sortAlpha},
        {"sortHue1:", "sortHue2:", &ListCommands::sortHue},
        {"saveSwatch1:", "saveSwatch2:", &ListCommands::saveSwatch},
    };
    std::vector<ActionEntry> actions{{"loadASE:", [this] { loadASE(); }}};
    for (const Row& row : kRows) {
        actions.push_back({row.first, [this, run = row.run] { (this->*run)(ListNumber::one); }});
        actions.push_back({row.second, [this, run = row.run] { (this->*run)(ListNumber::two); }});
    }
    return actions;
}

} // namespace chromalog
