#include "palettes/fit_palette.h"

#include "palettes/formats/token_groups.h"
#include "spaces/gamut.h"
#include "spaces/hsb.h"
#include "spaces/lab.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace chromalog {
namespace {

bool has(const PaletteFormatRules& rules, PaletteSpace space) {
    return std::ranges::find(rules.spaces, space) != rules.spaces.end();
}

/// Whether colours keep their spaces: where a file has one for all, they must agree.
bool agree(const PaletteFormatRules& rules, const std::vector<PaletteColour>& colours) {
    return !rules.oneSpace || std::ranges::all_of(colours, [&](const PaletteColour& colour) {
        return colour.space == colours.front().space;
    });
}

void fitColour(PaletteColour& colour, std::size_t index, const PaletteFormatRules& rules) {
    if (!rules.alpha) colour.alpha = 1;
    rules.round(colour);
    colour.group = rules.groups ? rules.name(colour.group) : std::string();
    if (!rules.spotInks) colour.isSpot = false;
    colour.name = rules.name ? rules.name(colour.name) : std::string();
    const bool filled = rules.naming == PaletteNaming::filled || rules.naming == PaletteNaming::unique;
    if (filled && colour.name.empty())
        colour.name = rules.format == PaletteFormat::css ? "color" : "Color " + std::to_string(index + 1);
}

/// Of equal names the second ends with 2, the third with 3, unless that is another's.
void numberEqualNames(std::vector<PaletteColour>& colours) {
    std::unordered_set<std::string> used;
    for (const PaletteColour& colour : colours)
        used.insert(colour.name);
    std::unordered_set<std::string> met;
    std::unordered_map<std::string, int> latest;
    for (PaletteColour& colour : colours) {
        if (met.insert(colour.name).second) continue;
        int& number = latest.try_emplace(colour.name, 1).first->second;
        std::string name;
        do
            name = colour.name + "-" + std::to_string(++number);
        while (!used.insert(name).second);
        colour.name = std::move(name);
        met.insert(colour.name);
    }
}

} // namespace

Rgb rgbOf(const PaletteColour& colour, const CmykToRgb& convert) {
    const PaletteComponents& c = colour.components;
    switch (colour.space) {
    case PaletteSpace::hsb:
        return rgbOf(Hsb{c[0], c[1], c[2]});
    case PaletteSpace::cmyk:
        return clippedToSrgb(convert(c));
    case PaletteSpace::lab: {
        const Rgb rgb = rgbOf(Lab{c[0], c[1], c[2]});
        return inSrgb(rgb) ? clippedToSrgb(rgb) : mappedToSrgb(rgb);
    }
    case PaletteSpace::gray:
        return clippedToSrgb({c[0], c[0], c[0]});
    default:
        return clippedToSrgb({c[0], c[1], c[2]});
    }
}

PaletteColour inRgb(PaletteColour colour, const CmykToRgb& convert) {
    const Rgb rgb = rgbOf(colour, convert);
    colour.space = PaletteSpace::rgb;
    colour.components = {rgb.red, rgb.green, rgb.blue};
    return colour;
}

FittedPalette withoutReferences(const Palette& palette, std::size_t most, bool keepReferences) {
    FittedPalette fitted;
    fitted.palette.title = palette.title;
    for (std::size_t i = 0; i < palette.colours.size() && fitted.from.size() < most; ++i) {
        if (palette.colours[i].space == PaletteSpace::book && !keepReferences) continue;
        fitted.palette.colours.push_back(palette.colours[i]);
        fitted.from.push_back(i);
    }
    return fitted;
}

FittedPalette fitPalette(const Palette& palette, PaletteFormat format, const CmykToRgb& convert) {
    const PaletteFormatRules& rules = rulesOf(format);
    FittedPalette fitted = withoutReferences(palette, rules.most, has(rules, PaletteSpace::book));
    std::vector<PaletteColour>& colours = fitted.palette.colours;
    fitted.palette.title = rules.title ? rules.title(palette.title) : std::string();
    const bool keepSpaces = agree(rules, colours);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        if (!keepSpaces || !has(rules, colours[i].space)) colours[i] = inRgb(std::move(colours[i]), convert);
        fitColour(colours[i], i, rules);
    }
    if (format == PaletteFormat::tokens)
        arrangeTokens(fitted); // equal names in different groups are no matter
    else if (rules.naming == PaletteNaming::unique)
        numberEqualNames(colours);
    return fitted;
}

} // namespace chromalog
