#include "spaces/lab_grid.h"

#include "spaces/ciede2000.h"

#include <numeric>
#include <tuple>

namespace chromalog {
namespace {

constexpr std::uint32_t kCellSize = 8; ///< entries of a cell that is not halved
// What rounding may add to the square of a bound: a part, and a little among equal colours.
constexpr double kRelativeSlack = 1e-9;
constexpr double kSlack = 1e-15;

double clamped(double component) {
    return component == component ? std::clamp(component, -1000.0, 1000.0) : 0;
}

Lab clamped(const Lab& lab) {
    return {clamped(lab.lightness), clamped(lab.a), clamped(lab.b)};
}

auto key(const Lab& lab) {
    return std::tuple(lab.lightness, lab.a, lab.b);
}

bool nearer(const ColourMatch& first, const ColourMatch& second) {
    return std::tuple(first.difference, first.index) < std::tuple(second.difference, second.index);
}

double component(const Lab& lab, int axis) {
    return axis == 0 ? lab.lightness : axis == 1 ? lab.a : lab.b;
}

/// Where a box is longest; lightness weighs double, as in the difference.
int longestAxis(const LabBox& box) {
    const double lightness = 2 * (box.high.lightness - box.low.lightness);
    const double a = box.high.a - box.low.a;
    const double b = box.high.b - box.low.b;
    if (lightness >= a && lightness >= b) return 0;
    return a >= b ? 1 : 2;
}

} // namespace

LabGrid::LabGrid(std::span<const Lab> colours) : order_(colours.size()) {
    std::vector<Lab> labs;
    for (const Lab& colour : colours)
        labs.push_back(clamped(colour));
    std::iota(order_.begin(), order_.end(), 0u);
    std::ranges::stable_sort(order_, {}, [&](std::uint32_t index) { return key(labs[index]); });
    for (std::uint32_t i = 0; i < order_.size(); ++i) {
        const Lab& lab = labs[order_[i]];
        if (entries_.empty() || !(entries_.back().box.low == lab)) entries_.push_back({boxOf(lab), i, i});
        entries_.back().last = i + 1;
    }
    if (!entries_.empty()) addCell(0, static_cast<std::uint32_t>(entries_.size()));
}

std::uint32_t LabGrid::addCell(std::uint32_t first, std::uint32_t last) {
    LabBox box = entries_[first].box;
    for (std::uint32_t i = first + 1; i < last; ++i)
        box = joined(box, entries_[i].box);
    const auto cell = static_cast<std::uint32_t>(cells_.size());
    cells_.push_back({box, first, last});
    if (last - first <= kCellSize) return cell;
    const std::uint32_t middle = first + (last - first) / 2;
    const auto begin = entries_.begin();
    std::nth_element(begin + first, begin + middle, begin + last,
                     [axis = longestAxis(box)](auto& a, auto& b) {
                         return component(a.box.low, axis) < component(b.box.low, axis);
                     });
    const std::uint32_t firstHalf = addCell(first, middle);
    cells_[cell].secondHalf = addCell(middle, last);
    cells_[cell].firstHalf = firstHalf;
    return cell;
}

template <typename Visit> struct LabGrid::Walk {
    const LabGrid& grid;
    const Lab& colour;
    const LabBox box; ///< of the colour
    double& limit;    ///< the visit may lower it
    Visit visit;

    bool mayReach(double leastSquared) const {
        return leastSquared * (1 - kRelativeSlack) <= limit * limit + kSlack;
    }

    /// The nearer half first: it lowers the limit for the other.
    void through(const Cell& cell) {
        if (cell.firstHalf == 0) return visitEntries(cell);
        const Cell& first = grid.cells_[cell.firstHalf];
        const Cell& second = grid.cells_[cell.secondHalf];
        const double firstLeast = leastCiede2000Squared(box, first.box);
        const double secondLeast = leastCiede2000Squared(box, second.box);
        const bool firstIsNearer = firstLeast <= secondLeast;
        enter(firstIsNearer ? first : second, std::min(firstLeast, secondLeast));
        enter(firstIsNearer ? second : first, std::max(firstLeast, secondLeast));
    }

    void enter(const Cell& cell, double leastSquared) {
        if (mayReach(leastSquared) && mayReach(leastCiede2000SquaredByHue(box, cell.box))) through(cell);
    }

    void visitEntries(const Cell& cell) {
        for (std::uint32_t i = cell.first; i < cell.last; ++i) {
            const Entry& entry = grid.entries_[i];
            if (!mayReach(leastCiede2000Squared(box, entry.box))) continue;
            const double difference = ciede2000(colour, entry.box.low);
            if (difference <= limit) visit(entry, difference);
        }
    }
};

/// Calls visit(entry, difference) for every entry that differs by at most `limit`.
template <typename Visit> void LabGrid::walk(const Lab& colour, double& limit, Visit visit) const {
    if (!cells_.empty()) Walk<Visit>{*this, colour, boxOf(colour), limit, visit}.through(cells_.front());
}

std::optional<ColourMatch> LabGrid::nearest(const Lab& colour, double within) const {
    std::optional<ColourMatch> best;
    walk(clamped(colour), within, [&](const Entry& entry, double difference) {
        const ColourMatch match{order_[entry.first], difference};
        if (best && !nearer(match, *best)) return;
        best = match;
        within = difference;
    });
    return best;
}

std::vector<ColourMatch> LabGrid::nearestFew(const Lab& colour, std::size_t count) const {
    std::vector<ColourMatch> best;
    double limit = std::numeric_limits<double>::infinity();
    if (count == 0) return best;
    walk(clamped(colour), limit, [&](const Entry& entry, double difference) {
        for (std::uint32_t i = entry.first; i < entry.last; ++i) {
            const ColourMatch match{order_[i], difference};
            if (best.size() == count && !nearer(match, best.back())) return;
            if (best.size() == count) best.pop_back();
            best.insert(std::ranges::upper_bound(best, match, nearer), match);
        }
        if (best.size() == count) limit = best.back().difference;
    });
    return best;
}

std::vector<ColourMatch> LabGrid::within(const Lab& colour, double radius) const {
    std::vector<ColourMatch> matches;
    walk(clamped(colour), radius, [&](const Entry& entry, double difference) {
        for (std::uint32_t i = entry.first; i < entry.last; ++i)
            matches.push_back({order_[i], difference});
    });
    std::ranges::sort(matches, {}, &ColourMatch::index);
    return matches;
}

std::vector<std::optional<ColourMatch>> nearestOfEach(std::span<const Lab> colours, const LabGrid& grid,
                                                      double within) {
    std::vector<std::optional<ColourMatch>> matches;
    for (const Lab& colour : colours)
        matches.push_back(grid.nearest(colour, within));
    return matches;
}

std::vector<std::optional<ColourMatch>> nearDoubles(std::span<const Lab> colours, double radius) {
    const LabGrid grid(colours);
    std::vector<std::optional<ColourMatch>> doubles(colours.size());
    for (std::size_t i = 0; i < colours.size(); ++i) {
        if (doubles[i]) continue;
        for (const ColourMatch& match : grid.within(colours[i], radius))
            if (match.index > i && !doubles[match.index]) doubles[match.index] = {i, match.difference};
    }
    return doubles;
}

} // namespace chromalog
