#include "spaces/colour_notation.h"

#include "base/number_text.h"
#include "spaces/css_colour.h"
#include "spaces/gamut.h"
#include "spaces/hsb.h"
#include "spaces/hsl.h"
#include "spaces/lab.h"
#include "spaces/matrix3.h"
#include "spaces/polar.h"

#include <span>

namespace chromalog {
namespace {

constexpr int kMostDecimals = 4;
constexpr int kUnitDecimals = 3;

enum class Component { number, percent, fine, hue };

/// A function whose components are no bytes: how it is written and what from.
struct Function {
    ColourNotation notation;
    std::string_view name;
    std::array<Component, 3> components; ///< `fine` has two decimals more
    Vector3 (*values)(const Rgb&);
};

constexpr Function kFunctions[] = {
    {ColourNotation::hsl,
     "hsl",
     {Component::hue, Component::percent, Component::percent},
     [](const Rgb& rgb) {
         const auto [hue, saturation, lightness] = hslOf(rgb);
         return Vector3{hue, saturation * 100, lightness * 100};
     }},
    {ColourNotation::hsb,
     "hsb",
     {Component::hue, Component::percent, Component::percent},
     [](const Rgb& rgb) {
         const auto [hue, saturation, brightness] = hsbOf(rgb);
         return Vector3{hue * 360, saturation * 100, brightness * 100};
     }},
    {ColourNotation::lab,
     "lab",
     {Component::number, Component::number, Component::number},
     [](const Rgb& rgb) {
         const auto [lightness, a, b] = labOf(rgb);
         return Vector3{lightness, a, b};
     }},
    {ColourNotation::lch,
     "lch",
     {Component::number, Component::number, Component::hue},
     [](const Rgb& rgb) {
         const auto [lightness, chroma, hue] = lchOf(labOf(rgb));
         return Vector3{lightness, chroma, hue};
     }},
    {ColourNotation::oklab,
     "oklab",
     {Component::percent, Component::fine, Component::fine},
     [](const Rgb& rgb) {
         const auto [lightness, a, b] = oklabOf(rgb);
         return Vector3{lightness * 100, a, b};
     }},
    {ColourNotation::oklch,
     "oklch",
     {Component::percent, Component::fine, Component::hue},
     [](const Rgb& rgb) {
         const auto [lightness, chroma, hue] = oklchOf(rgb);
         return Vector3{lightness * 100, chroma, hue};
     }},
};

std::string componentText(double value, Component component, int decimals) {
    const std::string text = decimalText(value, component == Component::fine ? decimals + 2 : decimals);
    if (component == Component::hue && text == "360") return "0";
    return component == Component::percent ? text + "%" : text;
}

std::string withSlash(const std::string& alpha) {
    return alpha.empty() ? std::string() : std::string(" / ").append(alpha);
}

std::string functionText(const Function& function, const Rgb& rgb, int decimals, const std::string& alpha) {
    const Vector3 values = function.values(rgb);
    std::string text = std::string(function.name) + "(";
    for (std::size_t i = 0; i < 3; ++i)
        text.append(i > 0 ? " " : "").append(componentText(values[i], function.components[i], decimals));
    return text + withSlash(alpha) + ")";
}

/// The fewest decimals that stay inside sRGB and read back as the same bytes: of the colour itself, or of its
/// bytes where the colour lies on the edge between two.
std::string shortestText(const Function& function, const Rgb& rgb, const std::string& alpha) {
    const std::uint32_t bytes = bytesOf(rgb);
    std::string text;
    for (const Rgb& from : {rgb, rgbOfBytes(bytes)})
        for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
            text = functionText(function, from, decimals, alpha);
            const auto read = readCssColour(text);
            if (read && !read->mapped && bytesOf(read->rgb) == bytes) return text;
        }
    return text;
}

/// As few decimals as give the byte; empty for opaque colours.
std::string alphaText(double alpha) {
    if (byteOf(alpha) == 255) return {};
    std::string text = decimalText(alpha, 2);
    std::string_view digits = text;
    return byteOf(*takeDecimal(digits)) == byteOf(alpha) ? text : decimalText(alpha, 3);
}

std::string hexText(std::uint32_t bytes, double alpha) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[(bytes >> shift) & 15];
    const std::uint32_t last = byteOf(alpha);
    return last == 255 ? text : text + digits[last >> 4] + digits[last & 15];
}

std::string joined(std::span<const std::string> components, std::string_view separator) {
    std::string text;
    for (const std::string& component : components)
        text.append(text.empty() ? "" : separator).append(component);
    return text;
}

std::string rgbText(std::uint32_t bytes, bool commas, const std::string& alpha) {
    const std::string components[] = {std::to_string(bytes >> 16), std::to_string((bytes >> 8) & 255),
                                      std::to_string(bytes & 255), alpha};
    const auto three = std::span(components).first(3);
    if (!commas) return "rgb(" + joined(three, " ") + withSlash(alpha) + ")";
    return alpha.empty() ? "rgb(" + joined(three, ", ") + ")" : "rgba(" + joined(components, ", ") + ")";
}

std::string unitText(const Rgb& rgb, double alpha) {
    std::string components[4];
    std::size_t count = 0;
    for (const double component : {rgb.red, rgb.green, rgb.blue, alpha})
        components[count++] = fixedText(component, kUnitDecimals);
    return joined(std::span(components).first(byteOf(alpha) == 255 ? 3 : 4), ", ");
}

} // namespace

std::string colourText(const Rgb& rgb, ColourNotation notation, double alpha) {
    const Rgb inside = clippedToSrgb(rgb);
    const double opacity = clippedToSrgb({alpha, 0, 0}).red;
    for (const Function& function : kFunctions)
        if (function.notation == notation) return shortestText(function, inside, alphaText(opacity));
    if (notation == ColourNotation::hex) return hexText(bytesOf(inside), opacity);
    if (notation == ColourNotation::unit) return unitText(inside, opacity);
    return rgbText(bytesOf(inside), notation == ColourNotation::rgbCommas, alphaText(opacity));
}

} // namespace chromalog
