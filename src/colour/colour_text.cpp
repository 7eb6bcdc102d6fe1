#include "colour/colour_text.h"

#include "colour/css_names.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace chromalog {
namespace {

struct SpaceName {
    std::string_view name;
    std::int16_t code;
};

constexpr SpaceName kSpaces[] = {{"rgb", 0}, {"hsb", 1}, {"cmyk", 2}, {"lab", 3}, {"gray", 4}};

std::uint16_t word(std::uint32_t byte) {
    return static_cast<std::uint16_t>((byte & 0xFF) * 257);
}

WrittenColour fromBytes(std::uint32_t rgb) {
    WrittenColour c;
    c.components = {word(rgb >> 16), word(rgb >> 8), word(rgb), 0};
    return c;
}

std::optional<std::uint32_t> number(std::string_view digits, int base) {
    std::uint32_t value = 0;
    const auto end = digits.data() + digits.size();
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
        c.alpha = word(*value);
        return c;
    }
    default:
        return std::nullopt;
    }
}

std::optional<WrittenColour> readComponents(std::int16_t space, std::string_view list) {
    WrittenColour c;
    c.space = space;
    std::size_t count = 0;
    for (bool more = true; more; ++count) {
        const auto comma = list.find(',');
        const auto value = number(list.substr(0, comma), 10);
        if (count == c.components.size() || !value || *value > 65535) return std::nullopt;
        c.components[count] = static_cast<std::uint16_t>(*value);
        more = comma != std::string_view::npos;
        if (more) list.remove_prefix(comma + 1);
    }
    if (count < 3) return std::nullopt;
    return c;
}

std::optional<WrittenColour> readName(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    const auto found = std::ranges::lower_bound(kCssColours, lower, {}, &CssColour::name);
    if (found == std::end(kCssColours) || found->name != lower) return std::nullopt;
    return fromBytes(found->rgb);
}

} // namespace

std::optional<WrittenColour> readWrittenColour(std::string_view text, WithAlpha withAlpha) {
    if (text.starts_with('#')) return readHex(text.substr(1), withAlpha);
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return readName(text);
    for (const auto& [name, code] : kSpaces)
        if (text.substr(0, colon) == name) return readComponents(code, text.substr(colon + 1));
    return std::nullopt;
}

std::string hexText(const RgbWords& rgb) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x",
                  static_cast<unsigned>(byteOf(rgb[0]) << 16 | byteOf(rgb[1]) << 8 | byteOf(rgb[2])));
    return text;
}

std::string spokenText(const RgbWords& rgb) {
    char text[32];
    std::snprintf(text, sizeof text, "RGB %d %d %d, ", byteOf(rgb[0]), byteOf(rgb[1]), byteOf(rgb[2]));
    return text + hexText(rgb);
}

} // namespace chromalog
