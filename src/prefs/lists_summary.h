#pragma once

#include <array>
#include <ctime>
#include <optional>
#include <string>

namespace chromalog {

/// What a preferences file holds, without its swatches.
struct ListsSummary {
    struct List {
        int count = 0;    ///< 0..5000, whatever the file says
        std::string name; ///< ASCII that can be printed, other characters as '?'
    };
    std::array<List, 2> lists;
    std::time_t written = 0; ///< when these lists were stored
};

/// Nothing where the file cannot be read, or ends before it has told (errno is then 0).
std::optional<ListsSummary> readSummary(const std::string& file);

/// One line for people: "2024-05-01 14:03, list 1: 20 colors (Flat.aco), list 2: empty".
std::string describe(const ListsSummary&);

/// False only where it is sure that both lists of the file are empty. What cannot be read may hold anything.
bool mayHoldColours(const std::string& file);

} // namespace chromalog
