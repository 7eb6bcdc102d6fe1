#include "standalone/host_colour.h"

#include "spaces/css_colour.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace chromalog::standalone {

namespace {

/// A record has no alpha: what is not opaque is no colour to offer.
std::optional<HostColour> readFunction(const std::string& text, Scale scale) {
    const auto read = text.find('(') == std::string::npos ? std::nullopt : readCssColour(text);
    if (!read || read->alpha < 1) return std::nullopt;
    const auto component = [most = scale == Scale::eight ? 255 : 65535](double part) {
        return static_cast<std::uint16_t>(std::lround(std::clamp(part, 0.0, 1.0) * most));
    };
    return HostColour{Space::rgb,
                      {component(read->rgb.red), component(read->rgb.green), component(read->rgb.blue)}};
}

} // namespace

std::optional<HostColour> readColour(const std::string& text, Scale scale) {
    const auto written = readWrittenColour(text);
    if (!written) return readFunction(text, scale);
    HostColour colour{Space{written->space}, written->components};
    // Only bytes need scaling: components that were written out are taken as they stand.
    if (scale == Scale::eight && text.find(':') == std::string::npos)
        for (std::uint16_t& component : colour.components)
            component >>= 8;
    return colour;
}

RgbChannels rgbOf(const HostColour& colour, Scale scale, const ColourConverter& converter) {
    const auto& c = colour.components;
    const auto widened = [](int byte) { return static_cast<std::uint16_t>(std::clamp(byte, 0, 255) * 257); };
    if (colour.space == Space::rgb) {
        if (scale == Scale::sixteen) return {c[0], c[1], c[2]};
        return {widened(c[0]), widened(c[1]), widened(c[2])};
    }
    Components slots{};
    for (int i = 0; i < 4; ++i)
        slots[i] = static_cast<std::int16_t>(scale == Scale::sixteen ? c[i] >> 8 : std::min<int>(c[i], 255));
    // At 16 bits the high byte of a hue counts as degrees, as in the plug-in's dialog: both show one colour.
    if (colour.space == Space::hsb && scale == Scale::eight)
        slots[0] = static_cast<std::int16_t>(std::min<int>(c[0], 359));
    const Components rgb = converter.convert(colour.space, Space::rgb, slots);
    return {widened(rgb[0]), widened(rgb[1]), widened(rgb[2])};
}

std::string formatColour(const RgbChannels& rgb, Format format) {
    const int r = byteOf(rgb[0]), g = byteOf(rgb[1]), b = byteOf(rgb[2]);
    char line[128];
    switch (format) {
    case Format::hex:
        return hexText(rgb);
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
        std::snprintf(line, sizeof line, R"({"hex": "%s", "rgb8": [%d, %d, %d], "rgb16": [%d, %d, %d]})",
                      hexText(rgb).c_str(), r, g, b, rgb[0], rgb[1], rgb[2]);
        break;
    }
    return line;
}

} // namespace chromalog::standalone
