#include "palettes/formats/riff_palette.h"

#include "base/translated.h"
#include "palettes/byte_reader.h"
#include "palettes/component_codes.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::string_view kRiff = "RIFF", kPal = "PAL ", kData = "data";
constexpr unsigned kVersion = 0x0300;
constexpr std::size_t kEntrySize = 4;

std::uint32_t littleLong(ByteReader& in) {
    const std::uint32_t low = in.littleWord();
    return low | static_cast<std::uint32_t>(in.littleWord()) << 16;
}

void writeLittleLong(ByteWriter& out, std::size_t value) {
    out.littleWord(value & 0xFFFF);
    out.littleWord(static_cast<unsigned>(value >> 16));
}

/// The contents of the chunk with the colours. Others may stand before it.
Bytes dataChunk(ByteReader& in) {
    while (in.left() >= 8) {
        const bool isData = std::ranges::equal(in.take(4), kData);
        const std::size_t size = littleLong(in);
        if (isData) return in.take(size);
        in.take(size + size % 2);
    }
    throw PaletteError(translated("this RIFF palette has no colors"));
}

} // namespace

ReadPalette readRiffPalette(Bytes file) {
    ByteReader in(file);
    const bool isRiff = std::ranges::equal(in.take(4), kRiff);
    in.longWord(); // the size: not trusted
    if (!isRiff || !std::ranges::equal(in.take(4), kPal))
        throw PaletteError(translated("this is no RIFF palette"));
    ByteReader data(dataChunk(in));
    data.littleWord(); // version
    const std::size_t count = data.littleWord();
    ReadPalette read;
    for (std::size_t i = 0; i < count && data.left() >= kEntrySize; ++i) {
        const Bytes entry = data.take(kEntrySize); // with a byte of flags
        PaletteColour colour;
        for (std::size_t c = 0; c < 3; ++c)
            colour.components[c] = entry[c] / 255.0;
        read.palette.colours.push_back(std::move(colour));
    }
    read.unread = count - read.palette.colours.size();
    return read;
}

std::vector<std::uint8_t> writeRiffPalette(const Palette& palette) {
    const std::size_t data = 4 + kEntrySize * palette.colours.size();
    ByteWriter out;
    out.reserve(data + 20);
    out.bytes(kRiff);
    writeLittleLong(out, data + 12);
    out.bytes(kPal);
    out.bytes(kData);
    writeLittleLong(out, data);
    out.littleWord(kVersion);
    out.littleWord(static_cast<unsigned>(palette.colours.size()));
    for (const PaletteColour& colour : palette.colours) {
        for (std::size_t i = 0; i < 3; ++i)
            out.byte(byteOfUnit(colour.components[i]));
        out.byte(0); // flags
    }
    return out.take();
}

} // namespace chromalog
