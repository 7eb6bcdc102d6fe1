#include "palettes/palette_loss.h"

#include "base/translated.h"

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

constexpr std::string_view kSpaceNames[kPaletteSpaces] = {
    "RGB", "HSB", "CMYK", "Lab", translatable("gray"), translatable("book")};

struct Words {
    const char *one, *many;
};
constexpr Words kBeyond{translatable("%1 color left out for want of room"),
                        translatable("%1 colors left out for want of room")},
    kReferences{translatable("%1 color left out: found in a color book only"),
                translatable("%1 colors left out: found in a color book only")},
    kConverted{translatable("%1 color converted from %2 to RGB by %3"),
               translatable("%1 colors converted from %2 to RGB by %3")},
    kRounded{translatable("%1 color rounded"), translatable("%1 colors rounded")},
    kNamesLost{translatable("%1 name lost"), translatable("%1 names lost")},
    kNamesCut{translatable("%1 name cut short"), translatable("%1 names cut short")},
    kNamesChanged{translatable("%1 name changed"), translatable("%1 names changed")},
    kAlpha{translatable("%1 color with another alpha"), translatable("%1 colors with another alpha")},
    kGroups{translatable("%1 color out of their groups"), translatable("%1 colors out of their groups")},
    kSpotInks{translatable("%1 color no longer inks of their own"),
              translatable("%1 colors no longer inks of their own")},
    kMoved{translatable("%1 color in another order"), translatable("%1 colors in another order")};

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
    const auto say = [&lines](std::size_t count, const Words& words) {
        if (count > 0) lines.push_back(translatedCount(count, words.one, words.many));
    };
    say(loss.beyond, kBeyond);
    say(loss.references, kReferences);
    for (std::size_t i = 0; i < kPaletteSpaces; ++i) {
        const bool isInk = i == static_cast<std::size_t>(PaletteSpace::cmyk);
        if (const std::size_t count = loss.converted[i]; count > 0)
            lines.push_back(translatedCount(count, kConverted.one, kConverted.many,
                                            translated(kSpaceNames[i]),
                                            isInk ? ink : translated("a formula")));
    }
    say(loss.rounded, kRounded);
    say(loss.namesLost, kNamesLost);
    say(loss.namesCut, kNamesCut);
    say(loss.namesChanged, kNamesChanged);
    say(loss.alpha, kAlpha);
    say(loss.groups, kGroups);
    say(loss.spotInks, kSpotInks);
    say(loss.moved, kMoved);
    if (loss.title) lines.push_back(translated("the palette's name is lost"));
    return lines;
}

} // namespace chromalog
