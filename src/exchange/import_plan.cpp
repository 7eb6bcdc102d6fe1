#include "exchange/import_plan.h"

#include "palettes/component_codes.h"

#include <set>

namespace chromalog {
namespace {

using Channels = std::array<unsigned, 3>;

Channels channelsOf(const PaletteColour& rgb) {
    return {wordOfUnit(rgb.components[0]), wordOfUnit(rgb.components[1]), wordOfUnit(rgb.components[2])};
}

/// The colours that are neither in the rows nor met before.
Palette newColours(const Palette& palette, ConstListRecords rows, const CmykToRgb& ink) {
    std::set<Channels> known;
    for (const PaletteColour& row : paletteOfSwatches(rows, "").colours)
        known.insert(channelsOf(row));
    Palette fresh;
    fresh.title = palette.title;
    for (const PaletteColour& colour : palette.colours)
        if (colour.space == PaletteSpace::book || known.insert(channelsOf(inRgb(colour, ink))).second)
            fresh.colours.push_back(colour);
    return fresh;
}

} // namespace

ImportPlan planImport(const Palette& palette, ImportWay way, ConstListRecords rows, const CmykToRgb& ink) {
    const Palette wanted = way == ImportWay::onlyNew ? newColours(palette, rows, ink) : palette;
    ImportPlan plan;
    plan.start = way == ImportWay::replace ? 0 : rows.size();
    plan.swatches = fitSwatches(wanted, kListCapacity - plan.start, ink);
    plan.loss = lossOf(wanted, plan.swatches);
    return plan;
}

} // namespace chromalog
