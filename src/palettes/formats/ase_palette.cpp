#include "palettes/formats/ase_palette.h"

#include "base/translated.h"
#include "palettes/byte_reader.h"
#include "palettes/component_codes.h"
#include "palettes/palette_text.h"
#include "palettes/shared_names.h"

#include <algorithm>

namespace chromalog {
namespace {

constexpr std::string_view kSignature = "ASEF";
constexpr unsigned kGroupStart = 0xC001, kGroupEnd = 0xC002, kColour = 0x0001;
constexpr unsigned kSpot = 1, kNormal = 2;

struct Model {
    std::string_view word;
    PaletteSpace space;
};
constexpr Model kModels[] = {{"RGB ", PaletteSpace::rgb},
                             {"CMYK", PaletteSpace::cmyk},
                             {"LAB ", PaletteSpace::lab},
                             {"Gray", PaletteSpace::gray}};

/// The length counts the terminating zero.
std::string readName(ByteReader& in) {
    const std::size_t units = in.word();
    return textOfUtf16(in.take(2 * units));
}

/// False for a model that nobody has told of, and for a block that is too short.
bool readColour(ByteReader in, PaletteColour& colour) {
    colour.name = readName(in);
    const Bytes word = in.take(4);
    const auto* const model =
        std::ranges::find_if(kModels, [&word](const Model& m) { return std::ranges::equal(m.word, word); });
    if (model == std::end(kModels)) return false;
    colour.space = model->space;
    AseReals reals{};
    for (std::size_t i = 0; i < componentsOf(colour.space); ++i)
        reals[i] = in.real();
    if (in.ended()) return false;
    takeAseReals(reals, colour);
    colour.isSpot = in.word() == kSpot;
    return true;
}

/// A block's head, and its length afterwards.
template <typename Body> void writeBlock(ByteWriter& out, unsigned kind, const Body& body) {
    ByteWriter inner;
    body(inner);
    out.word(kind);
    out.longWord(static_cast<std::uint32_t>(inner.text().size()));
    out.bytes(inner.text());
}

void writeName(ByteWriter& out, const std::string& name) {
    const std::u16string units = utf16Of(name);
    out.word(static_cast<unsigned>(units.size() + 1));
    for (const char16_t unit : units)
        out.word(unit);
    out.word(0);
}

void writeColour(ByteWriter& out, const PaletteColour& colour) {
    const auto* const model = std::ranges::find(kModels, colour.space, &Model::space);
    writeName(out, colour.name);
    out.bytes(model == std::end(kModels) ? kModels[0].word : model->word);
    const AseReals reals = aseRealsOf(colour);
    for (std::size_t i = 0; i < componentsOf(colour.space); ++i)
        out.real(reals[i]);
    out.word(colour.isSpot ? kSpot : kNormal);
}

/// Writes the blocks; how many.
std::uint32_t writeBlocks(ByteWriter& out, const Palette& palette) {
    std::uint32_t blocks = 0;
    std::string group;
    const auto enter = [&](const std::string& next) {
        if (next == group) return;
        if (!group.empty()) writeBlock(out, kGroupEnd, [](ByteWriter&) {}), ++blocks;
        if (!next.empty())
            writeBlock(out, kGroupStart, [&next](ByteWriter& body) { writeName(body, next); }), ++blocks;
        group = next;
    };
    for (const PaletteColour& colour : palette.colours) {
        enter(colour.group);
        writeBlock(out, kColour, [&colour](ByteWriter& body) { writeColour(body, colour); });
        ++blocks;
    }
    enter("");
    return blocks;
}

} // namespace

ReadPalette readAsePalette(Bytes file) {
    ByteReader in(file);
    if (!std::ranges::equal(in.take(kSignature.size()), kSignature))
        throw PaletteError(translated("this is no swatch exchange file"));
    in.longWord(); // version
    in.longWord(); // blocks: not trusted
    ReadPalette read;
    std::string group;
    SharedNames names;
    while (in.left() >= 2) {
        const unsigned kind = in.word();
        const std::size_t length = in.longWord();
        ByteReader block(in.take(length));
        if (kind == kGroupStart)
            group = readName(block);
        else if (kind == kGroupEnd)
            group.clear();
        if (kind != kColour) continue;
        names.take(group.size());
        PaletteColour colour;
        colour.group = group;
        if (readColour(block, colour))
            addColour(read.palette, std::move(colour));
        else
            ++read.unread;
    }
    return read;
}

std::vector<std::uint8_t> writeAsePalette(const Palette& palette) {
    ByteWriter blocks;
    const std::uint32_t count = writeBlocks(blocks, palette);
    ByteWriter out;
    out.reserve(blocks.text().size() + 12);
    out.bytes(kSignature);
    out.word(1);
    out.word(0);
    out.longWord(count);
    out.bytes(blocks.text());
    return out.take();
}

} // namespace chromalog
