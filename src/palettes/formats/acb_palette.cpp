#include "palettes/formats/acb_palette.h"

#include "base/translated.h"
#include "palettes/byte_reader.h"
#include "palettes/component_codes.h"
#include "palettes/palette_text.h"
#include "palettes/shared_names.h"

#include <algorithm>
#include <optional>

namespace chromalog {
namespace {

constexpr std::string_view kSignature = "8BCB";
constexpr unsigned kVersion = 1;
constexpr unsigned kBookId = 4000; // above all that are given away
constexpr std::size_t kKeySize = 6;
constexpr std::string_view kTranslated = "$$$/";

std::string readText(ByteReader& in) {
    const std::size_t units = in.longWord();
    return plainBookText(textOfUtf16(in.take(std::min(units, in.left()) * 2)));
}

std::optional<PaletteSpace> spaceOfType(unsigned type) {
    switch (type) {
    case 0:
        return PaletteSpace::rgb;
    case 2:
        return PaletteSpace::cmyk;
    case 7:
        return PaletteSpace::lab;
    }
    return std::nullopt;
}

unsigned typeOfSpace(PaletteSpace space) {
    return space == PaletteSpace::cmyk ? 2 : space == PaletteSpace::lab ? 7 : 0;
}

void writeText(ByteWriter& out, const std::string& text) {
    const std::u16string units = utf16Of(text);
    out.longWord(static_cast<std::uint32_t>(units.size()));
    for (const char16_t unit : units)
        out.word(unit);
}

void writeKey(ByteWriter& out, std::size_t number) {
    const std::string digits = std::to_string(number);
    out.bytes(std::string(kKeySize - std::min(digits.size(), kKeySize), '0') + digits);
}

} // namespace

std::string plainBookText(std::string_view text) {
    if (text.starts_with(kTranslated))
        if (const std::size_t value = text.find('='); value != std::string_view::npos)
            text.remove_prefix(value + 1);
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char sign = text[i] == '^' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (sign != 'R' && sign != 'C')
            plain.push_back(text[i]);
        else
            plain += sign == 'R' ? "\u00AE" : "\u00A9", ++i;
    }
    return plain;
}

ReadPalette readAcbPalette(Bytes file) {
    ByteReader in(file);
    const Bytes signature = in.take(kSignature.size());
    if (!std::ranges::equal(signature, kSignature) || in.word() != kVersion)
        throw PaletteError(translated("this is no color book"));
    in.word(); // which book
    ReadPalette read;
    read.palette.title = readText(in);
    const std::string prefix = readText(in), postfix = readText(in);
    readText(in); // the description
    const std::size_t count = in.word();
    in.longWord(); // how pages show them
    const auto space = spaceOfType(in.word());
    if (in.ended()) throw PaletteError(translated("the color book ends before its colors"));
    if (!space) throw PaletteError(translated("the colors of this book are neither RGB nor CMYK nor Lab"));
    SharedNames shared;
    for (std::size_t i = 0; i < count; ++i) {
        PaletteColour colour;
        const std::string name = readText(in);
        in.take(kKeySize);
        BookBytes bytes{};
        for (std::size_t c = 0; c < componentsOf(*space); ++c)
            bytes[c] = in.byte();
        if (in.ended()) {
            read.unread = count - i;
            break;
        }
        if (name.empty()) continue;
        shared.take(prefix.size() + postfix.size());
        colour.name = prefix + name + postfix;
        colour.space = *space;
        takeBookBytes(bytes, colour);
        addColour(read.palette, std::move(colour));
    }
    return read;
}

std::vector<std::uint8_t> writeAcbPalette(const Palette& palette) {
    const PaletteSpace space = palette.colours.empty() ? PaletteSpace::rgb : palette.colours.front().space;
    ByteWriter out;
    out.bytes(kSignature);
    out.word(kVersion);
    out.word(kBookId);
    writeText(out, palette.title);
    for (int i = 0; i < 3; ++i) // prefix, postfix, description
        writeText(out, "");
    out.word(static_cast<unsigned>(palette.colours.size()));
    out.word(9); // colours on a page
    out.word(0); // which of them stands for it
    out.word(typeOfSpace(space));
    for (std::size_t i = 0; i < palette.colours.size(); ++i) {
        writeText(out, palette.colours[i].name);
        writeKey(out, i + 1);
        const BookBytes bytes = bookBytesOf(palette.colours[i]);
        for (std::size_t c = 0; c < componentsOf(space); ++c)
            out.byte(bytes[c]);
    }
    out.bytes(space == PaletteSpace::cmyk ? "spflproc" : "spflspot");
    return out.take();
}

} // namespace chromalog
