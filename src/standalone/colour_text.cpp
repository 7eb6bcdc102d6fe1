#include "standalone/colour_text.h"

#include "standalone/css_names.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <vector>

namespace chromalog::standalone {

namespace {

struct SpaceName {
    std::string_view name;
    Space space;
    std::size_t fewest; // components that must be given
};
constexpr SpaceName kSpaces[]{{"rgb", Space::rgb, 3},
                              {"hsb", Space::hsb, 3},
                              {"cmyk", Space::cmyk, 4},
                              {"lab", Space::lab, 3},
                              {"gray", Space::gray, 1}};

template <typename Number> std::optional<Number> wholeNumber(std::string_view text, int base) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

HeldColour fromBytes(std::uint32_t rgb, Scale scale) {
    const unsigned factor = scale == Scale::sixteen ? 257 : 1;
    HeldColour colour;
    for (int i = 0; i < 3; ++i)
        colour.components[i] = static_cast<std::uint16_t>((rgb >> (16 - 8 * i) & 0xFF) * factor);
    return colour;
}

std::optional<std::uint32_t> parseHex(std::string_view digits) {
    std::string six(digits);
    if (digits.size() == 3) six = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
    if (six.size() != 6) return std::nullopt;
    return wholeNumber<std::uint32_t>(six, 16);
}

std::optional<HeldColour> parseComponents(std::string_view spaceName, std::string_view list) {
    const auto space = std::find_if(std::begin(kSpaces), std::end(kSpaces),
                                    [&](const SpaceName& s) { return s.name == spaceName; });
    if (space == std::end(kSpaces)) return std::nullopt;
    HeldColour colour{space->space, {}};
    std::size_t count = 0;
    for (;; ++count) {
        const std::size_t comma = list.find(',');
        const auto component = wholeNumber<std::uint16_t>(list.substr(0, comma), 10);
        if (!component || count == colour.components.size()) return std::nullopt;
        colour.components[count] = *component;
        if (comma == std::string_view::npos) break;
        list.remove_prefix(comma + 1);
    }
    if (count + 1 < space->fewest) return std::nullopt;
    return colour;
}

} // namespace

std::optional<HeldColour> parseColour(std::string_view text, Scale scale) {
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos)
        return parseComponents(text.substr(0, colon), text.substr(colon + 1));
    const auto rgb = text.substr(0, 1) == "#" ? parseHex(text.substr(1)) : cssColour(text);
    if (!rgb) return std::nullopt;
    return fromBytes(*rgb, scale);
}

Rgb16 rgbOf(const HeldColour& colour, Scale scale, const ColourConverter& converter) {
    const auto& c = colour.components;
    const auto widened = [](int byte) { return static_cast<std::uint16_t>(std::clamp(byte, 0, 255) * 257); };
    if (colour.space == Space::rgb) {
        if (scale == Scale::sixteen) return {c[0], c[1], c[2]};
        return {widened(c[0]), widened(c[1]), widened(c[2])};
    }
    Components slots{};
    for (int i = 0; i < 4; ++i)
        slots[i] = static_cast<std::int16_t>(scale == Scale::sixteen ? c[i] >> 8 : std::min<int>(c[i], 255));
    // A 16-bit hue is the full circle; the host's slots want degrees.
    if (colour.space == Space::hsb)
        slots[0] =
            static_cast<std::int16_t>(scale == Scale::sixteen ? c[0] * 360 >> 16 : std::min<int>(c[0], 359));
    const Components rgb = converter.convert(colour.space, Space::rgb, slots);
    return {widened(rgb[0]), widened(rgb[1]), widened(rgb[2])};
}

std::string formatColour(const Rgb16& rgb, Format format) {
    const int r = rgb[0] >> 8, g = rgb[1] >> 8, b = rgb[2] >> 8;
    char hex[8], line[128];
    std::snprintf(hex, sizeof hex, "#%02x%02x%02x", static_cast<unsigned>(r), static_cast<unsigned>(g),
                  static_cast<unsigned>(b));
    switch (format) {
    case Format::hex:
        return hex;
    case Format::rgb8:
        std::snprintf(line, sizeof line, "%d %d %d", r, g, b);
        break;
    case Format::rgb16:
        std::snprintf(line, sizeof line, "%d %d %d", rgb[0], rgb[1], rgb[2]);
        break;
    case Format::css:
        std::snprintf(line, sizeof line, "rgb(%d, %d, %d)", r, g, b);
        break;
    case Format::json:
        std::snprintf(line, sizeof line, R"({"hex": "%s", "rgb8": [%d, %d, %d], "rgb16": [%d, %d, %d]})", hex,
                      r, g, b, rgb[0], rgb[1], rgb[2]);
        break;
    }
    return line;
}

} // namespace chromalog::standalone
