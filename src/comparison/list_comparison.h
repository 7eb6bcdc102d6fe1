#pragma once

#include "spaces/lab_grid.h"

#include <array>
#include <span>
#include <vector>

namespace chromalog {

/// What a comparison shows of two lists.
enum class ComparisonView {
    onlyOne,    ///< what list 1 has and list 2 has not
    onlyTwo,    ///< the other way round
    both,       ///< what stands in both
    doublesOne, ///< what list 1 has nearly the same of, further up
    doublesTwo,
};

constexpr bool showsDoubles(ComparisonView view) {
    return view == ComparisonView::doublesOne || view == ComparisonView::doublesTwo;
}

/// For each swatch of the lists its counterpart, if it has one: the nearest of the other list, or of doubles
/// the one of the same list that stays.
struct ListComparison {
    using Matches = std::vector<std::optional<ColourMatch>>;
    std::array<Matches, 2> matches;

    std::size_t matched(int list) const; ///< swatches of the list with a counterpart
};

/// `within`: CIEDE2000 up to which two swatches count as one; 0: they must be equal. A swatch of either list
/// counts where the other list has any that near.
ListComparison compareLists(std::span<const Lab> one, std::span<const Lab> two, double within);
/// The first of near ones stays: only what stays makes others superfluous. The other list has no matches.
ListComparison findDoubles(std::span<const Lab> colours, int list, double within);

/// A line of the result: a swatch and its counterpart, by their rows.
struct ComparedRow {
    int list = 0; ///< 0 or 1
    int row = 0;
    int counterpart = -1;  ///< in the other list, of doubles in the same; -1: it has none
    double difference = 0; ///< of the two

    friend bool operator==(const ComparedRow&, const ComparedRow&) = default;
};

/// Of both: every swatch of list 1 with its nearest, then those of list 2 that are nobody's nearest.
std::vector<ComparedRow> comparedRows(const ListComparison&, ComparisonView);

} // namespace chromalog
