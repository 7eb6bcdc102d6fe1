#include "spaces/css_functions.h"

#include "base/number_text.h"
#include "spaces/ascii_text.h"
#include "spaces/gamut.h"
#include "spaces/hsb.h"
#include "spaces/hsl.h"
#include "spaces/lab.h"
#include "spaces/matrix3.h"
#include "spaces/polar.h"

namespace chromalog {
namespace {

enum class Unit { number, percent, angle };

struct Value {
    double value = 0; ///< degrees where the unit is an angle
    Unit unit = Unit::number;
};

struct Arguments {
    std::array<Value, 3> components;
    Value alpha{1, Unit::number};
};

struct UnitName {
    std::string_view name;
    Unit unit;
    double factor;
};

constexpr UnitName kUnits[] = {{"", Unit::number, 1},      {"%", Unit::percent, 1},
                               {"deg", Unit::angle, 1},    {"grad", Unit::angle, 0.9},
                               {"turn", Unit::angle, 360}, {"rad", Unit::angle, 1 / kRadiansPerDegree}};

std::string_view takeWord(std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && (isLetter(text[length]) || text[length] == '%'))
        ++length;
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

std::optional<Value> takeValue(std::string_view& text) {
    const auto number = takeDecimal(text);
    const std::string_view word = takeWord(text);
    if (!number) return word == "none" ? std::optional(Value{}) : std::nullopt;
    for (const auto& [name, unit, factor] : kUnits)
        if (word == name) return Value{*number * factor, unit};
    return std::nullopt;
}

/// White space, or one ',' or '/' with white space around it; 0 where neither stands.
char takeSeparator(std::string_view& text) {
    const std::string_view rest = trimmedStart(text, isSpace);
    const bool mark = rest.starts_with(',') || rest.starts_with('/');
    const char separator = mark ? rest[0] : rest.size() < text.size() ? ' ' : '\0';
    text = mark ? trimmedStart(rest.substr(1), isSpace) : rest;
    return separator;
}

/// Three values and perhaps alpha.
std::optional<Arguments> readArguments(std::string_view text) {
    Arguments arguments;
    text = trimmed(text);
    for (std::size_t i = 0; i < 4; ++i) {
        const auto value = takeValue(text);
        if (!value) return std::nullopt;
        (i < 3 ? arguments.components[i] : arguments.alpha) = *value;
        if (text.empty()) return i >= 2 ? std::optional(arguments) : std::nullopt;
        const char separator = takeSeparator(text);
        if (separator != ',' && separator != (i < 2 ? ' ' : '/')) return std::nullopt;
    }
    return std::nullopt;
}

double fraction(double value, double whole) {
    return std::clamp(value / whole, 0.0, 1.0);
}

Rgb fromRgb(const Vector3& v) {
    return {fraction(v[0], 255), fraction(v[1], 255), fraction(v[2], 255)};
}
Rgb fromHsl(const Vector3& v) {
    return rgbOf(Hsl{v[0], fraction(v[1], 100), fraction(v[2], 100)});
}
Rgb fromHsb(const Vector3& v) {
    return rgbOf(Hsb{wrappedDegrees(v[0]) / 360, fraction(v[1], 100), fraction(v[2], 100)});
}
Rgb fromHwb(const Vector3& v) {
    return rgbOf(Hwb{v[0], fraction(v[1], 100), fraction(v[2], 100)});
}
Rgb fromLab(const Vector3& v) {
    return rgbOf(Lab{std::clamp(v[0], 0.0, 100.0), v[1], v[2]});
}
Rgb fromLch(const Vector3& v) {
    return rgbOf(Lch{std::clamp(v[0], 0.0, 100.0), std::max(v[1], 0.0), v[2]});
}
Rgb fromOklab(const Vector3& v) {
    return rgbOf(Oklab{std::clamp(v[0], 0.0, 1.0), v[1], v[2]});
}
Rgb fromOklch(const Vector3& v) {
    return rgbOf(Oklch{std::clamp(v[0], 0.0, 1.0), std::max(v[1], 0.0), v[2]});
}

struct Function {
    std::string_view name;
    Vector3 whole; ///< what 100% stands for; 0 marks the hue
    Rgb (*colour)(const Vector3&);
};

constexpr Vector3 kHueFirst{0, 100, 100};
constexpr Function kFunctions[] = {
    {"rgb", {255, 255, 255}, fromRgb},   {"rgba", {255, 255, 255}, fromRgb}, {"hsl", kHueFirst, fromHsl},
    {"hsla", kHueFirst, fromHsl},        {"hsb", kHueFirst, fromHsb},        {"hsv", kHueFirst, fromHsb},
    {"hwb", kHueFirst, fromHwb},         {"lab", {100, 125, 125}, fromLab},  {"lch", {100, 150, 0}, fromLch},
    {"oklab", {1, 0.4, 0.4}, fromOklab}, {"oklch", {1, 0.4, 0}, fromOklch},
};

/// A value in the unit of its place; nothing for a percentage of a hue or an angle elsewhere.
std::optional<double> resolved(const Value& value, double whole) {
    switch (value.unit) {
    case Unit::percent:
        return whole == 0 ? std::nullopt : std::optional(value.value / 100 * whole);
    case Unit::angle:
        return whole == 0 ? std::optional(value.value) : std::nullopt;
    case Unit::number:
        break;
    }
    return value.value;
}

std::optional<ReadColour> colourFrom(const Function& function, const Arguments& arguments) {
    Vector3 components{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto component = resolved(arguments.components[i], function.whole[i]);
        if (!component) return std::nullopt;
        components[i] = *component;
    }
    const auto alpha = resolved(arguments.alpha, 1);
    if (!alpha) return std::nullopt;
    const Rgb rgb = function.colour(components);
    return ReadColour{mappedToSrgb(rgb), std::clamp(*alpha, 0.0, 1.0), !inSrgb(rgb, 0.5 / 255)};
}

} // namespace

std::optional<ReadColour> readCssFunction(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos || !text.ends_with(')')) return std::nullopt;
    const std::string_view name = trimmedEnd(text.substr(0, open), isSpace);
    for (const Function& function : kFunctions) {
        if (function.name != name) continue;
        const auto arguments = readArguments(text.substr(open + 1, text.size() - open - 2));
        return arguments ? colourFrom(function, *arguments) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace chromalog
