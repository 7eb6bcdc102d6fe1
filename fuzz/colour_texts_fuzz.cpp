#include "fuzz_support.h"

#include "spaces/colour_notation.h"
#include "spaces/colour_texts.h"
#include "spaces/gamut.h"

namespace chromalog {
namespace {

constexpr ColourNotation kReadable[] = {ColourNotation::hex, ColourNotation::rgb,   ColourNotation::rgbCommas,
                                        ColourNotation::hsl, ColourNotation::hsb,   ColourNotation::lab,
                                        ColourNotation::lch, ColourNotation::oklab, ColourNotation::oklch};

void expectUsable(const ReadColour& colour) {
    fuzz::require(inSrgb(colour.rgb, 0), "a colour that was read lies inside sRGB");
    fuzz::require(colour.alpha >= 0 && colour.alpha <= 1, "alpha is a part");
    for (const ColourNotation notation : kReadable) {
        const auto again = readCssColour(colourText(colour.rgb, notation, colour.alpha));
        fuzz::require(again && bytesOf(again->rgb) == bytesOf(colour.rgb),
                      "what is written is read as it was");
        fuzz::require(byteOf(again->alpha) == byteOf(colour.alpha), "with its alpha");
        fuzz::require(!again->mapped, "what is written lies inside sRGB");
    }
}

} // namespace
} // namespace chromalog

/// A pasted text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto colour = readCssColour(text)) expectUsable(*colour);
    constexpr std::size_t limit = 20;
    const auto colours = readColourTexts(text, limit);
    fuzz::require(colours.size() <= limit, "no more colours than asked for");
    for (const auto& [name, colour] : colours) {
        expectUsable(colour);
        fuzz::require(name.size() <= size, "a name comes from the text");
        for (const char c : name)
            fuzz::require(static_cast<unsigned char>(c) >= ' ' && c != 0x7F, "a name is one line");
    }
    return 0;
}
