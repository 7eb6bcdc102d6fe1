#pragma once

#include "spaces/lab.h"

namespace chromalog {

/// The colour difference CIEDE2000 with all weights 1 (CIE 142:2001), as Sharma, Wu and Dalal settle its
/// hue means (2005, Color Research and Application 30:21). About 1 is just noticed side by side. Symmetric,
/// 0 for equal colours, but no metric: a way round may be shorter, and it jumps a little (about 1 %) where
/// hues are 180 degrees apart.
double ciede2000(const Lab& first, const Lab& second);

/// sqrt(C^7 / (C^7 + 25^7)): 0 for greys, near 1 for strong colours; grows with the chroma.
double ciede2000Strength(double chroma);

/// G, the part by which the a axis is stretched near the greys: 0.5 at chroma 0, falling to 0. The chroma is
/// the mean of both colours' in plain Lab.
inline double ciede2000Stretch(double meanChroma) {
    return 0.5 * (1 - ciede2000Strength(meanChroma));
}

/// T, the weight of the hue difference by the mean hue in degrees: 0.36 to 1.58.
double ciede2000HueWeight(double meanHue);

} // namespace chromalog
