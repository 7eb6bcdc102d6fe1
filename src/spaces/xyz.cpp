#include "spaces/xyz.h"

#include "spaces/matrix3.h"

namespace chromalog {
namespace {

constexpr Vector3 kD65{kWhiteD65.x, kWhiteD65.y, kWhiteD65.z};
constexpr Vector3 kD50{kWhiteD50.x, kWhiteD50.y, kWhiteD50.z};

/// Each column is a primary, scaled so that equal parts of the three give the white.
constexpr Matrix3 rgbToXyz() {
    constexpr Matrix3 primaries{
        {{{0.64, 0.30, 0.15}, {0.33, 0.60, 0.06}, {1 - 0.64 - 0.33, 1 - 0.30 - 0.60, 1 - 0.15 - 0.06}}}};
    return primaries * Matrix3::diagonal(primaries.inverse() * kD65);
}

constexpr Matrix3 bradford() {
    constexpr Matrix3 cones{
        {{{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}}};
    const Vector3 from = cones * kD65;
    const Vector3 to = cones * kD50;
    return cones.inverse() * Matrix3::diagonal({to[0] / from[0], to[1] / from[1], to[2] / from[2]}) * cones;
}

constexpr Matrix3 kRgbToXyz = rgbToXyz();
constexpr Matrix3 kXyzToRgb = kRgbToXyz.inverse();
constexpr Matrix3 kD65ToD50 = bradford();
constexpr Matrix3 kD50ToD65 = kD65ToD50.inverse();

} // namespace

XyzD65 xyzD65Of(const LinearRgb& linear) {
    const auto [x, y, z] = kRgbToXyz * Vector3{linear.red, linear.green, linear.blue};
    return {x, y, z};
}

LinearRgb linearRgbOf(const XyzD65& xyz) {
    const auto [red, green, blue] = kXyzToRgb * Vector3{xyz.x, xyz.y, xyz.z};
    return {red, green, blue};
}

XyzD50 xyzD50Of(const XyzD65& xyz) {
    const auto [x, y, z] = kD65ToD50 * Vector3{xyz.x, xyz.y, xyz.z};
    return {x, y, z};
}

XyzD65 xyzD65Of(const XyzD50& xyz) {
    const auto [x, y, z] = kD50ToD65 * Vector3{xyz.x, xyz.y, xyz.z};
    return {x, y, z};
}

} // namespace chromalog
