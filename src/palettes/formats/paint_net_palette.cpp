#include "palettes/formats/paint_net_palette.h"

#include "palettes/component_codes.h"
#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"

namespace chromalog {
namespace {

/// Alpha comes first; without it (six digits) a colour is opaque.
std::optional<PaletteColour> colourOf(std::string_view digits) {
    if (digits.size() == 6) return colourOfHex(digits);
    if (digits.size() != 8) return std::nullopt;
    return colourOfHex(std::string(digits.substr(2)).append(digits.substr(0, 2)));
}

} // namespace

ReadPalette readPaintNetPalette(Bytes file) {
    ReadPalette read;
    TextLines lines(file);
    for (std::string_view line; lines.next(line);) {
        line = trimmed(line.substr(0, line.find(';')));
        if (line.empty()) continue;
        if (auto colour = colourOf(line))
            addColour(read.palette, std::move(*colour));
        else
            ++read.unread;
    }
    return read;
}

std::vector<std::uint8_t> writePaintNetPalette(const Palette& palette) {
    std::string text = "; Paint.NET palette\r\n";
    for (PaletteColour colour : palette.colours) {
        PaletteColour alphaFirst;
        alphaFirst.components = {colour.alpha, colour.components[0], colour.components[1]};
        const std::string front = hexWithoutAlpha(alphaFirst); // then blue
        text.append(front, 1).append(hexWithoutAlpha(colour), 5).append("\r\n");
    }
    return {text.begin(), text.end()};
}

} // namespace chromalog
