#pragma once

#include "swatches/search.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// What a search finds beside a name that holds the text letter by letter, and what it does with a hit. All
/// off: the search as it is by itself.
struct SearchOptions {
    bool ignoreCase = false;
    bool ignoreAccents = false; ///< of the text and of names
    bool hex = false;           ///< #36c, #3366cc, the beginning of one, or 3 or 6 digits alone
    bool cssName = false;       ///< the nearest name of CSS holds the text
    /// A hit's row is scrolled whole into view, and Return takes the hit in place of going to the next one.
    bool landing = false;

    bool findsMore() const { return ignoreCase || ignoreAccents || hex || cssName; }
    friend bool operator==(const SearchOptions&, const SearchOptions&) = default;
};

/// Whether a swatch is a hit for the text. Empty text finds nothing.
using SwatchTest = std::function<bool(const FCOStruct&)>;
SwatchTest swatchTest(std::string_view text, const SearchOptions&);

/// As findByName, also in what it does to the names of list 1.
std::vector<FoundEntry> findSwatches(ListRecords searched, ListRecords list1, int count,
                                     std::string_view text, const SearchOptions&);

} // namespace chromalog
