#include "standalone/palettes/palette_order.h"

#include "spaces/lab_grid.h"
#include "spaces/oklab.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace chromalog::standalone {

namespace {

constexpr double kGrey = 0.02; // chroma in OKLCH: hues below it are rounding

/// Greys first, then by hue, then from dark to light.
std::tuple<bool, double, double> hueKey(const PaletteColour& colour, const CmykToRgb& ink) {
    const Oklch lch = oklchOf(oklabOf(rgbOf(colour, ink)));
    const bool coloured = lch.chroma >= kGrey;
    return {coloured, coloured ? lch.hue : 0, lch.lightness};
}

template <typename Key> void sortBy(Palette& palette, const Key& keyOf) {
    using Sortable = std::pair<decltype(keyOf(palette.colours.front())), std::size_t>;
    std::vector<Sortable> keys;
    for (const PaletteColour& colour : palette.colours)
        keys.emplace_back(keyOf(colour), keys.size());
    std::ranges::sort(keys);
    std::vector<PaletteColour> sorted;
    sorted.reserve(keys.size());
    for (const Sortable& key : keys)
        sorted.push_back(std::move(palette.colours[key.second]));
    palette.colours = std::move(sorted);
}

Lab labOf(const PaletteColour& colour, const CmykToRgb& ink) {
    const PaletteComponents& c = colour.components;
    if (colour.space == PaletteSpace::lab) return {c[0], c[1], c[2]};
    return colour.space == PaletteSpace::book ? Lab() : chromalog::labOf(rgbOf(colour, ink));
}

} // namespace

std::vector<Lab> labsOf(const Palette& palette, const CmykToRgb& ink) {
    std::vector<Lab> labs;
    for (const PaletteColour& colour : palette.colours)
        labs.push_back(labOf(colour, ink));
    return labs;
}

void sortPalette(Palette& palette, PaletteOrder order, const CmykToRgb& ink) {
    if (order == PaletteOrder::name) sortBy(palette, [](const PaletteColour& colour) { return colour.name; });
    if (order == PaletteOrder::hue)
        sortBy(palette, [&ink](const PaletteColour& colour) { return hueKey(colour, ink); });
    if (order == PaletteOrder::lightness)
        sortBy(palette, [&ink](const PaletteColour& colour) { return labOf(colour, ink).lightness; });
}

void dropNearDoubles(Palette& palette, double difference, const CmykToRgb& ink) {
    const auto doubles = nearDoubles(labsOf(palette, ink), difference);
    std::size_t i = 0;
    std::erase_if(palette.colours, [&](const PaletteColour&) { return doubles[i++].has_value(); });
}

} // namespace chromalog::standalone
