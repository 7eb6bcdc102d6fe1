#include "palettes/palette_format.h"

#include "base/translated.h"
#include "palettes/component_codes.h"
#include "palettes/formats/acb_palette.h"
#include "palettes/formats/aco_palette.h"
#include "palettes/formats/act_palette.h"
#include "palettes/formats/ase_palette.h"
#include "palettes/formats/css_palette.h"
#include "palettes/formats/gpl_palette.h"
#include "palettes/formats/hex_palette.h"
#include "palettes/formats/jasc_palette.h"
#include "palettes/formats/paint_net_palette.h"
#include "palettes/formats/riff_palette.h"
#include "palettes/formats/soc_palette.h"
#include "palettes/formats/svg_palette.h"
#include "palettes/formats/token_palette.h"
#include "palettes/palette_text.h"
#include "spaces/ascii_text.h"

#include <algorithm>
#include <utility>

namespace chromalog {
namespace {

using enum PaletteSpace;
constexpr PaletteSpace kRgb[] = {rgb};
constexpr PaletteSpace kOfBooks[] = {rgb, cmyk, lab};
constexpr PaletteSpace kOfExchange[] = {rgb, cmyk, lab, gray};
constexpr PaletteSpace kOfSwatches[] = {rgb, hsb, cmyk, lab, gray, book};

std::string asItIs(std::string_view text) {
    return std::string(text);
}

/// What is left of a text may be a key again.
std::string bookName(std::string_view text) {
    std::string plain(text), before;
    do
        before = std::exchange(plain, plainBookText(plain));
    while (plain != before);
    return plain;
}

std::string exchangeName(std::string_view text) {
    constexpr std::size_t kLongest = 65534; // units, beside the terminating one
    return cutToUtf16(text, kLongest);
}

using F = PaletteFormat;
using N = PaletteNaming;

constexpr PaletteFormatRules kFormats[] = {
    {F::aco, "aco", translatable("Swatch file"), "aco", readAcoPalette, writeAcoPalette, kOfSwatches, false,
     roundToAco, N::free, asItIs, nullptr},
    {F::acb, "acb", translatable("Color book"), "acb", readAcbPalette, writeAcbPalette, kOfBooks, true,
     roundToBook, N::filled, bookName, bookName, false, false, false, 8000},
    {F::ase, "ase", translatable("Swatch exchange"), "ase", readAsePalette, writeAsePalette, kOfExchange,
     false, roundToAse, N::free, exchangeName, nullptr, false, true, true},
    {F::gpl, "gpl", translatable("GIMP palette"), "gpl", readGplPalette, writeGplPalette, kRgb, false,
     roundToBytes, N::free, oneLine, oneLine},
    {F::act, "act", translatable("Color table"), "act", readActPalette, writeActPalette, kRgb, false,
     roundToBytes, N::none, nullptr, nullptr, false, false, false, 256},
    {F::jasc, "jasc", translatable("JASC palette"), "pal", readJascPalette, writeJascPalette, kRgb, false,
     roundToBytes, N::none, nullptr, nullptr},
    {F::riff, "riff", translatable("RIFF palette"), "pal", readRiffPalette, writeRiffPalette, kRgb, false,
     roundToBytes, N::none, nullptr, nullptr},
    {F::paintNet, "paintnet", translatable("Paint.NET palette"), "txt", readPaintNetPalette,
     writePaintNetPalette, kRgb, false, roundToBytes, N::none, nullptr, nullptr, true, false, false, 96},
    {F::hex, "hex", translatable("Hex list"), "hex", readHexPalette, writeHexPalette, kRgb, false,
     roundToBytes, N::free, oneLine, nullptr, true},
    {F::css, "css", translatable("CSS custom properties"), "css", readCssPalette, writeCssPalette, kRgb,
     false, roundToBytes, N::unique, cssIdentifier, nullptr, true},
    {F::tokens, "json", translatable("Design tokens"), "json", readTokenPalette, writeTokenPalette, kRgb,
     false, roundToBytes, N::unique, tokenKey, asItIs, true, true},
    {F::soc, "soc", translatable("Office color table"), "soc", readSocPalette, writeSocPalette, kRgb, false,
     roundToBytes, N::free, withoutXmlControls, nullptr},
    {F::svg, "svg", translatable("SVG sheet"), "svg", nullptr, writeSvgPalette, kRgb, false, roundToBytes,
     N::free, withoutXmlControls, withoutXmlControls},
};

constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";

std::string extensionOf(std::string_view path) {
    path.remove_prefix(std::min(path.rfind('/') + 1, path.size())); // npos + 1 is 0
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? std::string() : lowerCase(path.substr(dot + 1));
}

/// The first line of a text that is no comment and not empty.
std::string_view firstLine(Bytes file) {
    TextLines lines(file);
    for (std::string_view line; lines.next(line);)
        if (line = trimmed(line); !line.empty() && !line.starts_with(';') && !line.starts_with("//"))
            return line;
    return {};
}

/// Digits with or without a hash, then nothing or a name.
bool beginsWithColour(std::string_view line) {
    if (line.starts_with('#')) line.remove_prefix(1);
    const std::size_t digits = std::min(line.find_first_not_of(kHexDigits), line.size());
    return colourOfHex(line.substr(0, digits)) && (digits == line.size() || isSpace(line[digits]));
}

/// A text that only its lines tell.
std::optional<PaletteFormat> formatOfText(Bytes file, std::string_view extension) {
    const bool isSheet = extension == "css" || extension == "scss";
    const std::string_view line = firstLine(file);
    const std::string_view plain = trimmed(line.substr(0, line.find(';')));
    const bool isEight = plain.size() == 8 && plain.find_first_not_of(kHexDigits) == std::string_view::npos;
    if (isEight && extension != "hex") return F::paintNet;
    if (beginsWithColour(line) && !isSheet) return F::hex;
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    const bool hasProperties =
        text.find("--") != std::string_view::npos || text.find('$') != std::string_view::npos;
    if (isSheet || (hasProperties && text.find(':') != std::string_view::npos)) return F::css;
    if (extension == "txt" && line.empty()) return F::paintNet;
    return extension == "hex" ? std::optional(F::hex) : std::nullopt;
}

bool isBinary(Bytes file) {
    return std::ranges::any_of(file, [](std::uint8_t byte) { return byte < '\t'; });
}

bool isTableSize(std::size_t size) {
    return size == 768 || size == 772;
}

/// Whether the bytes of a colour table are those of a swatch file, to the last one.
bool isWholeSwatchFile(Bytes file) {
    const std::size_t count = static_cast<std::size_t>(file[2] << 8 | file[3]);
    return file[1] == 2 ? count > 0 && count <= file.size() / 16 : count * 10 + 4 <= file.size();
}

} // namespace

std::span<const PaletteFormatRules> paletteFormats() {
    return kFormats;
}

const PaletteFormatRules& rulesOf(PaletteFormat format) {
    return kFormats[static_cast<std::size_t>(format)];
}

std::optional<PaletteFormat> formatOfWord(std::string_view word) {
    const auto* const found = std::ranges::find(kFormats, word, &PaletteFormatRules::word);
    return found == std::end(kFormats) ? std::nullopt : std::optional(found->format);
}

std::optional<PaletteFormat> formatOfExtension(std::string_view path) {
    const auto* const found = std::ranges::find(kFormats, extensionOf(path), &PaletteFormatRules::extension);
    return found == std::end(kFormats) ? std::nullopt : std::optional(found->format);
}

std::optional<PaletteFormat> formatOfContents(Bytes file, std::string_view path) {
    const std::string_view whole(reinterpret_cast<const char*>(file.data()), file.size());
    const std::string extension = extensionOf(path);
    if (whole.starts_with("8BCB")) return F::acb;
    if (whole.starts_with("ASEF")) return F::ase;
    if (whole.starts_with("RIFF") && whole.substr(0, 12).ends_with("PAL ")) return F::riff;
    if (isTableSize(file.size()) && (extension == "act" || isBinary(file))) {
        const bool mayBeSwatches = file[0] == 0 && (file[1] == 1 || file[1] == 2) && extension != "act";
        return mayBeSwatches && (extension == "aco" || isWholeSwatchFile(file)) ? F::aco : F::act;
    }
    if (file.size() >= 4 && file[0] == 0 && (file[1] == 1 || file[1] == 2)) return F::aco;
    std::string_view text = whole;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    text = trimmedStart(text, isSpace);
    if (text.starts_with("GIMP Palette")) return F::gpl;
    if (text.starts_with("JASC-PAL")) return F::jasc;
    if (text.starts_with('<') || whole.starts_with("\xFF\xFE<")) return F::soc;
    if (text.starts_with('{') || text.starts_with('[')) return F::tokens;
    return isBinary(file) ? std::nullopt : formatOfText(file, extension);
}

} // namespace chromalog
