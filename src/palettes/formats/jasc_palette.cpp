#include "palettes/formats/jasc_palette.h"

#include "base/translated.h"
#include "palettes/component_codes.h"
#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::string_view kFirstLine = "JASC-PAL", kVersion = "0100";

} // namespace

ReadPalette readJascPalette(Bytes file) {
    TextLines lines(file);
    std::string_view line;
    if (!lines.next(line) || trimmed(line) != kFirstLine)
        throw PaletteError(translated("this is no JASC palette"));
    lines.next(line); // the version: only one is known
    const auto announced = lines.next(line) ? takeWhole(line) : std::nullopt;
    ReadPalette read;
    while (lines.next(line))
        if (auto colour = takeByteTriple(line))
            addColour(read.palette, std::move(*colour));
        else if (!trimmed(line).empty())
            ++read.unread;
    const auto expected = static_cast<std::size_t>(announced.value_or(0));
    if (const std::size_t met = read.palette.colours.size() + read.unread; expected > met)
        read.unread += expected - met;
    return read;
}

std::vector<std::uint8_t> writeJascPalette(const Palette& palette) {
    std::string text(kFirstLine);
    text.append("\r\n").append(kVersion).append("\r\n");
    text.append(std::to_string(palette.colours.size())).append("\r\n");
    for (const PaletteColour& colour : palette.colours)
        for (std::size_t i = 0; i < 3; ++i)
            text.append(std::to_string(byteOfUnit(colour.components[i]))).append(i < 2 ? " " : "\r\n");
    return {text.begin(), text.end()};
}

} // namespace chromalog
