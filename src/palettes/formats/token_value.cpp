#include "palettes/formats/token_value.h"

#include "base/number_text.h"
#include "palettes/palette_text.h"
#include "spaces/css_colour.h"

#include <algorithm>

namespace chromalog {
namespace {

std::optional<PaletteColour> colourOfText(std::string_view text) {
    if (text.starts_with('#')) return colourOfHex(text.substr(1));
    const auto read = readCssColour(text);
    if (!read) return std::nullopt;
    PaletteColour colour;
    colour.components = {read->rgb.red, read->rgb.green, read->rgb.blue};
    colour.alpha = read->alpha;
    return colour;
}

PaletteComponents clamped(const std::vector<double>& c, double low, double high) {
    return {std::clamp(c[0], low, high), std::clamp(c[1], low, high), std::clamp(c[2], low, high)};
}

/// As CSS writes it; percentages where the numbers are parts of a hundred.
std::string cssFunction(const std::string& name, const std::vector<double>& components) {
    const bool parts = name == "hsl" || name == "hwb";
    std::string text = name + "(";
    for (std::size_t i = 0; i < 3; ++i)
        text += decimalText(components[i], 6) + (parts && i > 0 ? "% " : " ");
    return text + ")";
}

bool isCssFunction(std::string_view name) {
    constexpr std::string_view kNames[] = {"hsl", "hwb", "lch", "oklab", "oklch"};
    return std::ranges::find(kNames, name) != std::end(kNames);
}

std::optional<PaletteColour> colourOfSpace(const std::string& space, const std::vector<double>& components) {
    if (components.size() != 3) return std::nullopt;
    PaletteColour colour;
    if (space == "srgb") {
        colour.components = clamped(components, 0, 1);
        return colour;
    }
    if (space == "lab") {
        colour.space = PaletteSpace::lab;
        colour.components = clamped(components, -128, 127);
        colour.components[0] = std::clamp(components[0], 0.0, 100.0);
        return colour;
    }
    return isCssFunction(space) ? colourOfText(cssFunction(space, components)) : std::nullopt;
}

} // namespace

std::optional<PaletteColour> TokenValue::colour() const {
    if (!text.empty()) return colourOfText(text);
    auto colour = colourOfSpace(colorSpace, components);
    if (!colour && !hex.empty()) colour = colourOfText(hex);
    if (colour) colour->alpha = std::clamp(alpha, 0.0, 1.0);
    return colour;
}

} // namespace chromalog
