#include "swatches/list_commands.h"

#include "base/file_name.h"
#include "base/translated.h"
#include "files/file_io.h"
#include "formats/aco_reader.h"
#include "formats/books_on_disk.h"
#include "history/undo_labels.h"
#include "swatches/limit_alert.h"

#include <algorithm>
#include <cerrno>

namespace chromalog {
namespace {

std::string_view withoutExtension(std::string_view path) {
    const std::size_t name = path.size() - fileNameOf(path).size();
    const std::size_t dot = path.rfind('.');
    // A name that begins with its only dot has no extension.
    return dot == std::string_view::npos || dot <= name ? path : path.substr(0, dot);
}

/// The file's contents; where it cannot be read, the status line says why.
std::optional<std::vector<std::uint8_t>> readChosen(const std::string& path, StatusLine& status) {
    auto data = readDataFromFileAtURL(path);
    const int why = errno;
    status.takeBack(StatusLine::About::files);
    if (!data)
        status.say(StatusLine::About::files,
                   translated("%1 could not be read: %2", fileNameOf(path), reasonOf(why)));
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

void ListCommands::loadSwatch(SwatchPanel& panel) {
    parts_.setUndoablePosition(undo_label::loadSwatch);
    chooseSwatchFile(panel, {false, 0});
    panel.view.setNeedsDisplay();
    panel.scroller->setNeedsDisplay();
}

void ListCommands::appendSwatch(SwatchPanel& panel) {
    parts_.setUndoablePosition(undo_label::appendSwatch);
    chooseSwatchFile(panel, {true, panel.view.getNumberOfColors()});
    panel.view.setNeedsDisplay();
    panel.scroller->setNeedsDisplay();
}

void ListCommands::killSwatch(SwatchPanel& panel) {
    parts_.setUndoablePosition(undo_label::deleteSwatch);
    panel.view.setNumberOfColors(0);
    panel.redisplay();
    parts_.one.scroller->setNeedsDisplay(); // list 1's, for list 2 as well: kept
}

void ListCommands::sortAlpha(SwatchPanel& panel) {
    parts_.setUndoablePosition(undo_label::sortAlpha);
    panel.view.sortSwatchList("nom");
    panel.view.setNeedsDisplay();
}

void ListCommands::sortHue(SwatchPanel& panel) {
    parts_.setUndoablePosition(undo_label::sortHue);
    panel.view.sortSwatchList("color");
    panel.view.setNeedsDisplay();
}

void ListCommands::writeToSwatch(const Colour& firstColor, std::string_view colorName) {
    parts_.setUndoablePosition(undo_label::colorChanged);
    parts_.one.view.setColor(firstColor, colorName);
}

/// Records a second step: a load or an append can be undone twice.
void ListCommands::chooseSwatchFile(SwatchPanel& panel, Way way) {
    parts_.setUndoablePosition(undo_label::loadSwatchFile);
    parts_.desktop.log("LoadSwatch");
    const auto answer = [this, &panel, way](std::optional<std::string> path) {
        if (path) swatchFileChosen(panel, way, *path);
    };
    OpenPanel open{{"aco", "ACO"}};
    const int list = &panel == &parts_.two ? 2 : 1;
    open.title = way.appends ? translated("Append to list %1", list) : translated("Load into list %1", list);
    parts_.desktop.beginOpenPanel(open, *parts_.dialog, answer);
    panel.view.setNeedsDisplay(); // before the person has chosen
}

void ListCommands::swatchFileChosen(SwatchPanel& panel, Way way, const std::string& path) {
    const auto data = readChosen(path, parts_.desktop.statusLine());
    if (data) bringIn(panel, way, path, *data);
}

void ListCommands::takeFile(SwatchPanel& panel, const std::string& path, FileWay way) {
    const auto data = readChosen(path, parts_.desktop.statusLine());
    if (!data) return parts_.desktop.fileMemory().forget(path);
    const bool appends = way == FileWay::append;
    parts_.setUndoablePosition(appends ? undo_label::fileAppended : undo_label::fileLoaded);
    const std::int16_t start = appends ? panel.view.getNumberOfColors() : std::int16_t{0};
    bringIn(panel, {appends, start, Way::Steps::one}, path, *data);
}

void ListCommands::bringIn(SwatchPanel& panel, Way way, const std::string& path,
                           std::span<const std::uint8_t> data) {
    const std::string_view name = fileNameOf(path);
    const StoredName stored(name);
    const std::string latest = way.appends ? translated("Append %1", name) : translated("Load %1", name);
    const std::string before = way.appends ? translated("before Append") : translated("before Load");
    std::string nameBefore = panel.view.getSwatchName();
    panel.view.setName(std::string(name));
    try {
        DispachSwatch(data, panel.view, way.start);
    } catch (...) {
        panel.view.setName(std::move(nameBefore));
        throw;
    }
    panel.storeName(stored);
    panel.storedCount = panel.view.getNumberOfColors();
    parts_.describeSteps(latest, way.steps == Way::Steps::two ? before : "");
    panel.showFromTheTop();
    panel.nameField->setText(name);
    panel.redisplay();
    parts_.desktop.fileMemory().loaded(path);
}

/// Takes over the whole file or, where memory runs out on the way, nothing of it.
void ListCommands::DispachSwatch(std::span<const std::uint8_t> data, CSwatchList& view, std::int16_t start) {
    const AcoHeader header = readAcoHeader(data, start);
    if (header.overLimit) parts_.desktop.runAlert(limitAlert(*header.overLimit));
    const ListRecords records = view.recordsToChange();
    std::vector<FCOStruct> read(records.begin(), records.end());
    const BooksOnDisk books(parts_.hostBooks()); // asked for whatever the file holds
    const auto secondCount = readAcoRecords(data, header, start, read, parts_.services, books);
    std::ranges::copy(read, records.begin());
    view.setNumberOfColors(secondCount.value_or(header.viewCount));
}

void ListCommands::saveSwatch(SwatchPanel& panel) {
    const auto answer = [this, &panel](std::optional<std::string> path) {
        if (!path || path->empty()) return; // an extension alone is no name
        std::vector<std::uint8_t> data;
        panel.view.saveSwatches(data);
        writeChosen(acoPath(*path), data, parts_.desktop.statusLine());
    };
    // With its extension: of "blue 1.5" alone, ".5" would be taken for one and cut off.
    // Not the view's name, which an undo leaves: the file of another list would be replaced.
    const std::string shown = panel.nameField->text();
    const std::string name(fileNameOf(shown)); // stored names may hold anything
    const SavePanel save{name.empty() ? name : acoPath(name), "aco",
                         translated("Save list %1", &panel == &parts_.two ? 2 : 1)};
    parts_.desktop.beginSavePanel(save, *parts_.dialog, answer);
}

void ListCommands::loadASE() {
    const auto answer = [this](std::optional<std::string> path) {
        if (path) bookChosen(*path);
    };
    OpenPanel open{{"acb", "ACB"}};
    open.title = translated("Load color book into list %1", 1);
    parts_.desktop.beginOpenPanel(open, *parts_.dialog, answer);
    parts_.one.view.setNeedsDisplay();
}

void ListCommands::bookChosen(const std::string& path) {
    const auto data = readChosen(path, parts_.desktop.statusLine());
    if (!data) return;
    SwatchPanel& panel = parts_.one;
    const std::string_view name = fileNameOf(path);
    panel.storeName(StoredName(name));
    panel.storedCount = loadBook(*data, panel.view.recordsToChange(), parts_.services);
    panel.view.setSelectedColor(0);
    panel.nameField->setText(name);
    panel.view.setScrollSize();
    panel.scroller->setVerticalScroller(0);
    panel.redisplay();
}

std::vector<ActionEntry> ListCommands::actions() {
    using Command = void (ListCommands::*)(SwatchPanel&);
    struct Row {
        std::string_view one, two; ///< the name for each list
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
        actions.push_back({row.one, [this, run = row.run] { (this->*run)(parts_.one); }});
        actions.push_back({row.two, [this, run = row.run] { (this->*run)(parts_.two); }});
    }
    return actions;
}

} // namespace chromalog
