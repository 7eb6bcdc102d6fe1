#include "random_colours.h"
#include "spaces/oklab.h"
#include "spaces/picture_colours.h"
#include "spaces/picture_histogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace chromalog {
namespace {

using Pixels = std::vector<std::uint32_t>;
using Colours = std::vector<PictureColour>;

Pixels times(std::uint32_t pixel, std::size_t count) {
    return Pixels(count, pixel);
}

Pixels joined(std::initializer_list<Pixels> parts) {
    Pixels all;
    for (const Pixels& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<std::uint32_t> bytesOf(const Colours& colours) {
    std::vector<std::uint32_t> bytes;
    for (const PictureColour& colour : colours)
        bytes.push_back(bytesOf(colour.rgb));
    return bytes;
}

Colours coloursOf(const Pixels& pixels, int count, PictureOrder order = PictureOrder::amount) {
    return pictureColours(pixels, count, order).value();
}

/// A photo's kind of picture: smooth in two directions, with grain.
Pixels smoothPicture(std::size_t side, unsigned seed) {
    RandomColours random(seed);
    Pixels pixels;
    for (std::size_t y = 0; y < side; ++y)
        for (std::size_t x = 0; x < side; ++x) {
            const Rgb rgb{static_cast<double>(x) / side, static_cast<double>(y) / side,
                          random.number(0, 0.3)};
            pixels.push_back(0xFF000000 | bytesOf(rgb));
        }
    return pixels;
}

TEST(PictureColours, FlatColoursComeBackAsTheyAre) {
    const Pixels pixels = joined({times(0xFF336699, 60), times(0xFFFFCC00, 30), times(0xFF010203, 10)});
    for (const int count : {3, 12, 64}) {
        const Colours colours = coloursOf(pixels, count);
        EXPECT_THAT(bytesOf(colours), testing::ElementsAre(0x336699, 0xFFCC00, 0x010203));
        EXPECT_NEAR(colours[0].share, 0.6, 1e-12);
        EXPECT_NEAR(colours[1].share, 0.3, 1e-12);
        EXPECT_NEAR(colours[2].share, 0.1, 1e-12);
    }
}

TEST(PictureColours, SixtyFourFlatColoursAreAllFound) {
    Pixels pixels;
    for (std::uint32_t i = 0; i < 64; ++i)
        pixels.insert(pixels.end(), 10 + i,
                      0xFF000000 | (i & 3) * 0x550000 | (i >> 2 & 3) * 0x5500 | (i >> 4) * 0x55);
    const Colours colours = coloursOf(pixels, 64);
    ASSERT_EQ(colours.size(), 64u);
    EXPECT_EQ(bytesOf(colours).front(), 0xFFFFFFu); // the most frequent
    EXPECT_EQ(bytesOf(colours).back(), 0u);
}

TEST(PictureColours, TransparentPixelsDoNotCount) {
    const Pixels pixels = joined({times(0x7FFF0000, 1000), times(0x80336699, 5), times(0x00FFFFFF, 1000)});
    const Colours colours = coloursOf(pixels, 8);
    EXPECT_THAT(bytesOf(colours), testing::ElementsAre(0x336699));
    EXPECT_EQ(colours[0].share, 1);
    EXPECT_TRUE(coloursOf(times(0x7FFF0000, 10), 8).empty());
    EXPECT_TRUE(coloursOf({}, 8).empty());
}

TEST(PictureColours, TheNumberIsClamped) {
    const Pixels pixels = smoothPicture(200, 14);
    EXPECT_EQ(coloursOf(pixels, 12).size(), 12u);
    EXPECT_EQ(coloursOf(pixels, 64).size(), 64u);
    EXPECT_EQ(coloursOf(pixels, 1).size(), 2u);
    EXPECT_EQ(coloursOf(pixels, -5).size(), 2u);
    EXPECT_EQ(coloursOf(pixels, 1000).size(), 64u);
}

TEST(PictureColours, AsManyAsAskedForWhereThereAreAsMany) {
    // A few frequent colours among rare ones: k-means leaves some of its centres nearest to nothing.
    RandomColours random(20);
    for (int run = 0; run < 500; ++run) {
        const std::size_t different = 3 + random.below(30), count = 2 + random.below(10);
        Pixels pixels;
        for (std::uint32_t i = 0; i < different; ++i) // each in a bin of its own
            pixels.insert(pixels.end(), random.below(4) ? 1 : 1 + random.below(1000),
                          0xFF000000 | (random.below(0x40000) * 0x40 & 0xFCFC00) | i << 3);
        const Colours colours = coloursOf(pixels, static_cast<int>(count));
        EXPECT_EQ(colours.size(), std::min(count, different)) << run;
        double shares = 0;
        for (const PictureColour& colour : colours) {
            EXPECT_GT(colour.share, 0);
            shares += colour.share;
        }
        EXPECT_NEAR(shares, 1, 1e-12);
    }
}

TEST(PictureColours, ThePlacesOfThePixelsDoNotMatter) {
    Pixels pixels = smoothPicture(300, 15);
    const Colours first = coloursOf(pixels, 24);
    std::mt19937 random(1);
    std::ranges::shuffle(pixels, random);
    const Colours second = coloursOf(pixels, 24);
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].rgb, second[i].rgb);
        EXPECT_EQ(first[i].share, second[i].share);
    }
}

