#include "spaces/gamut.h"

namespace chromalog {
namespace {

constexpr double kJustNoticeable = 0.02;
constexpr double kChromaStep = 0.0001; ///< where the search ends

bool within(double component, double tolerance) {
    return component >= -tolerance && component <= 1 + tolerance;
}

double unit(double component) {
    return component > 0 ? std::min(component, 1.0) : 0;
}

/// Euclidean in OKLab, between a colour and what clipping makes of it.
double lossByClipping(const Oklch& colour) {
    const Oklab from = oklabOf(colour);
    const Oklab to = oklabOf(clippedToSrgb(rgbOf(colour)));
    return std::hypot(to.lightness - from.lightness, to.a - from.a, to.b - from.b);
}

} // namespace

bool inSrgb(const Rgb& rgb, double tolerance) {
    return within(rgb.red, tolerance) && within(rgb.green, tolerance) && within(rgb.blue, tolerance);
}

Rgb clippedToSrgb(const Rgb& rgb) {
    return {unit(rgb.red), unit(rgb.green), unit(rgb.blue)};
}

Rgb mappedToSrgb(const Oklch& colour) {
    if (colour.lightness >= 1) return {1, 1, 1};
    if (!(colour.lightness > 0)) return {0, 0, 0};
    if (inSrgb(rgbOf(colour)) || lossByClipping(colour) < kJustNoticeable)
        return clippedToSrgb(rgbOf(colour));
    Oklch low{colour.lightness, 0, colour.hue};
    double high = std::min(colour.chroma, 1.0); // no colour of sRGB reaches 0.4
    while (high - low.chroma > kChromaStep) {
        const Oklch middle{colour.lightness, (low.chroma + high) / 2, colour.hue};
        if (lossByClipping(middle) < kJustNoticeable)
            low = middle;
        else
            high = middle.chroma;
    }
    return clippedToSrgb(rgbOf(low));
}

Rgb mappedToSrgb(const Rgb& rgb) {
    return inSrgb(rgb) ? clippedToSrgb(rgb) : mappedToSrgb(oklchOf(rgb));
}

} // namespace chromalog
