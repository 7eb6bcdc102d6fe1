#include "palettes/fit_palette.h"
#include "palettes/palette_loss.h"
#include "palettes/random_palettes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace chromalog {
namespace {

constexpr int kPalettes = 10'000;

Rgb ink(const PaletteComponents& cmyk) {
    const auto rgb = test::plainInk(cmyk);
    return {rgb[0], rgb[1], rgb[2]};
}

class EveryFormat : public testing::TestWithParam<PaletteFormat> {
  protected:
    const PaletteFormatRules& rules = rulesOf(GetParam());
};

std::string wordOf(const testing::TestParamInfo<PaletteFormat>& info) {
    return std::string(rulesOf(info.param).word);
}

/// How many colours a comparison of what was there with what is read back finds changed.
struct Differences {
    std::size_t gone = 0, names = 0, colours = 0, alpha = 0, groups = 0, inks = 0;
    bool operator==(const Differences&) const = default;
};

Differences told(const PaletteLoss& loss) {
    Differences d{loss.beyond + loss.references,
                  loss.namesLost + loss.namesCut + loss.namesChanged,
                  loss.rounded,
                  loss.alpha,
                  loss.groups,
                  loss.spotInks};
    for (const std::size_t converted : loss.converted)
        d.colours += converted;
    return d;
}

Differences found(const Palette& before, const Palette& after, const std::vector<std::size_t>& from) {
    Differences d{before.colours.size() - after.colours.size()};
    for (std::size_t i = 0; i < after.colours.size(); ++i) {
        const PaletteColour &was = before.colours[from[i]], &is = after.colours[i];
        d.names += was.name != is.name;
        double most = 0;
        for (std::size_t c = 0; c < 4; ++c)
            most = std::max(most, std::abs(was.components[c] - is.components[c]));
        d.colours += was.space != is.space || most > (was.space == PaletteSpace::lab ? 1e-4 : 1e-6);
        d.alpha += was.alpha != is.alpha;
        d.groups += was.group != is.group;
        d.inks += was.isSpot != is.isSpot;
    }
    return d;
}

TEST_P(EveryFormat, ReadsBackExactlyWhatTheLossTells) {
    std::mt19937 random(15);
    for (int i = 0; i < kPalettes; ++i) {
        const Palette palette = test::randomPalette(random);
        const FittedPalette fitted = fitPalette(palette, GetParam(), ink);
        const auto file = rules.write(fitted.palette);
        const ReadPalette read = rules.read(file);
        ASSERT_EQ(read.unread, 0u) << "palette " << i;
        ASSERT_EQ(read.palette.title, fitted.palette.title) << "palette " << i;
        ASSERT_EQ(read.palette.colours.size(), fitted.from.size()) << "palette " << i;
        for (std::size_t c = 0; c < fitted.from.size(); ++c) {
            const PaletteColour &is = read.palette.colours[c], &was = fitted.palette.colours[c];
            ASSERT_EQ(is.name, was.name) << "palette " << i << ", colour " << c;
            ASSERT_EQ(is.group, was.group) << "palette " << i << ", colour " << c;
            ASSERT_EQ(is, was) << "palette " << i << ", colour " << c;
        }
        ASSERT_EQ(told(lossOf(palette, fitted)), found(palette, read.palette, fitted.from))
            << "palette " << i;
    }
}

TEST_P(EveryFormat, LosesNothingTheSecondTime) {
    std::mt19937 random(16);
    for (int i = 0; i < 500; ++i) {
        const FittedPalette once = fitPalette(test::randomPalette(random), GetParam(), ink);
        const FittedPalette twice = fitPalette(once.palette, GetParam(), ink);
        ASSERT_EQ(lossOf(once.palette, twice), PaletteLoss()) << "palette " << i;
    }
}

TEST_P(EveryFormat, IsToldByItsContents) {
    std::mt19937 random(17);
    for (int i = 0; i < 500; ++i) {
        const FittedPalette fitted = fitPalette(test::randomPalette(random), GetParam(), ink);
        const auto file = rules.write(fitted.palette);
        const std::string named = "a." + std::string(rules.extension);
        ASSERT_EQ(formatOfContents(file, fitted.from.empty() ? named : ""), GetParam()) << "palette " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Palettes, EveryFormat,
                         testing::Values(PaletteFormat::aco, PaletteFormat::acb, PaletteFormat::ase,
                                         PaletteFormat::gpl, PaletteFormat::act, PaletteFormat::jasc,
                                         PaletteFormat::riff, PaletteFormat::paintNet, PaletteFormat::hex,
                                         PaletteFormat::css, PaletteFormat::tokens, PaletteFormat::soc),
                         wordOf);

TEST(Formats, HaveTheirRowsInOrderAndWordsOfTheirOwn) {
    std::set<std::string_view> words;
    for (std::size_t i = 0; i < paletteFormats().size(); ++i) {
        EXPECT_EQ(paletteFormats()[i].format, static_cast<PaletteFormat>(i));
        EXPECT_TRUE(words.insert(paletteFormats()[i].word).second);
        EXPECT_EQ(formatOfWord(paletteFormats()[i].word), paletteFormats()[i].format);
    }
    EXPECT_EQ(words.size(), 13u);
}

} // namespace
} // namespace chromalog
