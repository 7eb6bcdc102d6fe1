#include "palettes/formats/gpl_palette.h"

#include "base/translated.h"
#include "palettes/component_codes.h"
#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"

#include <cstdio>

namespace chromalog {
namespace {

constexpr std::string_view kFirstLine = "GIMP Palette", kName = "Name:", kColumns = "Columns:";

} // namespace

ReadPalette readGplPalette(Bytes file) {
    TextLines lines(file);
    std::string_view line;
    if (!lines.next(line) || !trimmed(line).starts_with(kFirstLine))
        throw PaletteError(translated("this is no GIMP palette"));
    ReadPalette read;
    while (lines.next(line)) {
        if (auto colour = takeByteTriple(line)) {
            colour->name = textOfBytes(trimmed(line));
            addColour(read.palette, std::move(*colour));
        } else if (line.starts_with(kName)) {
            read.palette.title = textOfBytes(trimmed(line.substr(kName.size())));
        } else if (const auto rest = trimmed(line);
                   !rest.empty() && !rest.starts_with('#') && !rest.starts_with(kColumns)) {
            ++read.unread;
        }
    }
    return read;
}

std::vector<std::uint8_t> writeGplPalette(const Palette& palette) {
    std::string text(kFirstLine);
    text.reserve(64 + palette.colours.size() * 40);
    text += "\nName: " + palette.title + "\nColumns: 0\n#\n";
    for (const PaletteColour& colour : palette.colours) {
        char numbers[16];
        const auto byte = [&colour](std::size_t i) { return byteOfUnit(colour.components[i]); };
        std::snprintf(numbers, sizeof numbers, "%3u %3u %3u\t", byte(0), byte(1), byte(2));
        text.append(numbers).append(colour.name).append("\n");
    }
    return {text.begin(), text.end()};
}

} // namespace chromalog
