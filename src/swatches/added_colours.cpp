#include "swatches/added_colours.h"

#include "base/colour_text.h"
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

std::string wordsFor(std::span<const AddedColour> added) {
    return added.size() == 1 ? "Add a color" : "Add " + std::to_string(added.size()) + " colors";
}

} // namespace

bool addColours(CSwatchListDelegate& delegate, CSwatchList& list, std::span<const AddedColour> added,
                std::string_view labelKey) {
    const int before = list.shownRows();
    const int total = before + static_cast<int>(added.size());
    if (added.empty() || list.records().empty()) return false;
    if (total > kListCapacity) {
        delegate.desktop().runAlert(limitAlert(total));
        return false;
    }
    std::vector<FCOStruct> records; // all of them, or where memory runs out none
    for (const AddedColour& each : added)
        records.push_back(recordOf(each));
    const std::string words = wordsFor(added);
    delegate.setUndoablePosition(labelKey);
    std::ranges::copy(records, list.records().begin() + before);
    list.setNumberOfColors(static_cast<std::int16_t>(total));
    list.setSelectedColor(static_cast<std::int16_t>(total - 1));
    delegate.describeStep(words);
    list.setScrollSize();
    list.contentsChanged();
    list.scrollToShow(total - 1);
    return true;
}

} // namespace chromalog
