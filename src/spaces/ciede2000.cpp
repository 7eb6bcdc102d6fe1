#include "spaces/ciede2000.h"

#include "spaces/polar.h"

namespace chromalog {
namespace {

struct Polar {
    double chroma;
    double hue; ///< degrees, 0..360 exclusive
};

Polar polar(double a, double b) {
    return {std::sqrt(a * a + b * b), a == 0 && b == 0 ? 0 : hueDegrees(a, b)};
}

struct Hues {
    double difference; ///< second less first, -180..180 degrees
    double mean;       ///< degrees
};

Hues compare(const Polar& first, const Polar& second) {
    const double difference = second.hue - first.hue;
    const double sum = first.hue + second.hue;
    if (first.chroma * second.chroma == 0) return {0, sum}; // the one that has a hue
    if (std::abs(difference) <= 180) return {difference, sum / 2};
    return {difference > 0 ? difference - 360 : difference + 360, sum < 360 ? sum / 2 + 180 : sum / 2 - 180};
}

/// The turn R_T of the ellipses, felt among the blues.
double rotation(double meanHue, double meanChroma) {
    const double distance = (meanHue - 275) / 25;
    const double angle = 60 * std::exp(-distance * distance);
    return -2 * ciede2000Strength(meanChroma) * std::sin(angle * kRadiansPerDegree);
}

} // namespace

double ciede2000Strength(double chroma) {
    const double cube = chroma * chroma * chroma;
    const double seventh = cube * cube * chroma;
    return std::sqrt(seventh / (seventh + 6103515625.0));
}

// Four cosines of multiples of the mean hue, expanded from one.
double ciede2000HueWeight(double meanHue) {
    const double c = std::cos(meanHue * kRadiansPerDegree);
    const double s = std::sin(meanHue * kRadiansPerDegree);
    const double c2 = 2 * c * c - 1, s2 = 2 * s * c;
    const double c3 = c * (2 * c2 - 1), s3 = s * (2 * c2 + 1);
    const double c4 = 2 * c2 * c2 - 1, s4 = 2 * s2 * c2;
    constexpr double cos30 = 0.86602540378443865, sin30 = 0.5;
    constexpr double cos6 = 0.99452189536827333, sin6 = 0.10452846326765347;
    constexpr double cos63 = 0.45399049973954675, sin63 = 0.89100652418836786;
    return 1 - 0.17 * (c * cos30 + s * sin30) + 0.24 * c2 + 0.32 * (c3 * cos6 - s3 * sin6) -
           0.20 * (c4 * cos63 + s4 * sin63);
}

double ciede2000(const Lab& first, const Lab& second) {
    const double plainMean = (std::sqrt(first.a * first.a + first.b * first.b) +
                              std::sqrt(second.a * second.a + second.b * second.b)) /
                             2;
    const double stretch = 1 + ciede2000Stretch(plainMean);
    const Polar from = polar(stretch * first.a, first.b);
    const Polar to = polar(stretch * second.a, second.b);
    const Hues hues = compare(from, to);

    const double meanChroma = (from.chroma + to.chroma) / 2;
    const double offset = (first.lightness + second.lightness) / 2 - 50;
    const double lightnessScale = 1 + 0.015 * offset * offset / std::sqrt(20 + offset * offset);
    const double chromaScale = 1 + 0.045 * meanChroma;
    const double hueScale = 1 + 0.015 * meanChroma * ciede2000HueWeight(hues.mean);

    const double chord =
        2 * std::sqrt(from.chroma * to.chroma) * std::sin(hues.difference / 2 * kRadiansPerDegree);
    const double lightness = (second.lightness - first.lightness) / lightnessScale;
    const double chroma = (to.chroma - from.chroma) / chromaScale;
    const double hue = chord / hueScale;
    // Never below 0: the rotation is smaller than 2, but equal terms may round.
    return std::sqrt(std::max(0.0, lightness * lightness + chroma * chroma + hue * hue +
                                       rotation(hues.mean, meanChroma) * chroma * hue));
}

} // namespace chromalog
