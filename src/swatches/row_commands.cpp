#include "swatches/row_commands.h"

#include "base/translated.h"
#include "history/undo_labels.h"
#include "record/name_text.h"
#include "swatches/limit_alert.h"
#include "swatches/list_edits.h"

#include <algorithm>

namespace chromalog {
namespace {

void setCount(CSwatchList& list, std::size_t count) {
    list.setNumberOfColors(static_cast<std::int16_t>(count));
    list.setScrollSize();
    list.contentsChanged();
}

std::size_t sizeOf(const CSwatchList& list) {
    return static_cast<std::size_t>(list.shownRows());
}

std::string wordsOf(SortKey key) {
    switch (key) {
    case SortKey::name:
        return translated("Sort by name");
    case SortKey::hue:
        return translated("Sort by hue");
    case SortKey::brightness:
        return translated("Sort by brightness");
    case SortKey::saturation:
        return translated("Sort by saturation");
    case SortKey::difference:
        return translated("Sort by difference");
    case SortKey::reversed:
        break;
    }
    return translated("Reverse order");
}

std::string_view labelOf(SortKey key) {
    switch (key) {
    case SortKey::brightness:
        return undo_label::sortBrightness;
    case SortKey::saturation:
        return undo_label::sortSaturation;
    case SortKey::difference:
        return undo_label::sortDifference;
    case SortKey::reversed:
        return undo_label::sortReversed;
    default: // the buttons' keys, of some rows
        return undo_label::sortRows;
    }
}

} // namespace

void eraseRows(CSwatchListDelegate& delegate, CSwatchList& list, Rows rows) {
    eraseRows(delegate, list, rows, undo_label::rowsDeleted,
              translatedCount(rows.size(), "Delete %1 swatch", "Delete %1 swatches"));
}

void eraseRows(CSwatchListDelegate& delegate, CSwatchList& list, Rows rows, std::string_view labelKey,
               const std::string& words) {
    if (rows.empty()) return;
    delegate.setUndoablePosition(labelKey);
    const std::size_t left = sizeOf(list) - rows.size();
    removeRows(list.shownRecordsToChange(), rows);
    setCount(list, left);
    delegate.describeStep(words);
}

std::optional<int> moveRowsTo(CSwatchListDelegate& delegate, CSwatchList& list, Rows rows, int gap) {
    if (rows.empty()) return std::nullopt;
    const bool together = rows.back() - rows.front() + 1 == static_cast<int>(rows.size());
    if (together && gap >= rows.front() && gap <= rows.back() + 1) return std::nullopt;
    delegate.setUndoablePosition(undo_label::rowsMoved);
    const std::string words = translatedCount(rows.size(), "Move %1 swatch", "Move %1 swatches");
    const int first = moveRows(list.shownRecordsToChange(), rows, gap);
    list.contentsChanged();
    delegate.describeStep(words);
    return first;
}

bool bringAcross(CSwatchListDelegate& delegate, CSwatchList& from, Rows rows, CSwatchList& to, int gap,
                 Across way) {
    if (rows.empty()) return false;
    const std::size_t total = sizeOf(to) + rows.size();
    if (total > static_cast<std::size_t>(kListCapacity)) {
        delegate.desktop().runAlert(limitAlert(static_cast<int>(total)));
        return false;
    }
    const bool moves = way == Across::move;
    const std::vector<FCOStruct> copies = copiesOf(from.shownRecords(), rows);
    const std::string words =
        moves ? translatedCount(rows.size(), "Move across %1 swatch", "Move across %1 swatches")
              : translatedCount(rows.size(), "Copy across %1 swatch", "Copy across %1 swatches");
    delegate.setUndoablePosition(moves ? undo_label::rowsMovedAcross : undo_label::rowsCopiedAcross);
    insertRecords(to.recordsToChange(), to.shownRows(), gap, copies);
    if (moves) {
        const std::size_t left = sizeOf(from) - rows.size();
        removeRows(from.shownRecordsToChange(), rows);
        setCount(from, left);
    }
    setCount(to, total);
    delegate.describeStep(words);
    return true;
}

void sortRows(CSwatchListDelegate& delegate, CSwatchList& list, Rows rows, SortKey key,
              const Colour& reference) {
    const std::vector<int> order = sortedOrder(list.shownRecords(), rows, key, reference);
    if (std::ranges::is_sorted(order)) return;
    const bool some = rows.size() < sizeOf(list);
    const std::string words =
        some ? wordsOf(key) + ": " + translatedCount(rows.size(), "%1 swatch", "%1 swatches") : wordsOf(key);
    delegate.setUndoablePosition(some ? undo_label::sortRows : labelOf(key));
    reorderRows(list.shownRecordsToChange(), rows, order);
    list.contentsChanged();
    delegate.describeStep(words);
}

std::string keptName(const std::string& utf8) {
    return lossyAscii(utf8).substr(0, 255);
}

void renameRow(CSwatchListDelegate& delegate, CSwatchList& list, int row, const std::string& utf8) {
    FCOStruct* record = recordAt(list.shownRecordsToChange(), row);
    if (!record || utf8 == macRomanToUtf8(nameBytes(*record))) return;
    const StoredName name(keptName(utf8));
    if (name.bytes == nameBytes(*record)) return;
    const std::string words = translated("Rename swatch");
    delegate.setUndoablePosition(undo_label::rowRenamed);
    writeName(*record, name);
    list.contentsChanged();
    delegate.describeStep(words);
}

} // namespace chromalog
