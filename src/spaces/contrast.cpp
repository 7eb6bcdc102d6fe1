#include "spaces/contrast.h"

#include "spaces/gamut.h"

namespace chromalog {

double relativeLuminance(const Rgb& rgb) {
    const LinearRgb linear = linearRgbOf(clippedToSrgb(rgb));
    return 0.2126 * linear.red + 0.7152 * linear.green + 0.0722 * linear.blue;
}

double contrastRatio(const Rgb& first, const Rgb& second) {
    const auto [darker, lighter] = std::minmax({relativeLuminance(first), relativeLuminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

ContrastLevel contrastLevel(double ratio, TextSize size) {
    const bool large = size == TextSize::large;
    if (ratio >= (large ? 4.5 : 7)) return ContrastLevel::aaa;
    return ratio >= (large ? 3 : 4.5) ? ContrastLevel::aa : ContrastLevel::fails;
}

} // namespace chromalog
