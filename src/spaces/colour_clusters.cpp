#include "spaces/colour_clusters.h"

#include <array>
#include <limits>
#include <span>
#include <tuple>

namespace chromalog {
namespace {

using Colours = std::span<WeightedColour>;
using Clusters = std::vector<ColourCluster>;

constexpr int kMostRounds = 24;

double component(const Oklab& colour, int axis) {
    return axis == 0 ? colour.lightness : axis == 1 ? colour.a : colour.b;
}

double squared(double v) {
    return v * v;
}

/// The weighted sum of colours and of their weights.
struct Sum {
    double lightness = 0, a = 0, b = 0, weight = 0;

    void add(const WeightedColour& c) {
        lightness += c.weight * c.colour.lightness;
        a += c.weight * c.colour.a;
        b += c.weight * c.colour.b;
        weight += c.weight;
    }
    ColourCluster mean() const { return {{lightness / weight, a / weight, b / weight}, weight}; }
};

/// Some of the colours, with what decides whether and where they are cut.
struct Box {
    Colours colours;
    ColourCluster mean;
    double spread = 0; ///< weighted sum of squared distances from the mean
    int axis = 0;      ///< of the largest part of it
};

Box boxOf(Colours colours) {
    Sum sum;
    for (const WeightedColour& c : colours)
        sum.add(c);
    Box box{colours, sum.mean()};
    std::array<double, 3> spreads{};
    for (const WeightedColour& c : colours)
        for (int axis = 0; axis < 3; ++axis)
            spreads[axis] += c.weight * squared(component(c.colour, axis) - component(box.mean.colour, axis));
    box.spread = spreads[0] + spreads[1] + spreads[2];
    box.axis = static_cast<int>(std::ranges::max_element(spreads) - spreads.begin());
    return box;
}

/// Where half of the weight lies on either side; both sides have a colour.
std::size_t medianOf(const Box& box) {
    double below = 0;
    for (std::size_t i = 0; i + 1 < box.colours.size(); ++i) {
        below += box.colours[i].weight;
        if (below >= box.mean.weight / 2) return i + 1;
    }
    return box.colours.size() - 1;
}

std::pair<Box, Box> cut(const Box& box) {
    std::ranges::sort(box.colours, {}, [axis = box.axis](const WeightedColour& c) {
        return std::tuple(component(c.colour, axis), c.colour.lightness, c.colour.a, c.colour.b);
    });
    const std::size_t median = medianOf(box);
    return {boxOf(box.colours.first(median)), boxOf(box.colours.subspan(median))};
}

Clusters medianCut(Colours colours, std::size_t count) {
    std::vector<Box> boxes;
    if (!colours.empty()) boxes.push_back(boxOf(colours));
    while (!boxes.empty() && boxes.size() < count) {
        auto widest = std::ranges::max_element(boxes, {}, &Box::spread);
        if (widest->colours.size() < 2) break;
        const auto [low, high] = cut(*widest);
        *widest = low;
        boxes.push_back(high);
    }
    Clusters clusters;
    for (const Box& box : boxes)
        clusters.push_back(box.mean);
    return clusters;
}

struct Nearest {
    std::size_t cluster = 0;
    double squaredDistance = std::numeric_limits<double>::infinity();
};

Nearest nearest(const Clusters& clusters, const Oklab& colour) {
    Nearest best;
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        const Oklab& centre = clusters[i].colour;
        const double distance = squared(colour.lightness - centre.lightness) + squared(colour.a - centre.a) +
                                squared(colour.b - centre.b);
        best.cluster = distance < best.squaredDistance ? i : best.cluster;
        best.squaredDistance = std::min(distance, best.squaredDistance);
    }
    return best;
}

bool same(const Oklab& first, const Oklab& second) {
    return first.lightness == second.lightness && first.a == second.a && first.b == second.b;
}

/// One round of k-means: whether any centre moved. A centre that is nearest to nothing takes the place of the
/// colour that is served worst.
bool refine(Clusters& clusters, std::span<const WeightedColour> colours) {
    std::vector<Sum> sums(clusters.size());
    WeightedColour worst;
    double worstError = 0;
    for (const WeightedColour& c : colours) {
        const Nearest centre = nearest(clusters, c.colour);
        sums[centre.cluster].add(c);
        const double error = c.weight * centre.squaredDistance;
        if (error <= worstError) continue;
        worst = c;
        worstError = error;
    }
    bool moved = false;
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        const Oklab before = clusters[i].colour;
        clusters[i] = sums[i].weight > 0 ? sums[i].mean() : ColourCluster{before, 0};
        if (sums[i].weight == 0 && worstError > 0) {
            clusters[i].colour = worst.colour;
            worstError = 0;
        }
        moved |= !same(before, clusters[i].colour);
    }
    return moved;
}

} // namespace

// cppcheck-suppress passedByValue ; its own, as it is sorted in place
std::optional<std::vector<ColourCluster>> clustersOf(std::vector<WeightedColour> colours, std::size_t count,
                                                     const std::function<bool()>& goOn) {
    Clusters clusters = medianCut(colours, count);
    for (int round = 0; round < kMostRounds; ++round) {
        if (goOn && !goOn()) return std::nullopt;
        if (!refine(clusters, colours)) break;
    }
    std::erase_if(clusters, [](const ColourCluster& cluster) { return cluster.weight == 0; });
    return clusters;
}

} // namespace chromalog
