#pragma once

#include "spaces/lab.h"

namespace chromalog {

/// The colour difference CIEDE2000 with all weights 1 (CIE 142:2001), as Sharma, Wu and Dalal settle its
/// hue means (2005, Color Research and Application 30:21). About 1 is just noticed side by side. Symmetric,
/// 0 for equal colours, but no metric: a way round may be shorter, and it jumps a little (below 1 %) where
/// hues are 180 degrees apart.
double ciede2000(const Lab& first, const Lab& second);

/// The factor's excess by which CIEDE2000 stretches the a axis near the greys: G, 0.5 at chroma 0 and falling
/// to 0. The chroma is the mean of both colours' in plain Lab.
double ciede2000Stretch(double meanChroma);

} // namespace chromalog
