#include "palettes/component_codes.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

/// The nearest whole number in a range; no number is the number nearest to 0.
double whole(double value, double low, double high) {
    return std::isnan(value) ? std::clamp(0.0, low, high) : std::round(std::clamp(value, low, high));
}

std::uint16_t word(double value, double low, double high) {
    return static_cast<std::uint16_t>(static_cast<int>(whole(value, low, high)));
}
std::uint8_t byte(double value) {
    return static_cast<std::uint8_t>(whole(value, 0, 255));
}
std::uint16_t unitWord(double unit) {
    return static_cast<std::uint16_t>(wordOfUnit(unit));
}
/// Hundredths of a Lab axis; what no axis reaches is clamped.
double axisOf(std::uint16_t word) {
    return std::clamp(static_cast<std::int16_t>(word) / 100.0, -128.0, 127.0);
}

// Codes of a swatch file's spaces. Those of 3 to 6, 10, 11 and from 3000 on are colour books.
constexpr int kAcoRgb = 0, kAcoHsb = 1, kAcoCmyk = 2, kAcoLab = 7, kAcoGray = 8, kAcoWideCmyk = 9;

bool isBookCode(int code) {
    return (code >= 3 && code <= 6) || code == 10 || code == 11 || code >= 3000;
}

double real(float value) {
    return std::isfinite(value) ? value : 0.0;
}

} // namespace

std::size_t componentsOf(PaletteSpace space) {
    return space == PaletteSpace::cmyk || space == PaletteSpace::book ? 4
           : space == PaletteSpace::gray                              ? 1
                                                                      : 3;
}

unsigned byteOfUnit(double unit) {
    return static_cast<unsigned>(whole(unit * 255, 0, 255));
}

unsigned wordOfUnit(double unit) {
    return static_cast<unsigned>(whole(unit * 65535, 0, 65535));
}

AcoWords acoWordsOf(const PaletteColour& colour) {
    const PaletteComponents& c = colour.components;
    switch (colour.space) {
    case PaletteSpace::cmyk: // 0 is full ink
        return {kAcoCmyk, unitWord(1 - c[0]), unitWord(1 - c[1]), unitWord(1 - c[2]), unitWord(1 - c[3])};
    case PaletteSpace::lab:
        return {kAcoLab, word(c[0] * 100, 0, 10000), word(c[1] * 100, -12800, 12700),
                word(c[2] * 100, -12800, 12700), 0};
    case PaletteSpace::gray: // 0 is white
        return {kAcoGray, word((1 - c[0]) * 10000, 0, 10000), 0, 0, 0};
    case PaletteSpace::book:
        return {word(c[0], 0, 65535), word(c[1], 0, 65535), word(c[2], 0, 65535), word(c[3], 0, 65535), 0};
    default:
        return {static_cast<std::uint16_t>(colour.space == PaletteSpace::hsb ? kAcoHsb : kAcoRgb),
                unitWord(c[0]), unitWord(c[1]), unitWord(c[2]), 0};
    }
}

bool takeAcoWords(const AcoWords& words, PaletteColour& colour) {
    const auto unit = [&words](std::size_t i) { return words[i] / 65535.0; };
    switch (words[0]) {
    case kAcoRgb:
    case kAcoHsb:
        colour.space = words[0] == kAcoRgb ? PaletteSpace::rgb : PaletteSpace::hsb;
        colour.components = {unit(1), unit(2), unit(3)};
        return true;
    case kAcoCmyk:
        colour.space = PaletteSpace::cmyk;
        colour.components = {1 - unit(1), 1 - unit(2), 1 - unit(3), 1 - unit(4)};
        return true;
    case kAcoWideCmyk: // hundredths of a percent
        colour.space = PaletteSpace::cmyk;
        for (std::size_t i = 0; i < 4; ++i)
            colour.components[i] = std::min(words[i + 1] / 10000.0, 1.0);
        return true;
    case kAcoLab:
        colour.space = PaletteSpace::lab;
        colour.components = {std::min<int>(words[1], 10000) / 100.0, axisOf(words[2]), axisOf(words[3])};
        return true;
    case kAcoGray:
        colour.space = PaletteSpace::gray;
        colour.components = {1 - std::min(words[1] / 10000.0, 1.0)};
        return true;
    }
    colour.space = PaletteSpace::book;
    colour.components = {double(words[0]), double(words[1]), double(words[2]), double(words[3])};
    return isBookCode(words[0]);
}

BookBytes bookBytesOf(const PaletteColour& colour) {
    const PaletteComponents& c = colour.components;
    switch (colour.space) {
    case PaletteSpace::cmyk: // 255 is no ink
        return {byte((1 - c[0]) * 255), byte((1 - c[1]) * 255), byte((1 - c[2]) * 255),
                byte((1 - c[3]) * 255)};
    case PaletteSpace::lab:
        return {byte(c[0] * 2.55), byte(c[1] + 128), byte(c[2] + 128)};
    default:
        return {byte(c[0] * 255), byte(c[1] * 255), byte(c[2] * 255)};
    }
}

void takeBookBytes(const BookBytes& bytes, PaletteColour& colour) {
    const auto unit = [&bytes](std::size_t i) { return bytes[i] / 255.0; };
    if (colour.space == PaletteSpace::lab)
        colour.components = {bytes[0] / 2.55, bytes[1] - 128.0, bytes[2] - 128.0};
    else if (colour.space == PaletteSpace::cmyk)
        colour.components = {1 - unit(0), 1 - unit(1), 1 - unit(2), 1 - unit(3)};
    else
        colour.components = {unit(0), unit(1), unit(2)};
}

AseReals aseRealsOf(const PaletteColour& colour) {
    AseReals reals{};
    for (std::size_t i = 0; i < componentsOf(colour.space); ++i) {
        const bool isLightness = colour.space == PaletteSpace::lab && i == 0;
        const double value = std::clamp(colour.components[i], -1000.0, 1000.0); // what a float can hold
        reals[i] = static_cast<float>(value / (isLightness ? 100 : 1));
    }
    return reals;
}

void takeAseReals(const AseReals& reals, PaletteColour& colour) {
    const bool isLab = colour.space == PaletteSpace::lab;
    colour.components = {};
    for (std::size_t i = 0; i < componentsOf(colour.space); ++i) {
        const double value = real(reals[i]);
        colour.components[i] = !isLab   ? std::clamp(value, 0.0, 1.0)
                               : i == 0 ? std::clamp(value, 0.0, 1.0) * 100
                                        : std::clamp(value, -128.0, 127.0);
    }
}

void roundToAco(PaletteColour& colour) {
    takeAcoWords(acoWordsOf(colour), colour);
}
void roundToBook(PaletteColour& colour) {
    takeBookBytes(bookBytesOf(colour), colour);
}
void roundToAse(PaletteColour& colour) {
    takeAseReals(aseRealsOf(colour), colour);
}
void roundToBytes(PaletteColour& colour) {
    for (std::size_t i = 0; i < 3; ++i)
        colour.components[i] = byteOfUnit(colour.components[i]) / 255.0;
    colour.alpha = byteOfUnit(colour.alpha) / 255.0;
}
void roundToWords(PaletteColour& colour) {
    for (std::size_t i = 0; i < 3; ++i)
        colour.components[i] = wordOfUnit(colour.components[i]) / 65535.0;
}

} // namespace chromalog
