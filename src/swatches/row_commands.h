#pragma once

#include "swatches/row_edits.h"
#include "swatches/sort_keys.h"
#include "swatches/swatch_list_view.h"

namespace chromalog {

// What a person does to several rows at once. Each is one step of undo under a label of its own, recorded
// before anything changes; what changes nothing records none. Rows are those of the list's shown ones.

void eraseRows(CSwatchListDelegate&, CSwatchList&, Rows);
/// The same under another label and other words.
void eraseRows(CSwatchListDelegate&, CSwatchList&, Rows, std::string_view labelKey, const std::string& words);

/// The first row's new index. Nothing where the rows stand there already.
std::optional<int> moveRowsTo(CSwatchListDelegate&, CSwatchList&, Rows, int gap);

enum class Across { copy, move };
/// Whole records into the other list, with no look at colours that it has already. Nothing and the limit
/// alert where it has no room for all of them.
bool bringAcross(CSwatchListDelegate&, CSwatchList& from, Rows, CSwatchList& to, int gap, Across);

/// `all` rows of the list, or some that are selected: told in other words.
void sortRows(CSwatchListDelegate&, CSwatchList&, Rows, SortKey, const Colour& reference);

/// ASCII, as names are kept everywhere: accents are dropped, other letters become "?".
std::string keptName(const std::string& utf8);
void renameRow(CSwatchListDelegate&, CSwatchList&, int row, const std::string& utf8);

} // namespace chromalog
