#pragma once

#include "spaces/rgb.h"

namespace chromalog {

/// Relative luminance of WCAG 2.2 (W3C 2023): 0 for black, 1 for white. Components outside 0..1 are clamped.
/// The curve is the one of sRGB with the bend at 0.04045; 2.0 printed 0.03928, which gives every 8-bit colour
/// the same.
double relativeLuminance(const Rgb& rgb);

/// (lighter + 0.05) / (darker + 0.05): 1..21, whichever is the text.
double contrastRatio(const Rgb& first, const Rgb& second);

/// Large is at least 18 point, or 14 point bold.
enum class TextSize { normal, large };
enum class ContrastLevel { fails, aa, aaa };

/// AA needs 4.5 (large 3), AAA needs 7 (large 4.5), success criteria 1.4.3 and 1.4.6. The ratio is not
/// rounded first: 4.499 fails.
ContrastLevel contrastLevel(double ratio, TextSize size);

} // namespace chromalog
