#include "palettes/formats/svg_palette.h"

#include "palettes/formats/soc_palette.h"
#include "palettes/palette_text.h"

namespace chromalog {
namespace {

constexpr std::size_t kColumns = 8;
constexpr std::size_t kWidth = 120, kHeight = 80, kLabel = 16, kGap = 8; // user units, a pixel each

std::string attribute(std::string_view name, std::size_t value) {
    return std::string(" ").append(name).append("=\"").append(std::to_string(value)).append("\"");
}

std::string rectangle(const PaletteColour& colour, std::size_t x, std::size_t y) {
    const std::string hex = hexWithoutAlpha(colour), name = xmlText(colour.name);
    std::string text = "  <g><title>" + (name.empty() ? hex : name) + "</title><rect";
    text += attribute("x", x) + attribute("y", y) + attribute("width", kWidth) + attribute("height", kHeight);
    text += " fill=\"" + hex + "\"/><text" + attribute("x", x) + attribute("y", y + kHeight + kLabel - 4);
    return text + ">" + (name.empty() ? hex : name) + "</text></g>\n";
}

} // namespace

std::vector<std::uint8_t> writeSvgPalette(const Palette& palette) {
    const std::size_t rows = (palette.colours.size() + kColumns - 1) / kColumns;
    const std::size_t stepX = kWidth + kGap, stepY = kHeight + kLabel + kGap;
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
    text += attribute("width", kGap + kColumns * stepX) + attribute("height", kGap + rows * stepY);
    text += " font-family=\"sans-serif\" font-size=\"10\">\n";
    if (!palette.title.empty()) text += "  <title>" + xmlText(palette.title) + "</title>\n";
    for (std::size_t i = 0; i < palette.colours.size(); ++i)
        text += rectangle(palette.colours[i], kGap + i % kColumns * stepX, kGap + i / kColumns * stepY);
    text += "</svg>\n";
    return {text.begin(), text.end()};
}

} // namespace chromalog