TEST(PictureColours, ASmallAccentIsFound) {
    // One pixel of a hundred is red, the rest a grainy paper.
    RandomColours random(16);
    Pixels pixels;
    for (int i = 0; i < 100000; ++i)
        pixels.push_back(i % 100 == 0 ? 0xFFDD1122 : 0xFFE0E0D0 + random.below(16) * 0x010101);
    EXPECT_THAT(bytesOf(coloursOf(pixels, 8)), testing::Contains(0xDD1122));
}

double distance(const Oklab& first, const Oklab& second) {
    return std::hypot(first.lightness - second.lightness, first.a - second.a, first.b - second.b);
}

TEST(PictureColours, EachIsTheMeanOfThePixelsNearestToIt) {
    // Few colours, each alone in its bin, so that nothing but the clusters is rounded.
    RandomColours random(17);
    Pixels pixels;
    for (int i = 0; i < 300; ++i)
        pixels.insert(pixels.end(), 1 + random.below(50), 0xFF000000 | (random.below(0x1000000) & 0xFCFCFC));
    const Colours colours = coloursOf(pixels, 6);
    ASSERT_EQ(colours.size(), 6u);
    std::vector<Oklab> sums(6);
    std::vector<double> counts(6);
    for (const std::uint32_t pixel : pixels) {
        const Oklab oklab = oklabOf(rgbOfBytes(pixel));
        const auto nearest = std::ranges::min_element(
            colours, {}, [&](const PictureColour& c) { return distance(oklabOf(c.rgb), oklab); });
        const auto i = static_cast<std::size_t>(nearest - colours.begin());
        sums[i] = {sums[i].lightness + oklab.lightness, sums[i].a + oklab.a, sums[i].b + oklab.b};
        ++counts[i];
    }
    for (std::size_t i = 0; i < 6; ++i) {
        const Oklab mean{sums[i].lightness / counts[i], sums[i].a / counts[i], sums[i].b / counts[i]};
        EXPECT_LT(distance(mean, oklabOf(colours[i].rgb)), 1e-6) << i;
        EXPECT_NEAR(colours[i].share, counts[i] / static_cast<double>(pixels.size()), 1e-12);
    }
}

TEST(PictureColours, ComeByAmountOrByHue) {
    const Pixels pixels = joined({times(0xFF2020FF, 10), times(0xFF808080, 40), times(0xFFFF2020, 20),
                                  times(0xFF000000, 5), times(0xFF20C020, 30), times(0xFFFFFFFF, 1)});
    EXPECT_THAT(bytesOf(coloursOf(pixels, 8)),
                testing::ElementsAre(0x808080, 0x20C020, 0xFF2020, 0x2020FF, 0x000000, 0xFFFFFF));
    EXPECT_THAT(bytesOf(coloursOf(pixels, 8, PictureOrder::hue)),
                testing::ElementsAre(0xFF2020, 0x20C020, 0x2020FF, 0x000000, 0x808080, 0xFFFFFF));
}

TEST(PictureColours, ProgressGrowsAndNoEndsTheWork) {
    const Pixels pixels = smoothPicture(2100, 18); // more than two questions while counting
    std::vector<double> told;
    const auto all = pictureColours(pixels, 12, PictureOrder::amount, [&](double done) {
        told.push_back(done);
        return true;
    });
    ASSERT_TRUE(all);
    EXPECT_GT(told.size(), 4u);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_GE(told.front(), 0);
    EXPECT_LE(told.back(), 1);
    for (std::size_t last = 0; last < told.size(); ++last) {
        std::size_t asked = 0;
        EXPECT_FALSE(
            pictureColours(pixels, 12, PictureOrder::amount, [&](double) { return asked++ < last; }));
        EXPECT_EQ(asked, last + 1);
    }
}

double weightOf(const std::vector<WeightedColour>& colours) {
    double sum = 0;
    for (const WeightedColour& colour : colours)
        sum += colour.weight;
    return sum;
}

TEST(PictureHistogram, ABinKeepsTheMean) {
    PictureHistogram histogram;
    histogram.add(joined({times(0xFF404040, 30), times(0xFF434040, 10)})); // one bin
    histogram.add(times(0xFF444040, 7));                                   // the next
    const auto colours = histogram.colours();
    ASSERT_EQ(colours.size(), 2u);
    EXPECT_EQ(colours[0].weight, 40);
    EXPECT_LT(distance(colours[0].colour, oklabOf(Rgb{64.75 / 255, 64.0 / 255, 64.0 / 255})), 1e-12);
    EXPECT_EQ(colours[1].weight, 7);
    EXPECT_LT(distance(colours[1].colour, oklabOf(rgbOfBytes(0x444040))), 1e-12);
}

TEST(PictureHistogram, ManyColoursAreGatheredInCoarserBins) {
    RandomColours random(19);
    Pixels noise;
    for (int i = 0; i < 1000000; ++i)
        noise.push_back(0xFF000000 | random.below(0x1000000));
    PictureHistogram histogram;
    histogram.add(noise);
    const auto colours = histogram.colours();
    EXPECT_EQ(colours.size(), 32768u);
    EXPECT_EQ(weightOf(colours), 1000000);
    // The first bin of 5 bits: the mean of what of the noise lies in it.
    double sum = 0, count = 0;
    for (const std::uint32_t pixel : noise)
        if ((pixel & 0xF8F8F8) == 0) {
            sum += pixel & 0xFF;
            ++count;
        }
    EXPECT_EQ(colours[0].weight, count);
    EXPECT_NEAR(rgbOf(colours[0].colour).blue * 255, sum / count, 1e-6);
}

} // namespace
} // namespace chromalog
