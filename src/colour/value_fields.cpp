#include "colour/value_fields.h"

#include "base/channels.h"
#include "base/number_text.h"

#include <algorithm>
#include <string>

namespace chromalog {
namespace {

void showNumber(Outlet<TextField>& field, int value) {
    field->setText(std::to_string(value));
}

std::int16_t firstInk(const Outlet<TextField>& field) {
    return saturated16((100.0f - floatValue(field->text())) * 255.0f / 100.0f);
}

std::int16_t secondInk(const Outlet<TextField>& field) {
    // Clamped well inside 64 bits before the product; 16 bits saturate far earlier.
    constexpr std::int64_t bound = 1'000'000'000;
    const std::int64_t percent = std::clamp(integerValue(field->text()), -bound, bound);
    const std::int64_t level = (100 - percent) * 255 / 100; // a whole number of 255
    return saturated16(static_cast<double>(level));
}

template <typename Ink> Inks inksOf(const ValueFields& f, Ink ink) {
    return {ink(f.C), ink(f.M), ink(f.Y), ink(f.K)};
}

} // namespace

int inkPercent(std::int16_t hostComponent) {
    return (255 - hostComponent) * 100 / 255;
}

std::array<int, 4> inkPercents(std::array<int, 3> rgb, ColorServicesProc services) {
    Inks c{static_cast<std::int16_t>(rgb[0]), static_cast<std::int16_t>(rgb[1]),
           static_cast<std::int16_t>(rgb[2]), 0};
    HostCSConvertColor(services, plugIncolorServicesRGBSpace, plugIncolorServicesCMYKSpace, c.data());
    return {inkPercent(c[0]), inkPercent(c[1]), inkPercent(c[2]), inkPercent(c[3])};
}

void showRgb(ValueFields& fields, const Colour& colour) {
    showNumber(fields.R, eightBit(colour.red()));
    showNumber(fields.G, eightBit(colour.green()));
    showNumber(fields.B, eightBit(colour.blue()));
}

void showCmyk(ValueFields& fields, const Colour& colour, ColorServicesProc services) {
    const auto inks =
        inkPercents({eightBit(colour.red()), eightBit(colour.green()), eightBit(colour.blue())}, services);
    showNumber(fields.C, inks[0]);
    showNumber(fields.M, inks[1]);
    showNumber(fields.Y, inks[2]);
    showNumber(fields.K, inks[3]);
}

Colour colourFromRgbFields(const ValueFields& fields) {
    return Colour::rgb(floatValue(fields.R->text()) / 255.0, floatValue(fields.G->text()) / 255.0,
                       floatValue(fields.B->text()) / 255.0);
}

Inks firstInks(const ValueFields& fields) {
    return inksOf(fields, firstInk);
}

Inks secondInks(const ValueFields& fields) {
    return inksOf(fields, secondInk);
}

Colour colourFromInks(Inks c, ValueFields& fields, ColorServicesProc services) {
    HostCSConvertColor(services, plugIncolorServicesCMYKSpace, plugIncolorServicesRGBSpace, c.data());
    showNumber(fields.R, c[0]);
    showNumber(fields.G, c[1]);
    showNumber(fields.B, c[2]);
    return Colour::rgb(c[0] / 255.0f, c[1] / 255.0f, c[2] / 255.0f);
}

} // namespace chromalog
