#pragma once

#include <cmath>
#include <numbers>

namespace chromalog {

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180;

/// Any angle in degrees as 0..360 exclusive.
inline double wrappedDegrees(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    const double turned = rest < 0 ? rest + 360 : rest;
    return turned < 360 ? turned : 0; // the sum rounds up to 360 for the smallest negative angles
}

/// The direction of (a, b) in degrees, 0..360 exclusive.
inline double hueDegrees(double a, double b) {
    return wrappedDegrees(std::atan2(b, a) / kRadiansPerDegree);
}

} // namespace chromalog
