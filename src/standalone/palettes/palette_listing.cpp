#include "standalone/palettes/palette_listing.h"

#include "base/number_text.h"
#include "palettes/component_codes.h"
#include "palettes/palette_text.h"

namespace chromalog::standalone {

namespace {

constexpr std::string_view kSpaceWords[kPaletteSpaces] = {"rgb", "hsb", "cmyk", "lab", "gray", "book"};

std::string hexIn(const PaletteColour& colour, const CmykToRgb& ink) {
    return colour.space == PaletteSpace::book ? std::string("-------") : hexWithoutAlpha(inRgb(colour, ink));
}

/// Names as a terminal shows them: it would obey control characters of both halves.
std::string shown(std::string_view text) {
    std::string line = oneLine(text);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const bool control = line[i] == '\xC2' && static_cast<unsigned char>(line[i + 1]) < 0xA0;
        if (control) line.replace(i, 2, " ");
    }
    return line;
}

void appendMember(std::string& json, std::string_view key, std::string_view text) {
    json.append(", ");
    appendJsonText(json, key);
    json.append(": ");
    appendJsonText(json, text);
}

std::string objectOf(const PaletteColour& colour, const CmykToRgb& ink) {
    std::string json = "{\"name\": ";
    appendJsonText(json, colour.name);
    if (colour.space != PaletteSpace::book) appendMember(json, "hex", hexIn(colour, ink));
    appendMember(json, "space", kSpaceWords[static_cast<std::size_t>(colour.space)]);
    json += ", \"components\": [";
    for (std::size_t i = 0; i < componentsOf(colour.space); ++i)
        json.append(i == 0 ? "" : ", ").append(decimalText(colour.components[i], 6));
    json += "]";
    if (colour.alpha < 1) json += ", \"alpha\": " + decimalText(colour.alpha, 6);
    if (!colour.group.empty()) appendMember(json, "group", colour.group);
    return json + "}";
}

} // namespace

std::string tableOf(const Palette& palette, const CmykToRgb& ink) {
    std::string table;
    for (const PaletteColour& colour : palette.colours) {
        table += hexIn(colour, ink);
        if (!colour.name.empty()) table.append("  ").append(shown(colour.name));
        if (!colour.group.empty()) table.append("  [").append(shown(colour.group)).append("]");
        table += '\n';
    }
    return table;
}

std::string jsonOf(const Palette& palette, const CmykToRgb& ink) {
    std::string json = "[";
    for (std::size_t i = 0; i < palette.colours.size(); ++i)
        json.append(i == 0 ? "\n  " : ",\n  ").append(objectOf(palette.colours[i], ink));
    return json + (palette.colours.empty() ? "]\n" : "\n]\n");
}

} // namespace chromalog::standalone
