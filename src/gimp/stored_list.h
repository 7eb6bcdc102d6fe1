#pragma once

#include "palettes/palette.h"

#include <string>
#include <vector>

namespace chromalog {

// The two lists as the dialog stores them, for programs without a dialog. `list` is 1 or 2. The file is read
// and replaced as a pick does it, with its locks and the copies that it keeps beside it. Where that fails
// std::runtime_error tells why in one line, and nothing has changed.

/// A list as a palette; its title is the list's name, "Chromalog list 1" where it has none. Empty where
/// nothing is stored yet.
Palette readStoredList(int list);

/// Puts a palette's colours in the place of a list's. What a person should know of it: what the list cannot
/// keep, and who else has these lists in hand.
std::vector<std::string> replaceStoredList(int list, const Palette&);

} // namespace chromalog
