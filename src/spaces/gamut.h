#pragma once

#include "spaces/oklab.h"

namespace chromalog {

/// Whether every component lies within 0..1, give or take the tolerance. No number never does.
bool inSrgb(const Rgb& rgb, double tolerance = 1e-6);

/// Each component clamped by itself: fast, but the hue may turn. No number becomes 0.
Rgb clippedToSrgb(const Rgb& rgb);

/// A colour brought inside sRGB so that hue and lightness look the same: the largest chroma in OKLCH, to
/// 0.0001, whose rest clipping removes with a difference that is just not noticed, 0.02 in OKLab (the gamut
/// mapping of CSS Color 4: a binary search of the chroma with local clipping). A colour inside stays as it
/// is; at or above lightness 1 the answer is white, at or below 0 black.
Rgb mappedToSrgb(const Oklch& colour);
Rgb mappedToSrgb(const Rgb& rgb); ///< for unclamped results of any other space

} // namespace chromalog
