#include "base/colour_text.h"

#include "base/css_names.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace chromalog {
namespace {

/// A space by its name, and the components that it cannot do without.
struct NamedSpace {
    std::string_view name;
    std::int16_t code;
    std::array<std::string_view, 4> components; ///< empty: may be left out
};

constexpr NamedSpace kSpaces[] = {{"rgb", 0, {"red", "green", "blue"}},
                                  {"hsb", 1, {"hue", "saturation", "brightness"}},
                                  {"cmyk", 2, {"cyan", "magenta", "yellow", "black"}},
                                  {"lab", 3, {"L", "a", "b"}},
                                  {"gray", 4, {"gray"}}};

const NamedSpace* spaceOf(std::string_view name) {
    const auto* const found = std::ranges::find(kSpaces, name, &NamedSpace::name);
    return found == std::end(kSpaces) ? nullptr : found;
}

std::uint16_t channelOfByte(std::uint32_t byte) {
    return static_cast<std::uint16_t>((byte & 0xFF) * 257);
}

WrittenColour fromBytes(std::uint32_t rgb) {
    WrittenColour c;
    c.components = {channelOfByte(rgb >> 16), channelOfByte(rgb >> 8), channelOfByte(rgb), 0};
    return c;
}

std::optional<std::uint32_t> number(std::string_view digits, int base) {
    std::uint32_t value = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

std::optional<WrittenColour> readHex(std::string_view digits, WithAlpha withAlpha) {
    const auto value = number(digits, 16);
    if (!value) return std::nullopt;
    switch (digits.size()) {
    case 3:
        return fromBytes((*value & 0xF00) * 0x1100 | (*value & 0xF0) * 0x110 | (*value & 0xF) * 0x11);
    case 6:
        return fromBytes(*value);
    case 8: {
        if (withAlpha == WithAlpha::no) return std::nullopt;
        WrittenColour c = fromBytes(*value >> 8);
        c.alpha = channelOfByte(*value);
        return c;
    }
    default:
        return std::nullopt;
    }
}

/// The components that a list lacks, as "missing: green, blue"; an empty place counts as missing.
std::string missingIn(std::string_view list, const NamedSpace& space) {
    std::string missing;
    for (const std::string_view component : space.components) {
        const auto comma = std::min(list.find(','), list.size());
        if (comma == 0 && !component.empty())
            missing.append(missing.empty() ? "missing: " : ", ").append(component);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return missing;
}

std::optional<WrittenColour> readComponents(const NamedSpace& space, std::string_view list) {
    if (!missingIn(list, space).empty()) return std::nullopt;
    WrittenColour c;
    c.space = space.code;
    std::size_t count = 0;
    for (bool more = true; more; ++count) {
        const auto comma = list.find(',');
        const auto value = number(list.substr(0, comma), 10);
        if (count == c.components.size() || !value || *value > 65535) return std::nullopt;
        c.components[count] = static_cast<std::uint16_t>(*value);
        more = comma != std::string_view::npos;
        if (more) list.remove_prefix(comma + 1);
    }
    return c;
}

std::optional<WrittenColour> readName(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    const auto* const found = std::ranges::lower_bound(kCssColours, lower, {}, &CssColour::name);
    if (found == std::end(kCssColours) || found->name != lower) return std::nullopt;
    return fromBytes(found->rgb);
}

} // namespace

std::optional<WrittenColour> readWrittenColour(std::string_view text, WithAlpha withAlpha) {
    if (text.starts_with('#')) return readHex(text.substr(1), withAlpha);
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return readName(text);
    const NamedSpace* space = spaceOf(text.substr(0, colon));
    return space ? readComponents(*space, text.substr(colon + 1)) : std::nullopt;
}

std::string missingComponents(std::string_view text) {
    const auto colon = text.find(':');
    const NamedSpace* space = colon == std::string_view::npos ? nullptr : spaceOf(text.substr(0, colon));
    return space ? missingIn(text.substr(colon + 1), *space) : std::string();
}

std::string hexText(const RgbChannels& rgb) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x",
                  static_cast<unsigned>(byteOf(rgb[0]) << 16 | byteOf(rgb[1]) << 8 | byteOf(rgb[2])));
    return text;
}

std::string spokenText(const RgbChannels& rgb) {
    char text[32];
    std::snprintf(text, sizeof text, "RGB %d %d %d, ", byteOf(rgb[0]), byteOf(rgb[1]), byteOf(rgb[2]));
    return text + hexText(rgb);
}

} // namespace chromalog
