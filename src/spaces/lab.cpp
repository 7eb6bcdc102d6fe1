#include "spaces/lab.h"

#include "spaces/polar.h"

namespace chromalog {
namespace {

// The exact fractions of CIE 15:2004, so that the two pieces of the curve meet.
constexpr double kEpsilon = 216.0 / 24389;
constexpr double kKappa = 24389.0 / 27;

double compressed(double t) {
    return t > kEpsilon ? std::cbrt(t) : (kKappa * t + 16) / 116;
}

double expanded(double f) {
    const double cube = f * f * f;
    return cube > kEpsilon ? cube : (116 * f - 16) / kKappa;
}

} // namespace

Lab labOf(const XyzD50& xyz) {
    const double x = compressed(xyz.x / kWhiteD50.x);
    const double y = compressed(xyz.y / kWhiteD50.y);
    const double z = compressed(xyz.z / kWhiteD50.z);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

XyzD50 xyzD50Of(const Lab& lab) {
    const double y = (lab.lightness + 16) / 116;
    return {kWhiteD50.x * expanded(y + lab.a / 500), kWhiteD50.y * expanded(y),
            kWhiteD50.z * expanded(y - lab.b / 200)};
}

Lab labOf(const Rgb& rgb) {
    return labOf(xyzD50Of(xyzD65Of(linearRgbOf(rgb))));
}

Rgb rgbOf(const Lab& lab) {
    return rgbOf(linearRgbOf(xyzD65Of(xyzD50Of(lab))));
}

Lch lchOf(const Lab& lab) {
    const double chroma = std::hypot(lab.a, lab.b);
    return {lab.lightness, chroma, chroma < 1e-6 ? 0 : hueDegrees(lab.a, lab.b)};
}

Lab labOf(const Lch& lch) {
    const double angle = lch.hue * kRadiansPerDegree;
    return {lch.lightness, lch.chroma * std::cos(angle), lch.chroma * std::sin(angle)};
}

Rgb rgbOf(const Lch& lch) {
    return rgbOf(labOf(lch));
}

} // namespace chromalog
