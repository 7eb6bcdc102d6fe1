#include "palettes/formats/aco_palette.h"

#include "base/translated.h"
#include "palettes/byte_reader.h"
#include "palettes/component_codes.h"
#include "palettes/formats/swatch_groups.h"
#include "palettes/palette_text.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::size_t kHeaderSize = 4, kColourSize = 10;

struct Record {
    PaletteColour colour;
    bool known = false; ///< its space is one of the format's
};

Record readColour(ByteReader& in) {
    AcoWords words;
    for (std::uint16_t& word : words)
        word = in.word();
    Record record;
    record.known = takeAcoWords(words, record.colour);
    return record;
}

/// The length counts UTF-16 units, mostly with a terminating zero.
std::string readName(ByteReader& in) {
    const std::size_t length = in.longWord();
    return textOfUtf16(in.take(std::min(length, in.left()) * 2));
}

/// Colour after colour over those of a section before, which stay where this one ends early. How many it had.
std::size_t readSection(ByteReader& in, unsigned version, unsigned count, std::vector<Record>& records) {
    std::size_t i = 0;
    for (; i < count && in.left() >= kColourSize; ++i) {
        Record record = readColour(in);
        if (version == 2) {
            if (in.left() < 4) return i;
            record.colour.name = readName(in);
        }
        if (i < records.size())
            records[i] = std::move(record);
        else
            records.push_back(std::move(record));
    }
    return i;
}

void writeName(ByteWriter& out, const std::string& name) {
    const std::u16string units = utf16Of(name);
    out.longWord(static_cast<std::uint32_t>(units.size() + 1));
    for (const char16_t unit : units)
        out.word(unit);
    out.word(0);
}

void writeSection(ByteWriter& out, const Palette& palette, unsigned version) {
    out.word(version);
    out.word(static_cast<unsigned>(palette.colours.size()));
    for (const PaletteColour& colour : palette.colours) {
        for (const std::uint16_t word : acoWordsOf(colour))
            out.word(word);
        if (version == 2) writeName(out, colour.name);
    }
}

} // namespace

ReadPalette readAcoPalette(Bytes file) {
    ByteReader in(file);
    const unsigned version = in.word();
    unsigned count = in.word();
    if (in.ended() || (version != 1 && version != 2))
        throw PaletteError(translated("this is no swatch file"));
    std::vector<Record> records;
    readSection(in, version, count, records);
    std::size_t unnamed = 0; // colours that are known, but not by their names
    if (version == 1 && in.left() >= kHeaderSize && in.word() == 2) {
        const unsigned named = in.word();
        unnamed = named - readSection(in, 2, named, records);
        count = std::max(count, named);
    }
    ReadPalette read;
    std::vector<std::string> groups = swatchGroups(in.take(in.left()));
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (i < groups.size()) records[i].colour.group = std::move(groups[i]);
        if (records[i].known) addColour(read.palette, std::move(records[i].colour));
    }
    read.unread = std::max(count - read.palette.colours.size(), unnamed);
    return read;
}

std::vector<std::uint8_t> writeAcoPalette(const Palette& palette) {
    ByteWriter out;
    out.reserve(2 * kHeaderSize + palette.colours.size() * (2 * kColourSize + 40));
    writeSection(out, palette, 1);
    writeSection(out, palette, 2);
    return out.take();
}

} // namespace chromalog
