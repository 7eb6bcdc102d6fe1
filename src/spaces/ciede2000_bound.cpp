#include "spaces/ciede2000_bound.h"

#include "spaces/ciede2000.h"
#include "spaces/polar.h"

#include <array>

// The square of CIEDE2000 is (dL / SL)^2 + x^2 + y^2 + R xy with x = dC' / SC and y = dH' / SH, where
//   SL = 1 + 0.015 m^2 / sqrt(20 + m^2) <= 1 + 0.015 |m|, m the mean lightness less 50: largest at an end
//   SC = 1 + 0.045 C', SH = 1 + 0.015 C' T, both by the mean C', chroma after a' = (1 + G) a
//   T <= 1 + 0.17 + 0.24 + 0.32 + 0.20 < 3, so SH <= SC
//   |R| = 2 strength(C') sin(60 exp(-((h - 275) / 25)^2)), h the mean hue; strength < 1 grows with C'
//   0 <= G <= 1/2 falls with the mean of the plain chromas; the mean C' is at most (1 + G) times that mean

namespace chromalog {
namespace {

double gap(double firstLow, double firstHigh, double secondLow, double secondHigh) {
    return std::max({0.0, secondLow - firstHigh, firstLow - secondHigh});
}

/// Of dL / SL.
double leastLightness(const LabBox& first, const LabBox& second) {
    const double dL =
        gap(first.low.lightness, first.high.lightness, second.low.lightness, second.high.lightness);
    const double offset = std::max(std::abs((first.low.lightness + second.low.lightness) / 2 - 50),
                                   std::abs((first.high.lightness + second.high.lightness) / 2 - 50));
    return dL / (1 + 0.015 * offset);
}

/// Of 1 + G.
double mostStretch(const LabBox& first, const LabBox& second) {
    return 1 + ciede2000Stretch((first.leastChroma + second.leastChroma) / 2);
}

/// Of the mean C'.
double mostMeanChroma(const LabBox& first, const LabBox& second) {
    return mostStretch(first, second) * (first.mostChroma + second.mostChroma) / 2;
}

/// Mean hues that two colours may have, as one stretch of 0..360.
struct MeanHues {
    double least = 0, most = 360;
};

/// Degrees by which a difference may be rounded over a half turn, where the mean jumps.
constexpr double kRounding = 1e-9;

MeanHues meanHues(const LabBox& first, const LabBox& second) {
    const MeanHues direct{(first.leastHue + second.leastHue) / 2, (first.mostHue + second.mostHue) / 2};
    if (std::max(second.mostHue - first.leastHue, first.mostHue - second.leastHue) <= 180 - kRounding)
        return direct;
    if (gap(first.leastHue, first.mostHue, second.leastHue, second.mostHue) <= 180 + kRounding)
        return {}; // either way round
    if (direct.most < 180) return {direct.least + 180, direct.most + 180};
    if (direct.least >= 180) return {direct.least - 180, direct.most - 180};
    return {};
}

/// The smaller angle between two hues, at least.
double leastHueDifference(const LabBox& first, const LabBox& second) {
    const double direct = gap(first.leastHue, first.mostHue, second.leastHue, second.mostHue);
    const double overZero =
        360 - (std::max(first.mostHue, second.mostHue) - std::min(first.leastHue, second.leastHue));
    return std::max(0.0, std::min(direct, overZero));
}

constexpr int kStep = 10; ///< degrees of mean hue

/// The largest T in each step: of samples a degree apart, and what T may rise between two. Its slope is at
/// most 0.17 + 2 * 0.24 + 3 * 0.32 + 4 * 0.20 = 2.41 a radian, 0.0211 for half a degree.
std::array<double, 360 / kStep> largestWeights() {
    std::array<double, 360 / kStep> largest{};
    for (int step = 0; step < 360 / kStep; ++step)
        for (int degree = step * kStep; degree <= (step + 1) * kStep; ++degree)
            largest[step] = std::max(largest[step], ciede2000HueWeight(degree) + 0.0211);
    return largest;
}

double mostHueWeight(const MeanHues& hues) {
    static const auto largest = largestWeights();
    const auto stepOf = [](double hue) { return std::min(static_cast<int>(hue) / kStep, 360 / kStep - 1); };
    double most = 0;
    for (int step = stepOf(hues.least); step <= stepOf(hues.most); ++step)
        most = std::max(most, largest[step]);
    return most;
}

double square(double v) {
    return v * v;
}

/// x^2 + y^2 - Rxy at least, where x lies within xLeast..xMost, y is at least yLeast, and 0 <= R < 2: a
/// convex bowl, lowest for any y at x = Ry / 2 and for any x at y = Rx / 2.
double leastOfBowl(double xLeast, double xMost, double yLeast, double rotation) {
    const double x = std::clamp(rotation * yLeast / 2, xLeast, xMost);
    const double y = std::max(rotation * x / 2, yLeast);
    return square(x) + square(y) - rotation * x * y;
}

} // namespace

LabBox boxOf(const Lab& lab) {
    const double chroma = std::sqrt(lab.a * lab.a + lab.b * lab.b);
    const double hue = hueDegrees(lab.a, lab.b);
    // The mean chroma with any other colour is at least the half of this one's.
    const double stretched = hueDegrees((1 + ciede2000Stretch(chroma / 2)) * lab.a, lab.b);
    return {lab, lab, chroma, chroma, std::min(hue, stretched), std::max(hue, stretched)};
}

LabBox joined(const LabBox& first, const LabBox& second) {
    return {{std::min(first.low.lightness, second.low.lightness), std::min(first.low.a, second.low.a),
             std::min(first.low.b, second.low.b)},
            {std::max(first.high.lightness, second.high.lightness), std::max(first.high.a, second.high.a),
             std::max(first.high.b, second.high.b)},
            std::min(first.leastChroma, second.leastChroma),
            std::max(first.mostChroma, second.mostChroma),
            std::min(first.leastHue, second.leastHue),
            std::max(first.mostHue, second.mostHue)};
}

// x^2 + y^2 >= (dC'^2 + dH'^2) / SC^2 = (da'^2 + db^2) / SC^2 >= (da^2 + db^2) / SC^2, of which the rotation
// leaves 1 - |R| / 2: x^2 + y^2 + R xy >= (1 - |R| / 2)(x^2 + y^2).
double leastCiede2000Squared(const LabBox& first, const LabBox& second) {
    const double da = gap(first.low.a, first.high.a, second.low.a, second.high.a);
    const double db = gap(first.low.b, first.high.b, second.low.b, second.high.b);
    const double meanChroma = mostMeanChroma(first, second);
    // Both hues within 0..180, hence their mean: |R| / 2 <= sin(60 exp(-3.8^2)) < 1e-6. Else at most sin(60).
    const bool upper = first.low.b >= 0 && second.low.b >= 0;
    const double left = upper ? 1 - 1e-6 : 1 - ciede2000Strength(meanChroma) * 0.8660254037844387;
    return square(leastLightness(first, second)) +
           left * (square(da) + square(db)) / square(1 + 0.045 * meanChroma);
}

// The chroma C' lies between the plain one and that times 1 + G; dH' = 2 sqrt(C1' C2') sin(dh / 2). Where one
// colour has no chroma its hue means nothing, but dH' is 0 then, in the formula as in the bound.
double leastCiede2000SquaredByHue(const LabBox& first, const LabBox& second) {
    const MeanHues hues = meanHues(first, second);
    const double meanChroma = mostMeanChroma(first, second);
    const double stretch = mostStretch(first, second);
    const double chromaLeast =
        gap(first.leastChroma, first.mostChroma * stretch, second.leastChroma, second.mostChroma * stretch);
    const double chromaMost = std::max(first.mostChroma * stretch - second.leastChroma,
                                       second.mostChroma * stretch - first.leastChroma);
    const double chord = 2 * std::sqrt(first.leastChroma * second.leastChroma) *
                         std::sin(leastHueDifference(first, second) / 2 * kRadiansPerDegree);
    const double distance = gap(hues.least, hues.most, 275, 275) / 25;
    const double rotation =
        2 * ciede2000Strength(meanChroma) * std::sin(60 * std::exp(-square(distance)) * kRadiansPerDegree);
    const double inPlane = leastOfBowl(chromaLeast / (1 + 0.045 * meanChroma),
                                       chromaMost / (1 + 0.0225 * (first.leastChroma + second.leastChroma)),
                                       chord / (1 + 0.015 * meanChroma * mostHueWeight(hues)), rotation);
    return square(leastLightness(first, second)) + inPlane;
}

} // namespace chromalog
