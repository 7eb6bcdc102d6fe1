#include "spaces/colour_reading.h"

#include "spaces/ascii_text.h"

namespace chromalog {
namespace {

struct Name {
    ColourNotation notation;
    std::string_view function;
};

constexpr Name kNames[] = {{ColourNotation::rgb, "rgb"},     {ColourNotation::rgbCommas, "rgb"},
                           {ColourNotation::hsl, "hsl"},     {ColourNotation::hsb, "hsb"},
                           {ColourNotation::lab, "lab"},     {ColourNotation::lch, "lch"},
                           {ColourNotation::oklab, "oklab"}, {ColourNotation::oklch, "oklch"}};

/// Degree signs say nothing that the place of the number does not.
std::string withoutDegrees(std::string_view text) {
    constexpr std::string_view sign = "\u00b0";
    std::string plain(text);
    for (std::size_t at = 0; (at = plain.find(sign, at)) != std::string::npos;)
        plain.erase(at, sign.size());
    return plain;
}

} // namespace

std::string readingText(const Rgb& rgb, ColourNotation notation) {
    const std::string text = colourText(rgb, notation);
    const std::size_t open = text.find('(');
    return open == std::string::npos ? text : text.substr(open + 1, text.size() - open - 2);
}

std::optional<ReadColour> readReading(std::string_view text, ColourNotation notation) {
    const std::string_view start = trimmedStart(text, isSpace);
    const bool components = !start.empty() && (isDigit(start[0]) || start[0] == '.' || start[0] == '-');
    if (!components) return readCssColour(text); // digits alone are no hex here: the rest is still to come
    for (const Name& name : kNames)
        if (name.notation == notation)
            return readCssColour(std::string(name.function) + "(" + withoutDegrees(text) + ")");
    return std::nullopt;
}

} // namespace chromalog
