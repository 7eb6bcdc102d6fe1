#include "standalone/conversion/cie_models.h"

#include <algorithm>
#include <cmath>

namespace chromalog::standalone {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

// sRGB primaries adapted to D50, and the inverse.
constexpr Matrix kToXyz{{{0.4360747, 0.3850649, 0.1430804},
                         {0.2225045, 0.7168786, 0.0606169},
                         {0.0139322, 0.0971045, 0.7141733}}};
constexpr Matrix kFromXyz{{{3.1338561, -1.6168667, -0.4906146},
                           {-0.9787684, 1.9161415, 0.0334540},
                           {0.0719453, -0.2289914, 1.4052427}}};
constexpr Triple kWhite{0.9642200, 1.0, 0.8252100};

Triple times(const Matrix& m, const Triple& v) {
    Triple out{};
    for (int i = 0; i < 3; ++i)
        out[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
    return out;
}

double linear(double encoded) {
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double encoded(double linear) {
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

constexpr double kLabStep = 6.0 / 29;
double labCurve(double t) {
    return t > kLabStep * kLabStep * kLabStep ? std::cbrt(t) : t / (3 * kLabStep * kLabStep) + 4.0 / 29;
}
double labCurveBack(double t) {
    return t > kLabStep ? t * t * t : 3 * kLabStep * kLabStep * (t - 4.0 / 29);
}

std::int16_t slot(double value) {
    return static_cast<std::int16_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

Triple xyzOf(const Components& rgb) {
    return times(kToXyz, {linear(rgb[0] / 255.0), linear(rgb[1] / 255.0), linear(rgb[2] / 255.0)});
}

Components rgbOf(const Triple& xyz) {
    const Triple rgb = times(kFromXyz, xyz);
    return {slot(encoded(rgb[0]) * 255), slot(encoded(rgb[1]) * 255), slot(encoded(rgb[2]) * 255), 0};
}

} // namespace

Components labToRgb(const Components& lab) {
    const double fy = (lab[0] / 2.55 + 16) / 116, fx = fy + (lab[1] - 128) / 500.0,
                 fz = fy - (lab[2] - 128) / 200.0;
    return rgbOf({kWhite[0] * labCurveBack(fx), kWhite[1] * labCurveBack(fy), kWhite[2] * labCurveBack(fz)});
}

Components rgbToLab(const Components& rgb) {
    const Triple xyz = xyzOf(rgb);
    const double fx = labCurve(xyz[0] / kWhite[0]), fy = labCurve(xyz[1] / kWhite[1]),
                 fz = labCurve(xyz[2] / kWhite[2]);
    return {slot((116 * fy - 16) * 2.55), slot(500 * (fx - fy) + 128), slot(200 * (fy - fz) + 128), 0};
}

Components xyzToRgb(const Components& xyz) {
    return rgbOf({xyz[0] / 255.0, xyz[1] / 255.0, xyz[2] / 255.0});
}

Components rgbToXyz(const Components& rgb) {
    const Triple xyz = xyzOf(rgb);
    return {slot(xyz[0] * 255), slot(xyz[1] * 255), slot(xyz[2] * 255), 0};
}

Components rgbToGray(const Components& rgb) {
    return {slot(encoded(xyzOf(rgb)[1]) * 255), 0, 0, 0};
}

} // namespace chromalog::standalone
