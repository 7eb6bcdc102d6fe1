#include "palettes/swatch_palette.h"

#include "palettes/component_codes.h"
#include "palettes/mac_roman_name.h"
#include "palettes/palette_text.h"
#include "record/name_text.h"

#include <algorithm>

namespace chromalog {
namespace {

double unitOf(std::int64_t channel) {
    return static_cast<double>(std::clamp<std::int64_t>(channel, 0, 65535)) / 65535;
}

void store(const PaletteColour& colour, FCOStruct& record) {
    const std::string name = macRomanName(colour.name);
    record = {};
    record.Namen[0] = static_cast<std::uint8_t>(name.size());
    std::ranges::copy(name, record.Namen + 1);
    record.SRed = wordOfUnit(colour.components[0]);
    record.SGreen = wordOfUnit(colour.components[1]);
    record.SBlue = wordOfUnit(colour.components[2]);
}

} // namespace

Palette paletteOfSwatches(ConstListRecords records, std::string_view title) {
    Palette palette;
    palette.title = textOfBytes(title);
    palette.colours.reserve(records.size());
    for (const FCOStruct& record : records) {
        PaletteColour colour;
        colour.name = textOfBytes(macRomanToUtf8(nameBytes(record)));
        colour.components = {unitOf(record.SRed), unitOf(record.SGreen), unitOf(record.SBlue)};
        palette.colours.push_back(std::move(colour));
    }
    return palette;
}

FittedPalette fitSwatches(const Palette& palette, std::size_t room, const CmykToRgb& convert) {
    FittedPalette fitted = withoutReferences(palette, room);
    for (PaletteColour& colour : fitted.palette.colours) {
        colour = inRgb(std::move(colour), convert);
        roundToWords(colour);
        colour.name = macRomanToUtf8(macRomanName(colour.name));
        colour.alpha = 1;
        colour.group.clear();
        colour.isSpot = false;
    }
    return fitted;
}

void storeSwatches(const Palette& fitted, ListRecords records, std::size_t start) {
    for (std::size_t i = 0; i < fitted.colours.size() && start + i < records.size(); ++i)
        store(fitted.colours[i], records[start + i]);
}

} // namespace chromalog
