#include "swatches/list_menu.h"

#include "base/file_name.h"
#include "base/translated.h"

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
        {translatable("By Name"), "sortRowsByName:", SortKey::name, true},
        {translatable("By Hue"), "sortRowsByHue:", SortKey::hue, true},
        {translatable("By Brightness"), "sortByBrightness:", SortKey::brightness},
        {translatable("By Saturation"), "sortBySaturation:", SortKey::saturation},
        {translatable("By Difference from Second Color"), "sortByDifference:", SortKey::difference},
        {translatable("In Reverse"), "sortReversed:", SortKey::reversed},
    };
    MenuItems items;
    for (const Row& row : kRows) {
        if (row.ofButton && !some) continue;
        items.push_back(item(translated(row.title), row.action, [&gestures, key = row.key, secondColour] {
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
    const auto title = [some, taken, otherNumber](std::string_view ofOne, std::string_view ofSome) {
        return some ? translated(ofSome, taken, otherNumber) : translated(ofOne, otherNumber);
    };
    const bool any = taken > 0;
    const bool ownRow = list.getSelected() >= 0 && list.getSelected() < list.shownRows();
    const auto across = [&gestures](Across way) { return [&gestures, way] { gestures.bringAcross(way); }; };
    MenuItems items{
        MenuItem(),
        item(
            translated("Rename"), "renameSwatch:", [&gestures] { gestures.rename(); }, ownRow),
        item(title(translatable("Copy to List %1"), translatable("Copy %1 Swatches to List %2")),
             "copyAcross:", across(Across::copy), any),
        item(title(translatable("Move to List %1"), translatable("Move %1 Swatches to List %2")),
             "moveAcross:", across(Across::move), any),
    };
    if (some)
        items.push_back(
            item(translated("Delete %1 Swatches", taken), "deleteRows:", [&gestures] { gestures.erase(); }));
    items.emplace_back();
    const bool filled = list.shownRows() > 0;
    items.push_back(item(
        translated("Select All"), "selectAllRows:", [&gestures] { gestures.selectAll(); }, filled));
    items.push_back({title(translatable("Sort"), translatable("Sort %1 Swatches")),
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
    if (items.empty()) items.push_back(item(translated("No Recent Files"), "", {}, false));
    return items;
}

} // namespace chromalog
