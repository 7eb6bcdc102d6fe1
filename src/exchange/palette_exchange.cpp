#include "exchange/palette_exchange.h"

#include "base/file_name.h"
#include "base/translated.h"
#include "exchange/host_ink.h"
#include "exchange/import_panel.h"
#include "files/file_io.h"
#include "history/undo_labels.h"

#include <algorithm>
#include <cerrno>

namespace chromalog {
namespace {

ConstListRecords rowsOf(const SwatchPanel& panel) {
    const int count = clampedCount(panel.view.getNumberOfColors());
    return panel.records.first(std::min(static_cast<std::size_t>(count), panel.records.size()));
}

/// The extensions of all kinds that can be read, each once.
std::vector<std::string> readableTypes() {
    std::vector<std::string> types;
    for (const PaletteFormatRules& rules : paletteFormats())
        if (rules.read && std::ranges::find(types, rules.extension) == types.end())
            types.emplace_back(rules.extension);
    return types;
}

std::string withoutExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return std::string(dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot));
}

} // namespace

void PaletteExchange::chooseFile(SwatchPanel& panel) {
    OpenPanel open{readableTypes()};
    open.title = translated("Import into list %1", &panel == &parts_.two ? 2 : 1);
    parts_.desktop.beginOpenPanel(open, *parts_.dialog, [this, &panel](std::optional<std::string> path) {
        if (path) importFiles(panel, {*path});
    });
}

std::optional<ImportSource> PaletteExchange::read(const std::vector<std::string>& paths) {
    StatusLine& status = parts_.desktop.statusLine();
    status.takeBack(StatusLine::About::files);
    try {
        return readImportSource(paths);
    } catch (const PaletteError& error) {
        status.say(StatusLine::About::files, error.what());
        return std::nullopt;
    }
}

void PaletteExchange::importFiles(SwatchPanel& panel, const std::vector<std::string>& paths) {
    if (const auto source = read(paths)) offer(panel, *source);
}

bool PaletteExchange::importDropped(SwatchPanel& panel, const std::vector<std::string>& paths) {
    const auto source = read(paths);
    if (source) later_ = parts_.desktop.startTimer(0, [this, &panel, source] { offer(panel, *source); });
    return source.has_value();
}

void PaletteExchange::offer(SwatchPanel& panel, const ImportSource& source) {
    const CmykToRgb ink = hostInk(parts_.services);
    const auto way = ImportPanel(parts_.desktop, source, translated("list %1", &panel == &parts_.one ? 1 : 2),
                                 rowsOf(panel), ink, nameOfInk(parts_.services))
                         .run();
    if (way) take(panel, source, *way);
}

LibraryPanel& PaletteExchange::library() {
    if (!library_)
        library_ =
            std::make_unique<LibraryPanel>(parts_.desktop, *parts_.dialog, [this](const std::string& path) {
                const auto source = read({path});
                if (source && libraryLoadsInto_) take(*libraryLoadsInto_, *source, ImportWay::replace);
            });
    return *library_;
}

void PaletteExchange::showLibrary(SwatchPanel& panel) {
    libraryLoadsInto_ = &panel;
    const bool isFirst = &panel == &parts_.one;
    library().show(isFirst ? translated("A click replaces list 1.") : translated("A click replaces list 2."),
                   isFirst);
}

void PaletteExchange::keepInLibrary(SwatchPanel& panel) {
    const std::string shown = panel.nameField->text();
    StatusLine& status = parts_.desktop.statusLine();
    try {
        const Palette list = paletteOfSwatches(rowsOf(panel), withoutExtension(fileNameOf(shown)));
        if (list.colours.empty())
            throw PaletteError(translated("The list is empty: there is nothing to keep."));
        const std::string name = libraryOf(parts_.desktop).keep(list);
        status.say(StatusLine::About::files, translated("%1 is in the library.", name));
        if (library_) library_->refresh();
    } catch (const PaletteError& error) {
        status.say(StatusLine::About::files, error.what());
    }
}

void PaletteExchange::importWhenShown(std::vector<std::string> paths) {
    if (paths.empty()) return;
    later_ =
        parts_.desktop.startTimer(0, [this, paths = std::move(paths)] { importFiles(parts_.one, paths); });
}

void PaletteExchange::take(SwatchPanel& panel, const ImportSource& source, ImportWay way) {
    const ImportPlan plan = planImport(source.palette, way, rowsOf(panel), hostInk(parts_.services));
    const StoredName stored(source.name);
    const std::string words = translated("Import %1", source.name);
    std::vector<FCOStruct> ready(plan.swatches.from.size());
    storeSwatches(plan.swatches.palette, ready, 0);
    parts_.setUndoablePosition(undo_label::paletteImported);
    std::ranges::copy(ready, panel.records.begin() + static_cast<std::ptrdiff_t>(plan.start));
    panel.storedCount = static_cast<std::int16_t>(plan.start + plan.swatches.from.size());
    panel.view.setNumberOfColors(panel.storedCount);
    panel.view.setScrollSize();
    if (way == ImportWay::replace) {
        panel.storeName(stored);
        panel.view.setName(source.name);
        panel.nameField->setText(source.name);
        panel.showFromTheTop();
    }
    parts_.describeStep(words);
    panel.redisplay();
}

void PaletteExchange::exportList(SwatchPanel& panel) {
    const std::string shown = panel.nameField->text();
    const std::string name = withoutExtension(fileNameOf(shown));
    Palette list = paletteOfSwatches(rowsOf(panel), name);
    const std::vector<int> rows = parts_.selectedRows(panel);
    const auto choice = ExportPanel(parts_.desktop, list, rows.size()).run();
    if (!choice) return;
    if (choice->selectedOnly) {
        std::vector<PaletteColour> selected;
        selected.reserve(rows.size());
        for (const int row : rows)
            selected.push_back(std::move(list.colours.at(static_cast<std::size_t>(row))));
        list.colours = std::move(selected);
    }
    const std::string extension(rulesOf(choice->format).extension);
    const auto answer = [this, list, format = choice->format](std::optional<std::string> path) {
        if (path && !path->empty()) write(list, format, *path);
    };
    const std::string suggested = name.empty() ? name : name + "." + extension;
    const std::string title = translated("Export list %1", &panel == &parts_.two ? 2 : 1);
    parts_.desktop.beginSavePanel({suggested, extension, title}, *parts_.dialog, answer);
}

void PaletteExchange::write(const Palette& list, PaletteFormat format, const std::string& path) {
    const FittedPalette fitted = fitPalette(list, format, hostInk(parts_.services));
    StatusLine& status = parts_.desktop.statusLine();
    if (writeDataToFileAtURL(path, rulesOf(format).write(fitted.palette)))
        status.takeBack(StatusLine::About::files);
    else
        status.sayNotWritten(StatusLine::About::files, path, reasonOf(errno));
}

std::vector<ActionEntry> PaletteExchange::actions() {
    return {{"importPalette1:", [this] { chooseFile(parts_.one); }},
            {"importPalette2:", [this] { chooseFile(parts_.two); }},
            {"exportPalette1:", [this] { exportList(parts_.one); }},
            {"exportPalette2:", [this] { exportList(parts_.two); }},
            {"showLibrary1:", [this] { showLibrary(parts_.one); }},
            {"showLibrary2:", [this] { showLibrary(parts_.two); }},
            {"keepInLibrary1:", [this] { keepInLibrary(parts_.one); }},
            {"keepInLibrary2:", [this] { keepInLibrary(parts_.two); }}};
}

} // namespace chromalog
