#include "palettes/formats/hex_palette.h"

#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"

#include <algorithm>

namespace chromalog {
namespace {

bool isComment(std::string_view line) {
    return line.starts_with("//") || line.starts_with(';');
}

std::optional<PaletteColour> colourOf(std::string_view line) {
    if (line.starts_with('#')) line.remove_prefix(1);
    const auto* const end = std::ranges::find_if_not(line, isHexDigit);
    const auto size = static_cast<std::size_t>(end - line.begin());
    const bool isWord = end != line.end() && (isLetter(*end) || isDigit(*end));
    auto colour = isWord ? std::nullopt : colourOfHex(line.substr(0, size));
    if (colour) colour->name = textOfBytes(trimmed(line.substr(size)));
    return colour;
}

} // namespace

ReadPalette readHexPalette(Bytes file) {
    ReadPalette read;
    TextLines lines(file);
    for (std::string_view line; lines.next(line);) {
        line = trimmed(line);
        if (line.empty() || isComment(line)) continue;
        if (auto colour = colourOf(line))
            addColour(read.palette, std::move(*colour));
        else
            ++read.unread;
    }
    return read;
}

std::vector<std::uint8_t> writeHexPalette(const Palette& palette) {
    std::string text;
    text.reserve(palette.colours.size() * 24);
    for (const PaletteColour& colour : palette.colours) {
        text += hexOf(colour);
        if (!colour.name.empty()) text.append(" ").append(colour.name);
        text += '\n';
    }
    return {text.begin(), text.end()};
}

} // namespace chromalog
