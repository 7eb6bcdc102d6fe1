#include "palettes/formats/act_palette.h"

#include "base/translated.h"
#include "palettes/byte_reader.h"
#include "palettes/component_codes.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::size_t kEntries = 256, kTableSize = 3 * kEntries, kWithCount = kTableSize + 4;
constexpr unsigned kNoneTransparent = 0xFFFF;

} // namespace

ReadPalette readActPalette(Bytes file) {
    if (file.size() != kTableSize && file.size() != kWithCount)
        throw PaletteError(translated("this is no color table"));
    std::size_t count = kEntries, transparent = kNoneTransparent;
    if (file.size() == kWithCount) {
        ByteReader tail(file.subspan(kTableSize));
        count = std::min<std::size_t>(tail.word(), kEntries);
        transparent = tail.word();
    }
    ReadPalette read;
    ByteReader in(file);
    for (std::size_t i = 0; i < count; ++i) {
        PaletteColour colour;
        for (std::size_t c = 0; c < 3; ++c)
            colour.components[c] = in.byte() / 255.0;
        if (i == transparent) colour.alpha = 0;
        read.palette.colours.push_back(std::move(colour));
    }
    return read;
}

std::vector<std::uint8_t> writeActPalette(const Palette& palette) {
    const std::size_t count = std::min(palette.colours.size(), kEntries);
    ByteWriter out;
    for (std::size_t i = 0; i < kEntries; ++i)
        for (std::size_t c = 0; c < 3; ++c)
            out.byte(i < count ? byteOfUnit(palette.colours[i].components[c]) : 0);
    out.word(static_cast<unsigned>(count));
    out.word(kNoneTransparent);
    return out.take();
}

} // namespace chromalog
