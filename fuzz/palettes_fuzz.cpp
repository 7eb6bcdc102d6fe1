#include "fuzz_support.h"

#include "palettes/palette_loss.h"
#include "palettes/swatch_palette.h"
#include "record/name_text.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

Rgb ink(const PaletteComponents& c) {
    return {(1 - c[0]) * (1 - c[3]), (1 - c[1]) * (1 - c[3]), (1 - c[2]) * (1 - c[3])};
}

bool isName(std::string_view text) {
    while (!text.empty()) {
        if (text.front() == '\0') return false;
        const bool written = text.starts_with("\xEF\xBF\xBD");
        if (takeCodePoint(text) == 0xFFFD && !written) return false;
    }
    return true;
}

void expectUsable(const Palette& palette) {
    fuzz::require(palette.colours.size() <= kMostPaletteColours, "no more colours than any writer takes");
    fuzz::require(isName(palette.title), "a title is valid UTF-8");
    for (const PaletteColour& colour : palette.colours) {
        fuzz::require(isName(colour.name) && isName(colour.group), "names are valid UTF-8");
        fuzz::require(colour.alpha >= 0 && colour.alpha <= 1, "alpha is a part");
        for (const double c : colour.components)
            fuzz::require(c >= -128 && c <= 65535, "components are numbers of their range");
    }
}

/// What was read is kept by another format as its fitting says.
void expectRoundTrip(const Palette& palette, const PaletteFormatRules& rules) {
    const FittedPalette fitted = fitPalette(palette, rules.format, ink);
    const auto file = rules.write(fitted.palette);
    if (rules.read)
        fuzz::require(rules.read(file).palette == fitted.palette, "a fitted palette is read back");
    for (const std::string& line : lossLines(lossOf(palette, fitted), "us"))
        fuzz::require(!line.empty(), "a loss has words");
}

void expectSwatches(const Palette& palette) {
    const FittedPalette fitted = fitSwatches(palette, kListCapacity, ink);
    const ListRecords records = fuzz::listRecords();
    storeSwatches(fitted.palette, records, 0);
    const Palette again = paletteOfSwatches(records.first(fitted.from.size()), fitted.palette.title);
    fuzz::require(again == fitted.palette, "a list keeps what it was fitted to");
}

} // namespace
} // namespace chromalog

namespace {

/// The one that CHROMALOG_FUZZ_READER names, so that a run is all about it; else the byte chooses.
const chromalog::PaletteFormatRules& reader(std::uint8_t byte) {
    using namespace chromalog;
    static const char* const word = std::getenv("CHROMALOG_FUZZ_READER");
    static const auto only = formatOfWord(word ? word : "");
    if (word) fuzz::require(only.has_value(), "CHROMALOG_FUZZ_READER is a kind of palette");
    return only ? rulesOf(*only) : paletteFormats()[byte % paletteFormats().size()];
}

} // namespace

/// A byte that chooses the reader and one that chooses a writer, then the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    if (size < 2) return 0;
    const auto formats = paletteFormats();
    const Bytes file(data + 2, size - 2);
    const PaletteFormatRules& rules = reader(data[0]);
    formatOfContents(file, "");
    if (!rules.read) return 0;
    try {
        const Palette palette = rules.read(file).palette;
        expectUsable(palette);
        expectRoundTrip(palette, formats[data[1] % formats.size()]);
        expectSwatches(palette);
    } catch (const PaletteError&) {
        return 0; // none of this format
    }
    return 0;
}
