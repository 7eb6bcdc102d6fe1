#pragma once

#include "record/list_store.h"

#include <span>
#include <vector>

namespace chromalog {

/// Rows of a list: indices below its count, in rising order, none twice.
using Rows = std::span<const int>;

// Edits of several rows at once, in place. A gap g lies above row g; the one at the count is the list's end.

/// Takes the rows out and puts them back together at the gap of before; the index of the first one then.
int moveRows(ListRecords shown, Rows rows, int gap);

/// Takes the rows out; the others close up. What lies past the new count keeps what it held.
void removeRows(ListRecords shown, Rows rows);

std::vector<FCOStruct> copiesOf(ConstListRecords shown, Rows rows);

/// Puts records in at the gap. `all` is the whole array, with room for them past `count`.
void insertRecords(ListRecords all, int count, int gap, std::span<const FCOStruct> records);

/// Record order[i] of these rows comes to the place of the i-th.
void reorderRows(ListRecords shown, Rows rows, std::span<const int> order);

} // namespace chromalog
