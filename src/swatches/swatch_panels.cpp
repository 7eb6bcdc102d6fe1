#include "swatches/swatch_panels.h"

#include "base/translated.h"
#include "record/name_text.h"
#include "spaces/ascii_text.h"
#include "swatches/list_menu.h"

#include <algorithm>

namespace chromalog {
namespace {

/// `name` goes on with the length byte of what follows in the record: the terminator of a name of 255
/// characters lands there.
SwatchPanel panel(CSwatchListDelegate& delegate, ListRecords records, std::int16_t& count,
                  std::uint8_t (&name)[256], bool feedsFirstColor) {
    return {records, count, ListNameField(name, 257), feedsFirstColor, CSwatchList(delegate), {}, {}, {}, {},
            {},      {}};
}

/// By its name alone.
bool isSwatchFile(std::string_view path) {
    constexpr std::string_view kExtension = ".aco";
    return path.size() > kExtension.size() &&
           lowerCase(path.substr(path.size() - kExtension.size())) == kExtension;
}

} // namespace

SwatchPanels::SwatchPanels(GlobalRecord& data, Desktop& desktop, Outlet<Window>& dialog,
                           ColorServicesProc services, SwatchPanelsDelegate& delegate)
    : one(panel(*this, data.swatchList1, data.numColors1, data.swatchName1, true)),
      two(panel(*this, data.swatchList2, data.numColors2, data.swatchName2, false)),
      commands({one, two, desktop, dialog, services,
                [&delegate](auto label) { delegate.setUndoablePosition(label); },
                [&delegate] { return delegate.hostBooks(); },
                [&delegate](auto latest, auto before) { delegate.describeSteps(latest, before); }}),
      search(desktop, one, two), desktop_(desktop), services_(services), delegate_(delegate),
      rowsOne_(*this, one.view, two.view), rowsTwo_(*this, two.view, one.view) {
    one.view.setSpokenName(translated("Swatch list 1"));
    two.view.setSpokenName(translated("Swatch list 2"));
    rowsOne_.across = &rowsTwo_;
    rowsTwo_.across = &rowsOne_;
}

std::vector<OutletEntry> SwatchPanels::table() {
    std::vector<OutletEntry> table{
        {"swatch1", &one.view},
        {"swatch2", &two.view},
        {"swatch1Scroller", &one.scroller},
        {"swatch2scroller", &two.scroller},
        {"swatch1Name", &one.nameField},
        {"swatch2Name", &two.nameField},
        {"swatchContextMenu", &one.menu},
        {"swatchContextMenu2", &two.menu},
        {"findColor1", &one.searchField},
        {"findColor2", &two.searchField},
        {"seachStep1", &one.hitStepper},
        {"seachStep2", &two.hitStepper},
        {"found1", &one.found},
        {"found2", &two.found},
        {"loadSwatch1", &one.load, true},
        {"loadSwatch2", &two.load, true},
        {"appendSwatch1", &one.append, true},
        {"appendSwatch2", &two.append, true},
    };
    for (const OutletEntry& entry : nearest.table())
        table.push_back(entry);
    return table;
}

std::vector<ActionEntry> SwatchPanels::actions() {
    std::vector<ActionEntry> actions{
        {"editSwatch:", [this] { editSwatch(); }},
        {"jumpFirst:", [this] { search.jump(one); }},
        {"jumpSecond:", [this] { search.jump(two); }},
        {"deleteSwatch1:", [this] { one.view.deleteEntry(); }},
        {"deleteSwatch2:", [this] { two.view.deleteEntry(); }},
    };
    for (const ActionEntry& action : commands.actions())
        actions.push_back(action);
    return actions;
}

void SwatchPanels::start() {
    for (SwatchPanel* panel : both())
        panel->view.setSwatchList(panel->records.data());
    takeStoredCounts();
    nearest.follow(one.view);
    offerMenus();
}

/// Made when they open.
void SwatchPanels::offerMenus() {
    search.takeHit = [this](SwatchPanel& panel) { useAsFirstColor(panel.view, panel.view.getSelected()); };
    for (SwatchPanel* panel : both()) {
        panel->menu->addMenuItems([this, panel] {
            return rowItems(rows(panel->view), panel->view, panel == &one ? 2 : 1, secondColour);
        });
        const auto recent = [this, panel](FileWay way) {
            return [this, panel, way] {
                return recentFileItems(desktop_.fileMemory(), [this, panel, way](const std::string& path) {
                    commands.takeFile(*panel, path, way);
                });
            };
        };
        panel->load->addMenuItems(recent(FileWay::load));
        panel->append->addMenuItems(recent(FileWay::append));
    }
}

std::vector<FoundEntry> SwatchPanels::find(CSwatchList& list, std::string_view text) {
    const SearchOptions& options = search.options();
    if (rows(list).isHit) list.setNeedsDisplay(); // where nothing is found, nothing else redraws
    rows(list).isHit = text.empty() ? nullptr : swatchTest(text, options);
    return findSwatches(list.recordsToChange(), one.records, list.getNumberOfColors(), text, options);
}

/// With Shift the first swatch file among them loads as by the list's button, in one step.
bool SwatchPanels::filesDropped(CSwatchList& list, const std::vector<std::string>& paths, bool shift) {
    SwatchPanel& panel = panelOf(list);
    const auto swatches = std::ranges::find_if(paths, isSwatchFile);
    if (!shift || swatches == paths.end()) return importFiles && importFiles(panel, paths);
    commands.takeFile(panel, *swatches, FileWay::load);
    return true;
}

void SwatchPanels::storeViewCounts() {
    for (SwatchPanel* panel : both())
        panel->storeViewCount();
}

void SwatchPanels::takeStoredCounts() {
    for (SwatchPanel* panel : both())
        panel->takeStoredCount();
}

void SwatchPanels::showRecord() {
    takeStoredCounts();
    // The counts are asked here, the lengths of the names when the preferences are read: kept.
    for (SwatchPanel* panel : both())
        if (panel->storedCount > 0) panel->showStoredName();
    for (SwatchPanel* panel : both()) {
        panel->view.setScrollSize();
        panel->view.setNeedsDisplay();
        panel->view.announceChange();
        rows(panel->view).contentsChanged();
    }
    nearest.follow(one.view);
    if (listsChanged) listsChanged();
}

void SwatchPanels::erase(SwatchPanel& panel, Rows gone, std::string_view labelKey, const std::string& words) {
    eraseRows(*this, panel.view, gone, labelKey, words);
    if (!gone.empty()) panel.view.setSelectedColor(static_cast<std::int16_t>(gone.front()));
}

void SwatchPanels::select(SwatchPanel& panel, int row, bool uses) {
    if (row < 0 || row >= panel.view.shownRows()) return;
    rows(panel.view).selectOwnRow();
    panel.view.setSelectedColor(static_cast<std::int16_t>(row));
    if (uses) panel.view.selectRow(panel.view.getSelected());
    panel.view.setNeedsDisplay();
    panel.view.announceChange();
    panel.view.scrollToShow(row);
}

void SwatchPanels::showNearest(const Colour& secondColor) {
    nearest.getNearFco(one.view, secondColor, services_);
}

void SwatchPanels::setNeedsDisplay() {
    for (SwatchPanel* panel : both())
        panel->view.setNeedsDisplay();
}

void SwatchPanels::editSwatch() {
    setFirstColor(one.view, one.view.getSelected());
    one.view.setNeedsDisplay();
}

std::optional<std::string> SwatchPanels::selectedName(const DragSource* source) {
    for (SwatchPanel* panel : both()) {
        if (source != &panel->view) continue;
        const FCOStruct* swatch = recordAt(panel->view.records(), panel->view.getSelected());
        if (swatch) return macRomanToUtf8(zeroTerminatedName(*swatch));
    }
    return std::nullopt;
}

SwatchPanel& SwatchPanels::panelOf(const CSwatchList& list) {
    return &list == &one.view ? one : two;
}

void SwatchPanels::setFirstColor(CSwatchList& list, std::int16_t index) {
    if (panelOf(list).feedsFirstColor) useAsFirstColor(list, index);
}

void SwatchPanels::useAsFirstColor(CSwatchList& list, std::int16_t index) {
    // An index outside the list points at no swatch: the first colour then stays.
    if (index < 0 || index >= list.shownRows()) return;
    const FCOStruct& swatch = list.records()[static_cast<std::size_t>(index)];
    delegate_.setFirstColor(swatch, macRomanToUtf8(zeroTerminatedName(swatch)));
}

} // namespace chromalog
