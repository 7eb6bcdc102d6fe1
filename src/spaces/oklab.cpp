#include "spaces/oklab.h"

#include "spaces/matrix3.h"
#include "spaces/polar.h"

namespace chromalog {
namespace {

// Ottosson's matrices with the digits of CSS Color 4, which make D65 white exactly neutral.
constexpr Matrix3 kXyzToCones{{{{0.8190224379967030, 0.3619062600528904, -0.1288737815209879},
                                {0.0329836539323885, 0.9292868615863434, 0.0361446663506424},
                                {0.0481771893596242, 0.2642395317527308, 0.6335478284694309}}}};
constexpr Matrix3 kConesToOklab{{{{0.2104542683093140, 0.7936177747023054, -0.0040720430116193},
                                  {1.9779985324311684, -2.4285922420485799, 0.4505937096174110},
                                  {0.0259040424655478, 0.7827717124575296, -0.8086757549230774}}}};
constexpr Matrix3 kConesToXyz = kXyzToCones.inverse();
constexpr Matrix3 kOklabToCones = kConesToOklab.inverse();

} // namespace

Oklab oklabOf(const XyzD65& xyz) {
    const auto [l, m, s] = kXyzToCones * Vector3{xyz.x, xyz.y, xyz.z};
    const auto [lightness, a, b] = kConesToOklab * Vector3{std::cbrt(l), std::cbrt(m), std::cbrt(s)};
    return {lightness, a, b};
}

XyzD65 xyzD65Of(const Oklab& oklab) {
    const auto [l, m, s] = kOklabToCones * Vector3{oklab.lightness, oklab.a, oklab.b};
    const auto [x, y, z] = kConesToXyz * Vector3{l * l * l, m * m * m, s * s * s};
    return {x, y, z};
}

Oklab oklabOf(const Rgb& rgb) {
    return oklabOf(xyzD65Of(linearRgbOf(rgb)));
}

Rgb rgbOf(const Oklab& oklab) {
    return rgbOf(linearRgbOf(xyzD65Of(oklab)));
}

Oklch oklchOf(const Oklab& oklab) {
    const double chroma = std::hypot(oklab.a, oklab.b);
    return {oklab.lightness, chroma, chroma < 1e-6 ? 0 : hueDegrees(oklab.a, oklab.b)};
}

Oklab oklabOf(const Oklch& oklch) {
    const double angle = oklch.hue * kRadiansPerDegree;
    return {oklch.lightness, oklch.chroma * std::cos(angle), oklch.chroma * std::sin(angle)};
}

Oklch oklchOf(const Rgb& rgb) {
    return oklchOf(oklabOf(rgb));
}

Rgb rgbOf(const Oklch& oklch) {
    return rgbOf(oklabOf(oklch));
}

} // namespace chromalog
