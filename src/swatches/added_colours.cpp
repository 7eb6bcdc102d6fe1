#include "swatches/added_colours.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "record/name_text.h"
#include "swatches/limit_alert.h"
#include "swatches/list_edits.h"

#include <algorithm>
#include <vector>

namespace chromalog {
namespace {

/// A record of its own: the place in the array may hold what a list had there before.
FCOStruct recordOf(const AddedColour& added) {
    FCOStruct record{};
    storeColour(record, added.colour);
    const std::string name = lossyAscii(added.name.empty() ? hexText(channelsOf(added.colour)) : added.name);
    record.Namen[0] = static_cast<std::uint8_t>(std::min<std::size_t>(name.size(), 255));
    std::copy_n(name.begin(), record.Namen[0], record.Namen + 1);
    return record;
}

std::string wordsFor(std::size_t added) {
    return translatedCount(added, "Add a color", "Add %1 colors");
}

/// False and the limit alert where the list has no room for so many more.
bool hasRoom(CSwatchListDelegate& delegate, const CSwatchList& list, std::size_t added) {
    const std::size_t total = static_cast<std::size_t>(list.shownRows()) + added;
    if (added == 0 || list.records().empty()) return false;
    if (total <= static_cast<std::size_t>(kListCapacity)) return true;
    delegate.desktop().runAlert(limitAlert(static_cast<int>(total)));
    return false;
}

} // namespace

bool addColours(CSwatchListDelegate& delegate, CSwatchList& list, std::span<const AddedColour> added,
                std::string_view labelKey) {
    if (!hasRoom(delegate, list, added.size())) return false;
    std::vector<FCOStruct> records; // all of them, or where memory runs out none
    for (const AddedColour& each : added)
        records.push_back(recordOf(each));
    return addRecords(delegate, list, records, labelKey);
}

bool addRecords(CSwatchListDelegate& delegate, CSwatchList& list, std::span<const FCOStruct> added,
                std::string_view labelKey) {
    if (!hasRoom(delegate, list, added.size())) return false;
    const int before = list.shownRows(), total = before + static_cast<int>(added.size());
    const std::string words = wordsFor(added.size());
    delegate.setUndoablePosition(labelKey);
    std::ranges::copy(added, list.recordsToChange().begin() + before);
    list.setNumberOfColors(static_cast<std::int16_t>(total));
    list.setSelectedColor(static_cast<std::int16_t>(total - 1));
    delegate.describeStep(words);
    list.setScrollSize();
    list.contentsChanged();
    list.scrollToShow(total - 1);
    return true;
}

} // namespace chromalog
