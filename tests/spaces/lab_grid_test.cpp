#include "random_colours.h"
#include "spaces/ciede2000.h"
#include "spaces/lab_grid.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace chromalog {
namespace {

using Labs = std::vector<Lab>;
using Matches = std::vector<ColourMatch>;

constexpr double kAny = std::numeric_limits<double>::infinity();

/// A list of one of several kinds: all of sRGB, one corner of it, greys, few colours again and again, all of
/// Lab, two far clusters, muted colours of one lightness.
Labs randomList(RandomColours& random, int kind, std::size_t count) {
    Labs labs;
    const Rgb corner = random.rgb();
    while (labs.size() < count) {
        const Rgb rgb = random.rgb();
        if (kind == 1)
            labs.push_back(labOf(Rgb{corner.red + rgb.red / 20, corner.green + rgb.green / 20, corner.blue}));
        else if (kind == 2)
            labs.push_back({random.number(0, 100), random.number(-0.1, 0.1), random.below(2) ? 0 : 1e-9});
        else if (kind == 3)
            labs.push_back(labOf(rgbOfBytes(random.below(8) * 0x203040 & 0xFFFFFF)));
        else if (kind == 4)
            labs.push_back({random.number(0, 100), random.number(-128, 127), random.number(-128, 127)});
        else if (kind == 6)
            labs.push_back({50, random.number(-40, 40), random.number(-40, 40)});
        else if (kind == 5)
            labs.push_back(labOf(Rgb{rgb.red / 5, rgb.green / 5, 1 - rgb.blue / 5 - random.below(2) * 0.6}));
        else
            labs.push_back(labOf(rgb));
    }
    return labs;
}

/// All within the radius, nearest first, of equal differences the first of the list.
Matches bruteForce(const Labs& list, const Lab& colour, double radius) {
    Matches matches;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (const double difference = ciede2000(colour, list[i]); difference <= radius)
            matches.push_back({i, difference});
    std::ranges::stable_sort(matches, {}, &ColourMatch::difference);
    return matches;
}

Matches inListOrder(Matches matches) {
    std::ranges::sort(matches, {}, &ColourMatch::index);
    return matches;
}

void expectSameAsBruteForce(const Labs& list, const Labs& asked, double radius) {
    const LabGrid grid(list);
    for (const Lab& colour : asked) {
        const Matches all = bruteForce(list, colour, kAny);
        const Matches near = bruteForce(list, colour, radius);
        ASSERT_EQ(grid.nearest(colour), all.empty() ? std::nullopt : std::optional(all.front()));
        ASSERT_EQ(grid.nearest(colour, radius), near.empty() ? std::nullopt : std::optional(near.front()));
        ASSERT_EQ(grid.nearestFew(colour, 5),
                  Matches(all.begin(), all.begin() + std::min<long>(5, all.size())));
        ASSERT_EQ(grid.within(colour, radius), inListOrder(near));
    }
}

TEST(LabGrid, IsBruteForceForAHundredRandomLists) {
    RandomColours random(10);
    for (int run = 0; run < 100; ++run) {
        SCOPED_TRACE(run);
        const Labs list = randomList(random, run % 7, 1 + random.below(run % 10 == 0 ? 5000 : 400));
        Labs asked = randomList(random, random.below(7), 40);
        asked.insert(asked.end(), list.begin(), list.begin() + std::min<long>(20, list.size()));
        expectSameAsBruteForce(list, asked, random.number(0, run % 3 == 0 ? 50 : 5));
    }
}

TEST(LabGrid, ARadiusOfZeroFindsEqualColours) {
    const Labs list{{50, 10, -20}, {50, 10, -20.0000001}, {50, 10, -20}, {0, 0, 0}};
    const LabGrid grid(list);
    EXPECT_EQ(grid.within({50, 10, -20}, 0), (Matches{{0, 0}, {2, 0}}));
    EXPECT_EQ(grid.nearest({50, 10, -20}, 0), (ColourMatch{0, 0}));
    EXPECT_EQ(grid.nearest({51, 10, -20}, 0), std::nullopt);
    EXPECT_EQ(grid.size(), 4u);
}

TEST(LabGrid, EqualColoursComeInTheOrderOfTheList) {
    const LabGrid grid(Labs(100, Lab{50, 10, -20}));
    EXPECT_EQ(grid.nearest({50, 12, -20})->index, 0u);
    const Matches three = grid.nearestFew({50, 12, -20}, 3);
    ASSERT_EQ(three.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(three[i].index, i);
    EXPECT_EQ(grid.nearestFew({50, 12, -20}, 1000).size(), 100u);
}

TEST(LabGrid, OfEquallyNearColoursTheFirstIsTaken) {
    for (const double lightness : {45.0, 55.0}) {
        const LabGrid grid(Labs{{lightness, 0, 0}, {100 - lightness, 0, 0}});
        ASSERT_EQ(ciede2000({50, 0, 0}, {45, 0, 0}), ciede2000({50, 0, 0}, {55, 0, 0}));
        EXPECT_EQ(grid.nearest({50, 0, 0})->index, 0u);
        EXPECT_EQ(grid.nearestFew({50, 0, 0}, 1).front().index, 0u);
    }
}

TEST(LabGrid, OfNoColoursFindsNone) {
    for (const LabGrid& grid : {LabGrid(), LabGrid(Labs())}) {
        EXPECT_EQ(grid.nearest({50, 0, 0}), std::nullopt);
        EXPECT_TRUE(grid.nearestFew({50, 0, 0}, 5).empty());
        EXPECT_TRUE(grid.within({50, 0, 0}, 100).empty());
    }
    EXPECT_TRUE(LabGrid(Labs(3)).nearestFew({}, 0).empty());
}

TEST(LabGrid, NoNumberAndEndlessOnesHarmNothing) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    Labs list(50, Lab{none, kAny, -kAny});
    list.push_back({50, 0, 0});
    const LabGrid grid(list);
    EXPECT_EQ(grid.nearest({50, 1, 0})->index, 50u);
    EXPECT_EQ(grid.nearest({none, kAny, -kAny}), (ColourMatch{0, 0}));
    EXPECT_EQ(grid.within({50, 0, 0}, none).size(), 0u);
    EXPECT_EQ(grid.within({50, 0, 0}, -1).size(), 0u);
}

TEST(LabGrid, TheBoundsAreNeverAboveTheDifference) {
    RandomColours random(11);
    const auto expectBound = [](const LabBox& first, const LabBox& second, double difference) {
        const double squared = difference * difference * (1 + 1e-9) + 1e-15;
        EXPECT_LE(leastCiede2000Squared(first, second), squared);
        EXPECT_LE(leastCiede2000SquaredByHue(first, second), squared);
    };
    for (int i = 0; i < 3000; ++i) {
        const Labs first = randomList(random, random.below(7), 1 + random.below(8));
        const Labs second = randomList(random, random.below(7), 1 + random.below(8));
        LabBox firstBox = boxOf(first.front()), secondBox = boxOf(second.front());
        for (const Lab& lab : first)
            firstBox = joined(firstBox, boxOf(lab));
        for (const Lab& lab : second)
            secondBox = joined(secondBox, boxOf(lab));
        for (const Lab& a : first)
            for (const Lab& b : second) {
                expectBound(firstBox, secondBox, ciede2000(a, b));
                expectBound(boxOf(a), boxOf(b), ciede2000(a, b));
            }
    }
}

TEST(LabGrid, TheBoundsHoldWhereHuesAreOpposite) {
    // There the mean hue jumps, by the last bit of either.
    RandomColours random(21);
    for (int i = 0; i < 100000; ++i) {
        const Lab a{50, random.number(-60, 60), random.number(-60, 60)};
        const double part = i % 3 == 0 ? 1 : random.number(0.5, 1.5);
        const Lab b{50, -part * a.a, -part * a.b};
        const double difference = ciede2000(a, b);
        EXPECT_LE(leastCiede2000SquaredByHue(boxOf(a), boxOf(b)), difference * difference * (1 + 1e-9));
    }
}

TEST(LabGrid, TheBoundsAreNearTheDifference) {
    // Else nearly every colour would be compared.
    RandomColours random(12);
    double sum = 0;
    for (int i = 0; i < 10000; ++i) {
        const Lab a = labOf(random.rgb()), b = labOf(random.rgb());
        const double least = std::max(leastCiede2000Squared(boxOf(a), boxOf(b)),
                                      leastCiede2000SquaredByHue(boxOf(a), boxOf(b)));
        sum += std::sqrt(least) / ciede2000(a, b);
    }
    EXPECT_GT(sum / 10000, 0.9);
}

TEST(NearestOfEach, ColoursOfOneListAloneHaveNone) {
    const Labs first{{50, 0, 0}, {20, 0, 0}}, second{{50, 1, 0}, {90, 0, 0}};
    const auto matches = nearestOfEach(first, LabGrid(second), 5);
    ASSERT_EQ(matches.size(), 2u);
    ASSERT_TRUE(matches[0]);
    EXPECT_EQ(matches[0]->index, 0u);
    EXPECT_EQ(matches[0]->difference, ciede2000(first[0], second[0]));
    EXPECT_FALSE(matches[1]);
}

TEST(NearDoubles, TheFirstOfNearColoursIsKept) {
    // A chain: each is near the one before, the third is not near the first.
    const Labs chain{{50, 0, 0}, {51, 0, 0}, {52, 0, 0}, {90, 0, 0}, {50, 0, 0}};
    const double step = ciede2000(chain[0], chain[1]);
    const auto doubles = nearDoubles(chain, step);
    ASSERT_EQ(doubles.size(), 5u);
    EXPECT_FALSE(doubles[0]);
    EXPECT_EQ(doubles[1], (ColourMatch{0, step}));
    EXPECT_FALSE(doubles[2]); // the second is no colour of the list any more
    EXPECT_FALSE(doubles[3]);
    EXPECT_EQ(doubles[4], (ColourMatch{0, 0}));
    // Between two that are kept, the first has it.
    EXPECT_EQ(nearDoubles(Labs{{50, 0, 0}, {52, 0, 0}, {51, 0, 0}}, step * 1.1)[2]->index, 0u);
}

TEST(NearDoubles, WhatIsKeptIsFarApartAndWhatGoesIsNear) {
    RandomColours random(13);
    for (const double radius : {0.0, 1.0, 5.0, 40.0}) {
        const Labs list = randomList(random, 0, 300);
        const auto doubles = nearDoubles(list, radius);
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (doubles[i]) {
                EXPECT_LT(doubles[i]->index, i);
                EXPECT_FALSE(doubles[doubles[i]->index]);
                EXPECT_EQ(doubles[i]->difference, ciede2000(list[i], list[doubles[i]->index]));
                EXPECT_LE(doubles[i]->difference, radius);
            }
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_TRUE(doubles[i] || doubles[j] || ciede2000(list[i], list[j]) > radius)
                    << i << ' ' << j;
        }
    }
}

} // namespace
} // namespace chromalog
