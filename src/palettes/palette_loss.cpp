#include "palettes/palette_loss.h"

#include <cmath>
#include <string_view>

namespace chromalog {
namespace {

void compareNames(const std::string& before, const std::string& after, PaletteLoss& loss) {
    if (after == before) return;
    if (after.empty())
        ++loss.namesLost;
    else if (before.starts_with(after))
        ++loss.namesCut;
    else
        ++loss.namesChanged;
}

/// Whether components differ by more than single precision does.
bool differ(const PaletteColour& before, const PaletteColour& after) {
    const double unit = before.space == PaletteSpace::lab ? 100 : 1;
    for (std::size_t i = 0; i < before.components.size(); ++i)
        if (std::abs(before.components[i] - after.components[i]) > 1e-6 * unit) return true;
    return false;
}

void compare(const PaletteColour& before, const PaletteColour& after, PaletteLoss& loss) {
    if (after.space != before.space)
        ++loss.converted[static_cast<std::size_t>(before.space)];
    else if (differ(before, after))
        ++loss.rounded;
    compareNames(before.name, after.name, loss);
    loss.alpha += after.alpha != before.alpha;
    loss.groups += after.group != before.group;
    loss.spotInks += after.isSpot != before.isSpot;
}

constexpr std::string_view kSpaceNames[kPaletteSpaces] = {"RGB", "HSB", "CMYK", "Lab", "gray", "book"};

} // namespace

PaletteLoss lossOf(const Palette& before, const FittedPalette& after) {
    PaletteLoss loss;
    loss.title = after.palette.title != before.title;
    std::vector<bool> kept(before.colours.size());
    for (std::size_t i = 0; i < after.from.size(); ++i) {
        kept[after.from[i]] = true;
        compare(before.colours[after.from[i]], after.palette.colours[i], loss);
    }
    std::size_t rank = 0;
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (kept[i])
            loss.moved += after.from[rank++] != i;
        else
            ++(before.colours[i].space == PaletteSpace::book ? loss.references : loss.beyond);
    return loss;
}

std::vector<std::string> lossLines(const PaletteLoss& loss, const std::string& ink) {
    std::vector<std::string> lines;
    const auto say = [&lines](std::size_t count, const std::string& one, const std::string& many) {
        if (count > 0) lines.push_back(std::to_string(count) + ' ' + (count == 1 ? one : many));
    };
    const auto sayColours = [&say](std::size_t count, const std::string& what) {
        say(count, "color " + what, "colors " + what);
    };
    const auto sayNames = [&say](std::size_t count, const std::string& what) {
        say(count, "name " + what, "names " + what);
    };
    sayColours(loss.beyond, "left out for want of room");
    sayColours(loss.references, "left out: found in a color book only");
    for (std::size_t i = 0; i < kPaletteSpaces; ++i) {
        const bool isInk = i == static_cast<std::size_t>(PaletteSpace::cmyk);
        sayColours(loss.converted[i], "converted from " + std::string(kSpaceNames[i]) + " to RGB by " +
                                          (isInk ? ink : "a formula"));
    }
    sayColours(loss.rounded, "rounded");
    sayNames(loss.namesLost, "lost");
    sayNames(loss.namesCut, "cut short");
    sayNames(loss.namesChanged, "changed");
    sayColours(loss.alpha, "with another alpha");
    sayColours(loss.groups, "out of their groups");
    sayColours(loss.spotInks, "no longer inks of their own");
    sayColours(loss.moved, "in another order");
    if (loss.title) lines.emplace_back("the palette's name is lost");
    return lines;
}

} // namespace chromalog
