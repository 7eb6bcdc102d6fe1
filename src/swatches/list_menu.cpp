#include "swatches/list_menu.h"

#include "base/file_name.h"

#include <utility>

namespace chromalog {
namespace {

MenuItem item(std::string title, std::string action, std::function<void()> run, bool enabled = true) {
    return {std::move(title), std::move(action), std::move(run), enabled};
}

/// Items of the menu that sorts: the buttons' keys too where only some rows are sorted.
MenuItems sortItems(RowGestures& gestures, bool some, const std::function<Colour()>& secondColour) {
    struct Row {
        const char *title, *action;
        SortKey key;
        bool ofButton = false;
    };
    static constexpr Row kRows[] = {
        {"By Name", "sortRowsByName:", SortKey::name, true},
        {"By Hue", "sortRowsByHue:", SortKey::hue, true},
        {"By Brightness", "sortByBrightness:", SortKey::brightness},
        {"By Saturation", "sortBySaturation:", SortKey::saturation},
        {"By Difference from Second Color", "sortByDifference:", SortKey::difference},
        {"In Reverse", "sortReversed:", SortKey::reversed},
    };
    MenuItems items;
    for (const Row& row : kRows) {
        if (row.ofButton && !some) continue;
        items.push_back(item(row.title, row.action, [&gestures, key = row.key, secondColour] {
            gestures.sort(key, secondColour ? secondColour() : Colour());
        }));
    }
    return items;
}

} // namespace

MenuItems rowItems(RowGestures& gestures, const CSwatchList& list, int otherNumber,
                   std::function<Colour()> secondColour) {
    const std::size_t taken = gestures.rows().size();
    const bool some = gestures.selection().rows().size() > 1;
    const std::string other = " to List " + std::to_string(otherNumber);
    const std::string what = some ? ' ' + std::to_string(taken) + " Swatches" : "";
    const bool any = taken > 0;
    const bool ownRow = list.getSelected() >= 0 && list.getSelected() < list.shownRows();
    const auto across = [&gestures](Across way) { return [&gestures, way] { gestures.bringAcross(way); }; };
    MenuItems items{
        MenuItem(),
        item(
            "Rename", "renameSwatch:", [&gestures] { gestures.rename(); }, ownRow),
        item("Copy" + what + other, "copyAcross:", across(Across::copy), any),
        item("Move" + what + other, "moveAcross:", across(Across::move), any),
    };
    if (some) items.push_back(item("Delete" + what, "deleteRows:", [&gestures] { gestures.erase(); }));
    items.emplace_back();
    const bool filled = list.shownRows() > 0;
    items.push_back(item(
        "Select All", "selectAllRows:", [&gestures] { gestures.selectAll(); }, filled));
    items.push_back({"Sort" + what,
                     "sortRows:",
                     {},
                     list.shownRows() > 1,
                     std::nullopt,
                     sortItems(gestures, some, secondColour)});
    return items;
}

MenuItems recentFileItems(FileMemory& memory, std::function<void(const std::string&)> take) {
    MenuItems items;
    for (const std::string& path : memory.recent())
        items.push_back(item(std::string(fileNameOf(path)),
                             "recentFile" + std::to_string(items.size() + 1) + ':',
                             [take, path] { take(path); }));
    if (items.empty()) items.push_back(item("No Recent Files", "", {}, false));
    return items;
}

} // namespace chromalog
