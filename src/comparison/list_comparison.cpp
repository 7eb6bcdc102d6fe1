#include "comparison/list_comparison.h"

#include <algorithm>

namespace chromalog {
namespace {

using Matches = ListComparison::Matches;

ComparedRow rowOf(int list, std::size_t row, const ColourMatch& match) {
    return {list, static_cast<int>(row), static_cast<int>(match.index), match.difference};
}

/// Those of a list that have a counterpart.
void addMatched(std::vector<ComparedRow>& rows, const Matches& matches, int list) {
    for (std::size_t i = 0; i < matches.size(); ++i)
        if (matches[i]) rows.push_back(rowOf(list, i, *matches[i]));
}

void addUnmatched(std::vector<ComparedRow>& rows, const Matches& matches, int list) {
    for (std::size_t i = 0; i < matches.size(); ++i)
        if (!matches[i]) rows.push_back({list, static_cast<int>(i)});
}

/// What a list has in both and no line of the other list has named.
void addUnnamed(std::vector<ComparedRow>& rows, const Matches& one, const Matches& two) {
    std::vector<bool> named(two.size());
    for (const auto& match : one)
        if (match) named[match->index] = true;
    for (std::size_t i = 0; i < two.size(); ++i)
        if (two[i] && !named[i]) rows.push_back(rowOf(1, i, *two[i]));
}

} // namespace

std::size_t ListComparison::matched(int list) const {
    const Matches& all = matches[static_cast<std::size_t>(list)];
    return static_cast<std::size_t>(std::ranges::count_if(all, [](const auto& m) { return m.has_value(); }));
}

ListComparison compareLists(std::span<const Lab> one, std::span<const Lab> two, double within) {
    return {{nearestOfEach(one, LabGrid(two), within), nearestOfEach(two, LabGrid(one), within)}};
}

ListComparison findDoubles(std::span<const Lab> colours, int list, double within) {
    ListComparison found;
    found.matches[static_cast<std::size_t>(list)] = nearDoubles(colours, within);
    return found;
}

std::vector<ComparedRow> comparedRows(const ListComparison& comparison, ComparisonView view) {
    const auto& [one, two] = comparison.matches;
    std::vector<ComparedRow> rows;
    switch (view) {
    case ComparisonView::onlyOne:
        addUnmatched(rows, one, 0);
        break;
    case ComparisonView::onlyTwo:
        addUnmatched(rows, two, 1);
        break;
    case ComparisonView::both:
        addMatched(rows, one, 0);
        addUnnamed(rows, one, two);
        break;
    case ComparisonView::doublesOne:
        addMatched(rows, one, 0);
        break;
    case ComparisonView::doublesTwo:
        addMatched(rows, two, 1);
        break;
    }
    return rows;
}

} // namespace chromalog
