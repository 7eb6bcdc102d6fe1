#include "colour/harmony.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace chromalog {
namespace {

// Where float and double take turns below, the last bits of the points depend on it, and points are later
// truncated to whole pixels: every cast is meant.
using std::numbers::pi;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double third = 2.0943951023931953; // 120 degrees

struct Polar {
    double dy;
    float r;
    float phi;
};

Polar polar(Size view, Point selected) {
    const double dx = selected.x - view.w / 2;
    const double dy = selected.y - view.h / 2;
    const float r = static_cast<float>(std::sqrt(dx * dx + dy * dy));
    if (r == 0) return {dy, r, 0};
    // r is rounded to float and may be less than |dx|: without the clamp every point would be no number.
    const double cosine = std::clamp(dx / r, -1.0, 1.0);
    return {dy, r, static_cast<float>(std::acos(cosine))};
}

} // namespace

float harmonyAngle(Size view, Point selected) {
    return polar(view, selected).phi;
}

HarmonyPoints harmonyPoints(Size view, Point selected, float spread) {
    auto [dy, r, phi] = polar(view, selected);
    const Point centre{view.w / 2, view.h / 2};
    const bool lower = dy < 0;
    const float sign = lower ? -1.0f : 1.0f;
    if (lower) phi = static_cast<float>(pi + phi);

    const auto single = [&, r = r](float x, float angle) {
        return Point{x * std::cos(angle) + centre.x, r * std::sin(angle) + centre.y};
    };
    const auto wide = [&, r = r](double x, double angle) {
        return Point{x * std::cos(angle) + centre.x, r * std::sin(angle) + centre.y};
    };

    HarmonyPoints points;
    points.opposite = {view.w - selected.x, view.h - selected.y};
    float a = static_cast<float>(radiansPerDegree * spread);
    points.balance1 = single(sign * r, phi + a);
    points.balance2 = single(sign * r, phi - a);
    points.equi1 = wide(sign * r, phi + third);
    points.equi2 = wide(sign * r, phi - third);
    a = 2 * a;
    if (lower) phi = -phi;
    points.quadri1 = single(r, phi + a); // no sign here: kept
    points.quadri2 = wide(r, phi + pi + a);
    return points;
}

} // namespace chromalog
