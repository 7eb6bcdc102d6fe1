#include "swatches/row_edits.h"

#include <algorithm>
#include <cstring>

namespace chromalog {

std::vector<FCOStruct> copiesOf(ConstListRecords shown, Rows rows) {
    std::vector<FCOStruct> copies;
    copies.reserve(rows.size());
    for (const int row : rows)
        copies.push_back(shown[static_cast<std::size_t>(row)]);
    return copies;
}

void removeRows(ListRecords shown, Rows rows) {
    if (rows.empty()) return;
    std::size_t to = static_cast<std::size_t>(rows.front()), next = 0;
    for (std::size_t from = to; from < shown.size(); ++from)
        if (next < rows.size() && from == static_cast<std::size_t>(rows[next]))
            ++next;
        else
            shown[to++] = shown[from];
}

int moveRows(ListRecords shown, Rows rows, int gap) {
    const std::vector<FCOStruct> moved = copiesOf(shown, rows);
    const auto above = std::ranges::lower_bound(rows, gap) - rows.begin();
    const int first = gap - static_cast<int>(above);
    removeRows(shown, rows);
    insertRecords(shown, static_cast<int>(shown.size() - rows.size()), first, moved);
    return first;
}

void insertRecords(ListRecords all, int count, int gap, std::span<const FCOStruct> records) {
    if (records.empty()) return;
    FCOStruct* place = all.data() + gap;
    std::memmove(place + records.size(), place, static_cast<std::size_t>(count - gap) * sizeof(FCOStruct));
    std::ranges::copy(records, place);
}

void reorderRows(ListRecords shown, Rows rows, std::span<const int> order) {
    const std::vector<FCOStruct> before = copiesOf(shown, rows);
    for (std::size_t i = 0; i < rows.size(); ++i)
        shown[static_cast<std::size_t>(rows[i])] = before[static_cast<std::size_t>(order[i])];
}

} // namespace chromalog
